// SPDX-License-Identifier: Apache-2.0
#include "dictionary/trie/dynamic_pt_reading_helper.h"
#include "dictionary/trie/pt_node_array_reader.h"
#include "dictionary/trie/pt_node_params.h"
#include "dictionary/trie/pt_node_reader.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace wordengine::test {
namespace {

using Flags = PtNodeFlags;
using State = PtNodeStateFlags;

/// A trie of plain maps in the manner of the formats that can change: arrays at positions, each with a link
/// to its continuation. A node of array `a` has the position `a * 1000000 + its index`, the link follows the
/// last.
class FakeTrie : public PtNodeReader, public PtNodeArrayReader {
public:
    struct Node {
        std::u32string letters;
        int children = NO_DICT_POS;
        NodeFlags flags = State::FLAG_IS_NOT_MOVED | Flags::FLAG_IS_TERMINAL;
    };
    struct Array {
        std::vector<Node> nodes;
        int link = NO_DICT_POS;
        int claimedCount = 0;  // Stands for the node count if it is not 0.
    };
    static constexpr int ARRAY_DISTANCE = 1000000;

    static int arrayAt(int index) { return index * ARRAY_DISTANCE; }
    static int nodeAt(int array, int index) { return array * ARRAY_DISTANCE + 1 + index; }

    PtNodeParams fetchPtNodeParamsInBufferFromPtNodePos(int pos) const override {
        const auto array = arrays.find(pos / ARRAY_DISTANCE);
        const int index = pos % ARRAY_DISTANCE - 1;
        if (pos < 0 || array == arrays.end()) return PtNodeParams();
        const std::vector<Node>& nodes = array->second.nodes;
        if (array->second.claimedCount == 0 && index >= static_cast<int>(nodes.size())) return PtNodeParams();
        const Node& node = nodes[static_cast<size_t>(index) % nodes.size()];
        const std::vector<int> letters(node.letters.begin(), node.letters.end());
        return PtNodeParams(pos, node.flags, NO_DICT_POS, static_cast<int>(letters.size()), letters.data(),
                            NO_DICT_POS, PtNodeParams::NOT_A_TERMINAL_ID, NO_PROBABILITY, NO_DICT_POS,
                            node.children, pos + 1);
    }
    bool readPtNodeArrayInfoAndReturnIfValid(int pos, int* outCount, int* outFirst) const override {
        const auto array = arrays.find(pos / ARRAY_DISTANCE);
        if (pos < 0 || pos % ARRAY_DISTANCE != 0 || array == arrays.end()) return false;
        *outCount = array->second.claimedCount != 0 ? array->second.claimedCount
                                                    : static_cast<int>(array->second.nodes.size());
        *outFirst = pos + 1;
        return true;
    }
    bool readForwardLinkAndReturnIfValid(int pos, int* outNext) const override {
        const auto array = arrays.find(pos / ARRAY_DISTANCE);
        if (pos < 0 || array == arrays.end()) return false;
        *outNext = array->second.link;
        return true;
    }

    DynamicPtReadingHelper helper(int trieSize = 1000000) const {
        DynamicPtReadingHelper helper(this, this, trieSize);
        helper.initWithPtNodeArrayPos(arrayAt(0));
        return helper;
    }

