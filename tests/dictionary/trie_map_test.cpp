// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/trie_map.h"

#include "content_bytes.h"
#include "dictionary/v4/trie_map_iterator.h"

#include <algorithm>
#include <climits>
#include <map>
#include <random>

namespace wordengine::test {
namespace {

constexpr uint64_t VALUES[] = {0,        1,          0x3FFFFE,         0x3FFFFF,
                               0x400000, 0xFFFFFFFF, 0x123456789ABCDE, TrieMap::MAX_VALUE};

ContentBytes savedBytes(const TrieMap& map) {
    ContentBytes file = writtenBytes([&](std::FILE* out) { return map.save(out); });
    return takeSized(&file);
}

TEST(TrieMapTest, WritesTheBytesOfTheFormat) {
    TrieMap map;
    ASSERT_TRUE(map.put(1, 5, 0));
    ASSERT_TRUE(map.put(0x100, 0x400000, 0));
    ContentBytes expected(128);
    expected[2] = 1;                                                      // the outgrown table of one entry
    for (const ContentBytes& entry : {ContentBytes{0, 0, 0, 6, 0, 0, 2},  // root: labels 1 and 2, table at 2
                                      ContentBytes{0, 0, 0, 0, 0, 0, 0},  // free
                                      ContentBytes{0, 0, 0, 1, 0x40, 0, 5},  // inline
                                      ContentBytes{0, 0, 1, 0, 0x80, 0, 4},  // link to 4
                                      ContentBytes{0, 0, 0, 0, 0x40, 0, 0},  // its value
                                      ContentBytes{0, 0, 0, 0, 0, 0, 0}}) {  // and its next level
        expected.insert(expected.end(), entry.begin(), entry.end());
    }
    ContentBytes actual = savedBytes(map);
    // What lies in a free table behind the link to the next is nobody's.
    std::fill(actual.begin() + 139, actual.begin() + 142, uint8_t{0});
    EXPECT_EQ(actual, expected);
}

TEST(TrieMapTest, AnswersNothingWhereThereIsNothing) {
    TrieMap map;
    for (const int level : {0, TrieMap::INVALID_INDEX, 1, 7, INT_MAX, INT_MIN}) {
        EXPECT_FALSE(map.get(3, level).isValid);
        EXPECT_EQ(map.get(3, level).nextLevelBitmapEntryIndex, TrieMap::INVALID_INDEX);
        EXPECT_EQ(map.getNextLevelBitmapEntryIndex(3, level), TrieMap::INVALID_INDEX);
        EXPECT_EQ(map.put(3, TrieMap::MAX_VALUE + 1, level), false);
        if (level != 0) {
            EXPECT_FALSE(map.put(3, 1, level));
        }
    }
    ASSERT_TRUE(map.put(3, 0, 0));
    EXPECT_TRUE(map.get(3, 0).isValid);
    EXPECT_FALSE(map.get(3, map.get(3, 0).nextLevelBitmapEntryIndex).isValid);
}

TEST(TrieMapTest, FillsTablesThatOthersHaveOutgrown) {
    TrieMap map;
    // Four labels: tables of one, two and three entries are left behind.
    for (const int key : {0, 1, 0x100, 0x101}) ASSERT_TRUE(map.put(key, 7, 0));
    ASSERT_EQ(map.getEntryCount(), 1 + 1 + 2 + 3 + 4);
    const int level = map.getNextLevelBitmapEntryIndex(0x100, 0);
    EXPECT_EQ(map.getEntryCount(), 11) << "the link takes the two";
    for (const auto& [key, entryCount] : {std::pair(0x101, 11), {0x100, 13}, {1, 13}, {0, 17}}) {
        ASSERT_TRUE(map.put(key, 9, level));
        EXPECT_EQ(map.getEntryCount(), entryCount);
    }
    for (const int key : {0, 1, 0x100, 0x101})
        EXPECT_EQ(map.get(key, 0).value + map.get(key, level).value, 16u);
}

/// Sequences of up to three keys beside a plain map.
class TrieMapModelTest : public testing::TestWithParam<int> {
protected:
    using Sequence = std::vector<int>;

    int randomKey() {
        const auto number = static_cast<unsigned>(random_());
        switch (number % 4) {
            case 0:
                return static_cast<int>(number >> 8 & 0xFF);
            case 1:  // the same labels down to the sixth
                return static_cast<int>((number >> 8 & 3) << 30);
            case 2:
                return -static_cast<int>(number >> 8 & 0xFFF);
            default:
                return static_cast<int>(random_());
        }
    }

