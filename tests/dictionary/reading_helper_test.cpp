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
        int parent = NO_DICT_POS;
        int probability = 10;
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
        return PtNodeParams(pos, node.flags, node.parent, static_cast<int>(letters.size()), letters.data(),
                            NO_DICT_POS, PtNodeParams::NOT_A_TERMINAL_ID, node.probability, NO_DICT_POS,
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
    int eventsLeft = 1000000;
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
    for (const char32_t* word : {U"a", U"ax", U"abx", U"abcex", U"x", U"fx", U"gx", U""}) {
        bool isError;
        EXPECT_EQ(find(trie, word, &isError), NO_DICT_POS);
        EXPECT_FALSE(isError) << "nothing is wrong with a word that is not there";
    }
    DynamicPtReadingHelper helper = trie.helper();
    const int upperCase[] = {'A', 'B', 'C', 'E'};
    EXPECT_EQ(helper.getTerminalPtNodePositionOfWord(upperCase, 4, true), FakeTrie::nodeAt(4, 0));
}

TEST(ReadingHelperTest, VisitsInTheOrderOfEachWalk) {
    const SampleTrie trie;
    EventLog postorder;
    DynamicPtReadingHelper helper = trie.helper();
    EXPECT_TRUE(helper.traverseAllPtNodesInPostorderDepthFirstManner(&postorder));
    EXPECT_EQ(postorder.log, "(((e|)cd|)abf(|)g|");
    EventLog preorder;
    helper = trie.helper();
    EXPECT_TRUE(helper.traverseAllPtNodesInPtNodeArrayLevelPreorderDepthFirstManner(&preorder));
    EXPECT_EQ(preorder.log, "(abfg|(cd|(e|))(|)");
    for (int eventCount = 0; eventCount < 16; ++eventCount) {
        EventLog cut;
        cut.eventsLeft = eventCount;
        helper = trie.helper();
        EXPECT_FALSE(helper.traverseAllPtNodesInPostorderDepthFirstManner(&cut)) << eventCount;
        EXPECT_LE(cut.eventsLeft, 0);
        cut.eventsLeft = eventCount;
        helper = trie.helper();
        EXPECT_FALSE(helper.traverseAllPtNodesInPtNodeArrayLevelPreorderDepthFirstManner(&cut)) << eventCount;
        EXPECT_FALSE(helper.isError());
    }
}

TEST(ReadingHelperTest, CollectsWordsThatAreNotDeleted) {
    SampleTrie trie;
    trie.arrays[3].nodes[0].flags = State::FLAG_IS_DELETED | Flags::FLAG_IS_TERMINAL;
    trie.arrays[2].nodes[0].flags = State::FLAG_IS_NOT_MOVED;
    std::vector<int> positions;
    DynamicPtReadingHelper::TraversePolicyToGetAllTerminalPtNodePositions listener(&positions);
    DynamicPtReadingHelper helper = trie.helper();
    EXPECT_TRUE(helper.traverseAllPtNodesInPostorderDepthFirstManner(&listener));
    EXPECT_EQ(positions, (std::vector<int>{FakeTrie::nodeAt(4, 0), FakeTrie::nodeAt(3, 1),
                                           FakeTrie::nodeAt(0, 0), FakeTrie::nodeAt(2, 1)}));
}

TEST(ReadingHelperTest, SpellsWordsByParentLinks) {
    FakeTrie trie;
    constexpr NodeFlags WORD = Flags::FLAG_IS_TERMINAL | State::FLAG_IS_NOT_MOVED;
    trie.arrays[0] = {{{U"ab"},
                       {U"cd", NO_DICT_POS, WORD, 1, 77},
                       {U"e", NO_DICT_POS, Flags::FLAG_IS_TERMINAL | State::FLAG_IS_DELETED, 1},
                       {U"f", NO_DICT_POS, State::FLAG_IS_NOT_MOVED, 1},
                       {U"g", NO_DICT_POS, WORD, 5}}};
    const auto spell = [&trie](int pos, int maxLength, int* outProbability) {
        DynamicPtReadingHelper helper(&trie, &trie, 100);
        helper.initWithPtNodePos(pos);
        int letters[WORD_LENGTH_LIMIT];
        const int length =
            helper.getCodePointsAndProbabilityAndReturnCodePointCount(maxLength, letters, outProbability);
        return std::u32string(letters, letters + length);
    };
    int probability;
    EXPECT_EQ(spell(2, 48, &probability), U"abcd");
    EXPECT_EQ(probability, 77);
    EXPECT_EQ(spell(2, 4, &probability), U"abcd");
    struct Case {
        const char* why;
        int pos, maxLength;
    };
    for (const Case& each : std::vector<Case>{{"too long", 2, 3},
                                              {"deleted", 3, 48},
                                              {"no word", 4, 48},
                                              {"its own parent", 5, 48},
                                              {"no node", 50, 48},
                                              {"nowhere", NO_DICT_POS, 48}}) {
        EXPECT_EQ(spell(each.pos, each.maxLength, &probability), U"") << each.why;
        EXPECT_EQ(probability, NO_PROBABILITY) << each.why;
    }
}

TEST(ReadingHelperTest, LimitsChains) {
    struct Case {
        const char* name;
        int firstCount, secondCount;
        bool isError;
    };
    for (const Case& each : std::vector<Case>{{"the most nodes in one array", 100000, 0, false},
                                              {"one more", 100001, 0, true},
                                              {"the most nodes in two arrays", 60000, 40000, false},
                                              {"one more", 60000, 40001, true},
                                              {"less than none", -1, 0, true}}) {
        FakeTrie trie;
        trie.arrays[0] = {
            {{U"a"}}, each.secondCount > 0 ? FakeTrie::arrayAt(1) : NO_DICT_POS, each.firstCount};
        trie.arrays[1] = {{{U"b"}}, NO_DICT_POS, each.secondCount};
        bool isError;
        EXPECT_EQ(find(trie, U"z", &isError), NO_DICT_POS);
        EXPECT_EQ(isError, each.isError) << each.name;
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
        helper = trie->helper(60);
        EXPECT_FALSE(helper.traverseAllPtNodesInPtNodeArrayLevelPreorderDepthFirstManner(&log));
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
        EXPECT_EQ(deep.helper().traverseAllPtNodesInPtNodeArrayLevelPreorderDepthFirstManner(&log),
                  isWalkable)
            << levelCount;
    }
}

}  // namespace
}  // namespace wordengine::test