    std::map<int, Array> arrays;
};

int find(const FakeTrie& trie, const std::u32string& word, bool* outIsError = nullptr) {
    DynamicPtReadingHelper helper = trie.helper();
    const std::vector<int> codePoints(word.begin(), word.end());
    const int pos =
        helper.getTerminalPtNodePositionOfWord(codePoints.data(), static_cast<int>(codePoints.size()), false);
    if (outIsError != nullptr) *outIsError = helper.isError();
    return pos;
}

/// Writes events down: "(" and ")" for descents and ascents, "|" for tails, letters for nodes.
struct EventLog : DynamicPtReadingHelper::TraversingEventListener {
    explicit EventLog(int limit = 1000000) : eventsLeft(limit) {}
    bool onAscend() override { return add(")"); }
    bool onDescend(int) override { return add("("); }
    bool onReadingPtNodeArrayTail() override { return add("|"); }
    bool onVisitingPtNode(const PtNodeParams* node) override {
        return add(std::string(node->getCodePoints(), node->getCodePoints() + node->getCodePointCount()));
    }
    bool add(const std::string& event) {
        if (eventsLeft-- == 0) return false;
        log += event;
        return true;
    }
    std::string log;
    int eventsLeft;
};

/// ab -> (c -> (e), d), f in a continuation behind an empty array, g -> ().
struct SampleTrie : FakeTrie {
    SampleTrie() {
        arrays[0] = {{{U"ab", arrayAt(3)}}, arrayAt(1)};
        arrays[1] = {{}, arrayAt(2)};
        arrays[2] = {{{U"f"}, {U"g", arrayAt(5)}}};
        arrays[3] = {{{U"c", arrayAt(4)}, {U"d"}}};
        arrays[4] = {{{U"e"}}};
        arrays[5] = {{}};
    }
};

TEST(ReadingHelperTest, LooksUpWordsAlongChainsOfArrays) {
    const SampleTrie trie;
    EXPECT_EQ(find(trie, U"ab"), FakeTrie::nodeAt(0, 0));
    EXPECT_EQ(find(trie, U"f"), FakeTrie::nodeAt(2, 0));
    EXPECT_EQ(find(trie, U"abce"), FakeTrie::nodeAt(4, 0));
    for (const char32_t* word : {U"a", U"abx", U"abcex", U"x", U"gx", U""}) {
        bool isError;
        EXPECT_EQ(find(trie, word, &isError), NO_DICT_POS);
        EXPECT_FALSE(isError) << "nothing is wrong with a word that is not there";
    }
    DynamicPtReadingHelper helper = trie.helper();
    const int upperCase[] = {'A', 'B', 'C', 'E'};
    EXPECT_EQ(helper.getTerminalPtNodePositionOfWord(upperCase, 4, true), FakeTrie::nodeAt(4, 0));
}

TEST(ReadingHelperTest, WalksChildrenFirstUntilItIsStopped) {
    SampleTrie trie;
    EventLog whole;
    EXPECT_TRUE(trie.helper().traverseAllPtNodesInPostorderDepthFirstManner(&whole));
    EXPECT_EQ(whole.log, "(((e|)cd|)abf(|)g|");
    for (int eventCount = 0; eventCount < 16; ++eventCount) {
        EventLog cut(eventCount);
        DynamicPtReadingHelper helper = trie.helper();
        EXPECT_FALSE(helper.traverseAllPtNodesInPostorderDepthFirstManner(&cut)) << eventCount;
        EXPECT_LE(cut.eventsLeft, 0);
        EXPECT_FALSE(helper.isError());
    }
    trie.arrays[3].nodes[0].flags = State::FLAG_IS_DELETED | Flags::FLAG_IS_TERMINAL;
    trie.arrays[2].nodes[0].flags = State::FLAG_IS_NOT_MOVED;
    std::vector<int> words;
    DynamicPtReadingHelper::TraversePolicyToGetAllTerminalPtNodePositions listener(&words);
    EXPECT_TRUE(trie.helper().traverseAllPtNodesInPostorderDepthFirstManner(&listener));
    EXPECT_EQ(words, (std::vector<int>{FakeTrie::nodeAt(4, 0), FakeTrie::nodeAt(3, 1), FakeTrie::nodeAt(0, 0),
                                       FakeTrie::nodeAt(2, 1)}));
}

TEST(ReadingHelperTest, LimitsChains) {
    struct Case {
        int firstCount, secondCount;
        bool isError;
    };
    for (const Case& each : std::vector<Case>{{100000, 0, false},
                                              {100001, 0, true},
                                              {60000, 40000, false},
                                              {60000, 40001, true},
                                              {-1, 0, true}}) {
        FakeTrie trie;
        trie.arrays[0] = {
            {{U"a"}}, each.secondCount > 0 ? FakeTrie::arrayAt(1) : NO_DICT_POS, each.firstCount};
        trie.arrays[1] = {{{U"b"}}, NO_DICT_POS, each.secondCount};
        bool isError;
        EXPECT_EQ(find(trie, U"z", &isError), NO_DICT_POS);
        EXPECT_EQ(isError, each.isError) << each.firstCount << " " << each.secondCount;
    }
    FakeTrie loop;
    loop.arrays[0] = {{}, FakeTrie::arrayAt(1)};
    loop.arrays[1] = {{}, FakeTrie::arrayAt(0)};
    bool isError;
    EXPECT_EQ(find(loop, U"z", &isError), NO_DICT_POS);
    EXPECT_TRUE(isError) << "empty arrays in a circle";
}

TEST(ReadingHelperTest, LimitsWalks) {
    // Every node of a level leads to the same next level: 30 bytes, and a thousand million ways down.
    FakeTrie shared;
    for (int level = 0; level < 30; ++level) {
        const int next = level < 29 ? FakeTrie::arrayAt(level + 1) : NO_DICT_POS;
        shared.arrays[level] = {{{U"a", next}, {U"b", next}}};
    }
    FakeTrie circle;
    circle.arrays[0] = {{{U"a", FakeTrie::arrayAt(0)}}};
    SampleTrie badChild;
    badChild.arrays[4].nodes[0].children = 7;
    for (const FakeTrie* trie : {&shared, &circle, static_cast<FakeTrie*>(&badChild)}) {
        EventLog log;
        DynamicPtReadingHelper helper = trie->helper(60);
        EXPECT_FALSE(helper.traverseAllPtNodesInPostorderDepthFirstManner(&log));
        EXPECT_TRUE(helper.isError());
        EXPECT_LT(log.log.size(), 1000u);
    }
    for (const auto& [levelCount, isWalkable] : std::vector<std::pair<int, bool>>{{48, true}, {51, false}}) {
        FakeTrie deep;
        for (int level = 0; level < levelCount; ++level) {
            deep.arrays[level] = {
                {{U"a", level < levelCount - 1 ? FakeTrie::arrayAt(level + 1) : NO_DICT_POS}}};
        }
        EventLog log;
        EXPECT_EQ(deep.helper().traverseAllPtNodesInPostorderDepthFirstManner(&log), isWalkable)
            << levelCount;
    }
}

}  // namespace
}  // namespace wordengine::test