    Sequence randomSequence() {
        Sequence sequence;
        if (!model_.empty() && random_() % 2) {
            sequence = std::next(model_.begin(), static_cast<int>(random_() % model_.size()))->first;
            if (sequence.size() == 3 || random_() % 2) return sequence;
        }
        sequence.push_back(randomKey());
        return sequence;
    }

    static int levelOf(const TrieMap& map, const Sequence& sequence) {
        int level = map.getRootBitmapEntryIndex();
        for (size_t i = 0; i + 1 < sequence.size(); ++i) {
            level = map.get(sequence[i], level).nextLevelBitmapEntryIndex;
        }
        return level;
    }

    void putAtRandom(TrieMap* map) {
        const Sequence sequence = randomSequence();
        int level = 0;
        for (size_t i = 0; i + 1 < sequence.size(); ++i) {
            level = map->getNextLevelBitmapEntryIndex(sequence[i], level);
        }
        const uint64_t value =
            random_() % 2 ? VALUES[random_() % std::size(VALUES)] : random_() % TrieMap::MAX_VALUE;
        ASSERT_TRUE(map->put(sequence.back(), value, level));
        model_[sequence] = value;
    }

    static void collect(const TrieMap::TrieMapRange& range, Sequence* prefix,
                        std::map<Sequence, uint64_t>* all) {
        for (const auto& entry : range) {
            prefix->push_back(entry.key());
            EXPECT_TRUE(all->emplace(*prefix, entry.value()).second) << "met twice";
            if (entry.hasNextLevelMap()) collect(entry.getEntriesInNextLevel(), prefix, all);
            prefix->pop_back();
        }
    }

    void expectModel(const TrieMap& map) {
        for (const auto& [sequence, value] : model_) {
            const auto result = map.get(sequence.back(), levelOf(map, sequence));
            ASSERT_TRUE(result.isValid);
            ASSERT_EQ(result.value, value);
        }
        for (int i = 0; i < 300; ++i) {
            const Sequence sequence = randomSequence();
            ASSERT_EQ(map.get(sequence.back(), levelOf(map, sequence)).isValid, model_.count(sequence) > 0);
        }
        std::map<Sequence, uint64_t> all;
        Sequence prefix;
        collect(map.getEntriesInRootLevel(), &prefix, &all);
        ASSERT_EQ(all, model_);
    }

    std::mt19937_64 random_{static_cast<unsigned>(GetParam())};
    std::map<Sequence, uint64_t> model_;
};

TEST_P(TrieMapModelTest, RandomOperationsAgreeWithPlainMap) {
    TrieMap map;
    for (int i = 0; i < 3000; ++i) ASSERT_NO_FATAL_FAILURE(putAtRandom(&map));
    ASSERT_NO_FATAL_FAILURE(expectModel(map));
    ContentBytes bytes = savedBytes(map);
    TrieMap opened(viewOf(bytes));
    ASSERT_NO_FATAL_FAILURE(expectModel(opened));
    for (int i = 0; i < 1000; ++i) ASSERT_NO_FATAL_FAILURE(putAtRandom(&opened));
    expectModel(opened);
}

INSTANTIATE_TEST_SUITE_P(Seeds, TrieMapModelTest, testing::Range(1, 7));

TEST(TrieMapTest, StaysWholeWhenItIsFull) {
    ContentBytes bytes = savedBytes(TrieMap());
    TrieMap map(viewOf(bytes));
    int count = 0;
    while (map.put(count * 7919, 0x400000u + static_cast<unsigned>(count), 0)) ++count;
    EXPECT_GT(count, 10000);
    EXPECT_TRUE(map.isNearSizeLimit());
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(map.get(i * 7919, 0).value, 0x400000u + static_cast<unsigned>(i));
    EXPECT_FALSE(map.get(count * 7919, 0).isValid);
    EXPECT_TRUE(map.put(0, TrieMap::MAX_VALUE, 0)) << "needs no room";
}

TEST(TrieMapTest, LeadsToNoTableThatWouldReadAsValue) {
    constexpr size_t LAST_TABLE = 0x3FFFFF;
    ContentBytes bytes(128 + 7 * LAST_TABLE);
    TrieMap map(viewOf(bytes));
    EXPECT_TRUE(map.isNearSizeLimit());
    ASSERT_TRUE(map.put(1, 5, 0));
    EXPECT_FALSE(map.put(2, 5, 0));
    EXPECT_EQ(map.getNextLevelBitmapEntryIndex(1, 0), TrieMap::INVALID_INDEX);
    EXPECT_EQ(map.get(1, 0).value, 5u);
}

}  // namespace
}  // namespace wordengine::test
