// SPDX-License-Identifier: Apache-2.0
#include "dictionary/binary_dictionary_bigrams_iterator.h"
#include "dictionary/v2/bigram_list_policy.h"
#include "dictionary/v2/shortcut_list_policy.h"
#include "dictionary/v2/ver2_particia_trie_node_reader.h"
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

TEST(NodeTest, ReadsEachForm) {
    struct Case {
        const char* name;
        Bytes bytes;
        std::u32string letters;
        int probability;
        int childrenPos = NO_DICT_POS;
        int shortcutPos = NO_DICT_POS;
        int bigramPos = NO_DICT_POS;
    };
    const std::vector<Case> cases = {
        {"one letter", {0x00, 'a'}, U"a", -1},
        {"three-byte letter", {0x10, 0x00, 0x06, 0x43, 0}, U"\u0643", 0},
        {"merged letters", {0x30, 'a', 0x00, 0x01, 0x53, 0xE9, 0x1F, 9}, U"a\u0153\u00E9", 9},
        {"children in one byte", {0x40, 'a', 0xFF}, U"a", -1, 2 + 0xFF},
        {"children in two bytes", {0x90, 'a', 3, 0x12, 0x34}, U"a", 3, 3 + 0x1234},
        {"children in three bytes", {0xC0, 'a', 0xFF, 0xFF, 0xFE}, U"a", -1, 2 + 0xFFFFFE},
        {"everything",
         {0x7F, 'a', 'b', 0x1F, 3, 0x07, 0, 8, 0x81, 'x', 0x1F, 0x02, 'y', 0x1F, 0xA1, 0, 9, 0x71, 1, 2, 3},
         U"ab",
         3,
         5 + 7,
         6,
         14},
        {"an empty shortcut list", {0x18, 'a', 3, 0, 2}, U"a", 3, NO_DICT_POS, 3}};
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

}  // namespace
}  // namespace wordengine::test
