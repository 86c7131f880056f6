// SPDX-License-Identifier: Apache-2.0
#include "content_bytes.h"
#include "dictionary/v4/shortcut_dict_content.h"
#include "dictionary/v4/terminal_position_lookup_table.h"
#include "dictionary/v4/trie_map_iterator.h"

#include <climits>
#include <random>

namespace wordengine::test {
namespace {

// Contents over bytes that nobody wrote. A sanitizer watches over what is read; here, that it ends.

TerminalIdMap sameIds() {
    TerminalIdMap ids;
    for (int id = 0; id < 64; ++id) ids.emplace(id, id);
    return ids;
}

template <class Probabilities>
void exerciseProbabilities(Probabilities* content, bool hasHistory) {
    const TerminalIdMap ids = sameIds();
    const ProbabilityEntry entry(1, 9);
    for (const int id : {-1, 0, 1, 17, 63, INT_MAX}) (void)content->getProbabilityEntry(id);
    int count = 0;
    (void)Probabilities(hasHistory).runGC(&ids, content, &count);
    for (int id = 0; id < 80; ++id) content->setProbabilityEntry(id, &entry);
    (void)Probabilities(hasHistory).runGC(&ids, content, &count);
}

template <class Bigrams>
void exercisePairs(Bigrams* content, bool hasHistory) {
    const TerminalIdMap ids = sameIds();
    for (int round = 0; round < 2; ++round) {
        for (int id = -1; id < 64; ++id) {
            int remaining = content->getMaxEntryCount();
            int pos = content->getBigramListHeadPos(id);
            int steps = 0;
            while (const auto found = content->readNextEntry(&pos, &remaining)) {
                ASSERT_LE(++steps, content->getMaxEntryCount());
                if (round == 0 || steps > 2) continue;
                content->writeBigramEntry(&found->entry, found->pos);
            }
        }
        int count = 0;
        Bigrams(hasHistory).runGC(&ids, content, &count);
        const BigramEntry entry(false, 9, 3);
        for (int id = 0; id < 64; id += 5) content->addNewBigramEntry(id, &entry);
        for (const int pos : {-1, 0, 3, INT_MAX, INT_MIN}) (void)content->getBigramEntry(pos);
    }
}

void exerciseShortcuts(ShortcutDictContent* content) {
    const TerminalIdMap ids = sameIds();
    const int word[] = {'a'};
    for (int id = 0; id < 64; ++id) {
        const int head = content->getShortcutListHeadPos(id);
        content->setProbability(3, content->findShortcutEntryAndGetPos(head, word, 1));
        if (id % 7 == 0) content->copyShortcutList(head, content->getContentTailPos());
    }
    (void)ShortcutDictContent().runGC(&ids, content);
}

template <class Layout>
void exerciseAll(const SparseBytes& pairs, const ContentBytes& probabilities, bool hasHistory) {
    SparseBytes pairsCopy = pairs;
    typename Layout::Bigrams bigrams(viewsOf(pairsCopy), hasHistory);
    exercisePairs(&bigrams, hasHistory);
    ContentBytes copy = probabilities;
    typename Layout::Probabilities content(viewOf(copy), hasHistory);
    exerciseProbabilities(&content, hasHistory);
    SparseBytes shortcutCopy = pairs;
    ShortcutDictContent shortcuts(viewsOf(shortcutCopy));
    exerciseShortcuts(&shortcuts);
    ContentBytes tableCopy = probabilities;
    TerminalPositionLookupTable table(viewOf(tableCopy));
    TerminalIdMap ids;
    table.setTerminalPtNodePosition(100, 5);
    (void)table.runGCTerminalIds(&ids);
}

void damage(ContentBytes* bytes, std::mt19937* random) {
    const auto below = [&](size_t count) { return (*random)() % count; };
    for (size_t i = below(6); i > 0 && !bytes->empty(); --i) {
        // Small numbers lead to places that are there.
        (*bytes)[below(bytes->size())] = static_cast<uint8_t>(below(2) ? below(256) : below(40));
    }
    if (below(4) == 0) bytes->resize(below(bytes->size() + 1));
    bytes->shrink_to_fit();
}

template <class Layout>
void damageAtRandom(bool hasHistory) {
    typename Layout::Bigrams bigrams(hasHistory);
    typename Layout::Probabilities content(hasHistory);
    const HistoricalInfo info(1000, 2, 3);
    for (int id = 0; id < 60; ++id) {
        const BigramEntry pair(false, id, &info, id % 7);
        const ProbabilityEntry entry(0, id, info);
        ASSERT_TRUE(bigrams.addNewBigramEntry(id % 20, &pair));
        ASSERT_TRUE(content.setProbabilityEntry(id, &entry));
    }
    const SparseBytes pairs = buffersOf(bigrams);
    const ContentBytes probabilities = Layout::bytesOf(content);
    std::mt19937 random(hasHistory ? 51 : 52);
    for (int round = 0; round < 150; ++round) {
        SparseBytes damagedPairs = pairs;
        for (ContentBytes& bytes : damagedPairs) damage(&bytes, &random);
        ContentBytes damagedProbabilities = probabilities;
        damage(&damagedProbabilities, &random);
        exerciseAll<Layout>(damagedPairs, damagedProbabilities, hasHistory);
    }
}

TEST(ContentsDamageTest, FlippedAndCutBytesAreReadToAnEnd) {
    for (const bool hasHistory : {false, true}) {
        damageAtRandom<NewerLayout>(hasHistory);
        damageAtRandom<OlderLayout>(hasHistory);
    }
}

/// A map of these entries and nothing in its lists of free tables.
ContentBytes mapOf(std::initializer_list<std::array<uint8_t, 7>> entries) {
    ContentBytes bytes(128);
    for (const auto& entry : entries) bytes.insert(bytes.end(), entry.begin(), entry.end());
    return bytes;
}

TEST(ContentsDamageTest, MapsThatHoldThemselvesEnd) {
    struct {
        ContentBytes bytes;
        bool isCollected;
    } cases[] = {
        // A full table, all of whose entries are bitmaps of the table itself.
        {mapOf({{0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 1}}), false},
        // Words whose next level is the level that they stand in.
        {mapOf({{0, 0, 0, 3, 0, 0, 1},
                {0, 0, 0, 0, 0x80, 0, 3},
                {0, 0, 0, 1, 0x80, 0, 3},
                {0, 0, 0, 0, 0, 0, 5},
                {0, 0, 0, 3, 0, 0, 1}}),
         false},
        // A table, and a link, that lead outside: what is sound is kept.
        {mapOf(
             {{0, 0, 0, 3, 0, 0, 1}, {0, 0, 0, 9, 0, 0, 9}, {0, 0, 0, 1, 0x80, 0, 9}, {0, 0, 0, 0, 0, 0, 0}}),
         true},
    };
    for (int i = 0; i < 40; ++i) {
        const ContentBytes entry{0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 1};
        cases[0].bytes.insert(cases[0].bytes.end(), entry.begin(), entry.end());
    }
    const TerminalIdMap ids = sameIds();
    for (auto& c : cases) {
        LanguageModelDictContent original(viewOf(c.bytes), false);
        int count = 0;
        EXPECT_EQ(LanguageModelDictContent(false).runGC(&ids, &original, &count), c.isCollected);
        exerciseProbabilities(&original, false);
    }
}

TEST(ContentsDamageTest, FreeTablesInACircleStayHarmless) {
    ContentBytes bytes = mapOf({{0, 0, 0, 0, 0, 0, 0}, {0, 0, 0, 1, 0, 0, 0}, {0, 0, 0, 0, 0, 0, 0}});
    for (size_t list = 0; list < 32; ++list) bytes[list * 3 + 2] = 1;
    TrieMap map(viewOf(bytes));
    for (int key = 0; key < 2000; ++key) map.put(key * 77, 0x400000, 0);
    int count = 0;
    for (const auto& entry : map.getEntriesInRootLevel()) count += entry.hasNextLevelMap() ? 1 : 0;
    EXPECT_LE(count, map.getEntryCount());
}

TEST(ContentsDamageTest, LinksInACircleEnd) {
    BigramDictContent content(false);
    ASSERT_TRUE(content.createNewBigramList(0));
    const BigramEntry entry(false, 9, 1);
    ASSERT_TRUE(content.writeBigramEntry(&entry, 0));
    ASSERT_TRUE(content.writeLink(0, 5));
    ASSERT_TRUE(content.writeLink(10, 10));
    EXPECT_FALSE(content.getBigramEntry(10).isValid());
    EXPECT_FALSE(content.getBigramEntry(10).hasNext());
    int count = 0;
    const TerminalIdMap ids = sameIds();
    EXPECT_FALSE(BigramDictContent(false).runGC(&ids, &content, &count));
    for (const int pos : {-2, 0xFFFFFF, INT_MAX}) EXPECT_FALSE(content.writeLink(pos, 10));
}

}  // namespace
}  // namespace wordengine::test
