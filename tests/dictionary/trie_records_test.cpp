// SPDX-License-Identifier: Apache-2.0
#include "dictionary/binary_dictionary_bigrams_iterator.h"
#include "dictionary/binary_dictionary_shortcut_iterator.h"
#include "dictionary/v2/bigram_list_policy.h"
#include "dictionary/v2/shortcut_list_policy.h"
#include "dictionary/v2/ver2_particia_trie_node_reader.h"
#include "dictionary/v2/ver2_pt_node_array_reader.h"
#include "support/trie_assembler.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wordengine::test {
namespace {

// Records are written down byte by byte here, and lie at the end of the bytes unless told otherwise, so that
// a read too far is seen by the sanitizers.

ReadOnlyByteArrayView viewOf(const Bytes& bytes) {
    return {bytes.data(), bytes.size()};
}

struct Readers {
    explicit Readers(const Bytes& bytes)
        : bigrams(viewOf(bytes)), shortcuts(viewOf(bytes)), nodes(viewOf(bytes), &bigrams, &shortcuts) {}
    PtNodeParams read(int pos) const { return nodes.fetchPtNodeParamsInBufferFromPtNodePos(pos); }

    BigramListPolicy bigrams;
    ShortcutListPolicy shortcuts;
    Ver2ParticiaTrieNodeReader nodes;
};

std::u32string lettersOf(const PtNodeParams& node) {
    return std::u32string(node.getCodePoints(), node.getCodePoints() + node.getCodePointCount());
}

TEST(NodeArrayTest, ReadsCountsOfOneAndTwoBytes) {
    struct Case {
        Bytes bytes;
        int count;
        int firstNode;
    };
    for (const Case& each : std::vector<Case>{{{0x00}, 0, 1},
                                              {{0x7F}, 127, 1},
                                              {{0x80, 0x05}, 5, 2},
                                              {{0x81, 0x2C}, 300, 2},
                                              {{0xFF, 0xFF}, 32767, 2}}) {
        const Ver2PtNodeArrayReader reader(viewOf(each.bytes));
        int count = -1;
        int firstNode = -1;
        ASSERT_TRUE(reader.readPtNodeArrayInfoAndReturnIfValid(0, &count, &firstNode));
        EXPECT_EQ(count, each.count);
        EXPECT_EQ(firstNode, each.firstNode);
    }
}

TEST(NodeArrayTest, AcceptsPositionsInTheBodyOnly) {
    const Bytes bytes{0x01, 0x02, 0x81};
    const Ver2PtNodeArrayReader reader(viewOf(bytes));
    int count, first;
    for (const int pos : {-1, 3, 4, NO_DICT_POS, 2147483647}) {
        EXPECT_FALSE(reader.readPtNodeArrayInfoAndReturnIfValid(pos, &count, &first)) << pos;
    }
    EXPECT_FALSE(reader.readPtNodeArrayInfoAndReturnIfValid(2, &count, &first)) << "half a count";
    int next = 7;
    ASSERT_TRUE(reader.readForwardLinkAndReturnIfValid(2, &next));
    EXPECT_EQ(next, NO_DICT_POS);
    EXPECT_TRUE(reader.readForwardLinkAndReturnIfValid(3, &next))
        << "the last array ends where the body ends";
    EXPECT_FALSE(reader.readForwardLinkAndReturnIfValid(4, &next));
    EXPECT_FALSE(reader.readForwardLinkAndReturnIfValid(-1, &next));
}

TEST(NodeTest, ReadsEachForm) {
    struct Case {
        const char* name;
        Bytes bytes;
        std::u32string letters;
        int probability;
        int childrenPos;
        int shortcutPos;
        int bigramPos;
    };
    const std::vector<Case> cases = {
        {"one letter", {0x00, 'a'}, U"a", -1, NO_DICT_POS, NO_DICT_POS, NO_DICT_POS},
        {"a word", {0x10, 'a', 200}, U"a", 200, NO_DICT_POS, NO_DICT_POS, NO_DICT_POS},
        {"three-byte letter",
         {0x10, 0x00, 0x06, 0x43, 0},
         U"\u0643",
         0,
         NO_DICT_POS,
         NO_DICT_POS,
         NO_DICT_POS},
        {"a letter above the first plane",
         {0x00, 0x01, 0xF6, 0x00},
         U"\U0001F600",
         -1,
         NO_DICT_POS,
         NO_DICT_POS,
         NO_DICT_POS},
        {"merged letters",
         {0x30, 'a', 0x00, 0x01, 0x53, 0xE9, 0x1F, 9},
         U"a\u0153\u00E9",
         9,
         NO_DICT_POS,
         NO_DICT_POS,
         NO_DICT_POS},
        {"children in one byte", {0x40, 'a', 0xFF}, U"a", -1, 2 + 0xFF, NO_DICT_POS, NO_DICT_POS},
        {"children in two bytes", {0x90, 'a', 3, 0x12, 0x34}, U"a", 3, 3 + 0x1234, NO_DICT_POS, NO_DICT_POS},
        {"children in three bytes",
         {0xC0, 'a', 0xFF, 0xFF, 0xFE},
         U"a",
         -1,
         2 + 0xFFFFFE,
         NO_DICT_POS,
         NO_DICT_POS},
        {"a pair", {0x14, 'a', 3, 0x1F, 0x00}, U"a", 3, NO_DICT_POS, NO_DICT_POS, 3},
        {"a shortcut", {0x18, 'a', 3, 0, 5, 0x0F, 'b', 0x1F}, U"a", 3, NO_DICT_POS, 3, NO_DICT_POS},
        {"everything",
         {0x7F, 'a', 'b', 0x1F, 3, 0x07, 0, 8, 0x81, 'x', 0x1F, 0x02, 'y', 0x1F, 0xA1, 0, 9, 0x71, 1, 2, 3},
         U"ab",
         3,
         5 + 7,
         6,
         14},
        {"an empty shortcut list", {0x18, 'a', 3, 0, 2}, U"a", 3, NO_DICT_POS, 3, NO_DICT_POS}};
    for (Case each : cases) {
        const PtNodeParams node = Readers(each.bytes).read(0);
        ASSERT_TRUE(node.isValid()) << each.name;
        EXPECT_EQ(lettersOf(node), each.letters) << each.name;
        EXPECT_EQ(node.getProbability(), each.probability) << each.name;
        EXPECT_EQ(node.getChildrenPos(), each.childrenPos) << each.name;
        EXPECT_EQ(node.getShortcutPos(), each.shortcutPos) << each.name;
        EXPECT_EQ(node.getBigramsPos(), each.bigramPos) << each.name;
        EXPECT_EQ(node.getSiblingNodePos(), static_cast<int>(each.bytes.size())) << each.name;
        EXPECT_FALSE(node.isDeleted() || node.isMoved()) << each.name << ": the top bits are no state here";
        while (!each.bytes.empty()) {
            each.bytes.pop_back();
            EXPECT_FALSE(Readers(each.bytes).read(0).isValid())
                << each.name << " cut to " << each.bytes.size();
        }
    }
}

TEST(NodeTest, RefusesWhatIsNoNode) {
    const Bytes bytes{0x00, 0x1F, 0x20, 0x1F, 0x18, 'a', 3, 0, 1, 0x18, 'a', 3, 0, 0, 0x18, 'a', 3, 0, 99};
    const Readers readers(bytes);
    for (const int pos : {-1, NO_DICT_POS, static_cast<int>(bytes.size()), 2147483647}) {
        EXPECT_FALSE(readers.read(pos).isValid()) << "outside: " << pos;
    }
    EXPECT_FALSE(readers.read(0).isValid()) << "no letter";
    EXPECT_FALSE(readers.read(2).isValid()) << "no letters";
    for (const int pos : {4, 9}) EXPECT_FALSE(readers.read(pos).isValid()) << "a shortcut list too small";
    EXPECT_FALSE(readers.read(14).isValid()) << "a shortcut list that runs off the body";
}

TEST(NodeTest, CutsOverlongLetters) {
    Bytes bytes{0x20};
    bytes.insert(bytes.end(), 60, 'x');
    bytes.push_back(0x1F);
    const PtNodeParams node = Readers(bytes).read(0);
    EXPECT_EQ(node.getCodePointCount(), WORD_LENGTH_LIMIT);
    EXPECT_EQ(node.getSiblingNodePos(), 1 + WORD_LENGTH_LIMIT + 1);
}

TEST(BigramListTest, ReadsOffsetsOfEachSizeAndSign) {
    const Bytes bytes{0x9F, 0x05, 0xA2, 0x01, 0x00, 0xB3, 0x01, 0x00, 0x00, 0xC4,
                      0xD5, 0x0B, 0xE6, 0x00, 0x0E, 0xF7, 0x00, 0x00, 0x10, 0x48};
    const std::vector<std::pair<int, int>> expected = {{1 + 5, 15},    {3 + 0x100, 2}, {6 + 0x10000, 3},
                                                       {10, 4},        {11 - 0x0B, 5}, {13 - 0x0E, 6},
                                                       {16 - 0x10, 7}, {20, 8}};
    const BigramListPolicy policy(viewOf(bytes));
    BinaryDictionaryBigramsIterator iterator(&policy, 0);
    std::vector<std::pair<int, int>> entries;
    while (iterator.hasNext()) {
        iterator.next();
        entries.emplace_back(iterator.getBigramPos(), iterator.getProbability());
    }
    EXPECT_EQ(entries, expected);
    int pos = 0;
    EXPECT_TRUE(policy.skipAllBigrams(&pos));
    EXPECT_EQ(pos, static_cast<int>(bytes.size()));
    EXPECT_FALSE(BinaryDictionaryBigramsIterator(&policy, NO_DICT_POS).hasNext());
}

TEST(BigramListTest, EndsWithTheBytes) {
    for (const Bytes& endless :
         std::vector<Bytes>{{0x91, 0x05, 0x91, 0x05}, {0x91, 0x05, 0xA1, 0x00}, {0x81}}) {
        const BigramListPolicy policy(viewOf(endless));
        int pos = 0;
        EXPECT_FALSE(policy.skipAllBigrams(&pos));
        BinaryDictionaryBigramsIterator iterator(&policy, 0);
        int count = 0;
        while (iterator.hasNext() && count < 100) {
            iterator.next();
            ++count;
        }
        EXPECT_LE(count, 3);
        EXPECT_EQ(iterator.getBigramPos(), NO_DICT_POS);
        EXPECT_EQ(iterator.getProbability(), NO_PROBABILITY);
    }
    const BigramListPolicy policy(viewOf({}));
    for (const int start : {-1, 1, 2147483647}) {
        BinaryDictionaryBigramsIterator iterator(&policy, start);
        iterator.next();
        EXPECT_FALSE(iterator.hasNext());
    }
}

TEST(ShortcutListTest, ReadsTargetsAndWhitelistMarks) {
    const Bytes bytes{0, 15, 0x8E, 'a', 0x1F, 0x8F, 0x00, 0x01, 0x53, 'b', 0x1F, 0x0F, 'c', 'd', 0x1F};
    const ShortcutListPolicy policy(viewOf(bytes));
    BinaryDictionaryShortcutIterator iterator(&policy, 0);
    std::vector<std::pair<std::u32string, bool>> entries;
    while (iterator.hasNext()) {
        int target[WORD_LENGTH_LIMIT];
        int length = 0;
        bool isWhitelist = false;
        iterator.next(target, &length, &isWhitelist);
        entries.emplace_back(std::u32string(target, target + length), isWhitelist);
    }
    EXPECT_EQ(entries, (std::vector<std::pair<std::u32string, bool>>{
                           {U"a", false}, {U"\u0153b", true}, {U"cd", true}}));
    int pos = 0;
    policy.skipAllShortcuts(&pos);
    EXPECT_EQ(pos, 15);
    EXPECT_FALSE(BinaryDictionaryShortcutIterator(&policy, NO_DICT_POS).hasNext());
    // Without a place for the target only the flags are read.
    pos = 2;
    policy.getNextShortcut(WORD_LENGTH_LIMIT, nullptr, nullptr, nullptr, nullptr, &pos);
    EXPECT_EQ(pos, 3);
}

TEST(ShortcutListTest, EndsWithTheBytes) {
    for (const Bytes& endless : std::vector<Bytes>{
             {0, 9, 0x81, 'a', 0x1F, 0x81}, {0, 9, 0x81, 'a'}, {0, 9, 0x81, 0x1F, 0x81, 0x1F}, {0}}) {
        const ShortcutListPolicy policy(viewOf(endless));
        BinaryDictionaryShortcutIterator iterator(&policy, 0);
        int target[WORD_LENGTH_LIMIT];
        int length = -1;
        int count = 0;
        for (; iterator.hasNext() && count < 100; ++count) iterator.next(target, &length, nullptr);
        EXPECT_LE(count, 3);
        EXPECT_EQ(length, 0) << "what the end cuts off is no target";
        int pos = 0;
        policy.skipAllShortcuts(&pos);
        EXPECT_EQ(pos, NO_DICT_POS);
    }
}

}  // namespace
}  // namespace wordengine::test
