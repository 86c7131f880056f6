// SPDX-License-Identifier: Apache-2.0
#include "content_bytes.h"
#include "dictionary/v4/shortcut_dict_content.h"
#include "dictionary/v4/terminal_position_lookup_table.h"

#include <climits>
#include <deque>
#include <map>
#include <random>
#include <tuple>

namespace wordengine::test {
namespace {

// Each content beside a plain map: random changes, opened again from its bytes, changed again, collected.

constexpr int ID_COUNT = 200;

class Dice {
public:
    explicit Dice(unsigned seed) : random_(seed) {}
    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

private:
    std::mt19937 random_;
};

TerminalIdMap randomIdMap(Dice* dice) {
    TerminalIdMap map;
    for (int id = 0; id < ID_COUNT; ++id) {
        if (dice->below(3) > 0) map.emplace(id, static_cast<int>(map.size()));
    }
    return map;
}

HistoricalInfo randomInfo(Dice* dice, bool isWanted) {
    return isWanted ? HistoricalInfo(dice->below(INT_MAX), dice->below(4), dice->below(256))
                    : HistoricalInfo();
}

template <class Entry>
auto historyOf(const Entry& entry) {
    const HistoricalInfo* const info = entry.getHistoricalInfo();
    return std::tuple(info->getTimeStamp(), info->getLevel(), info->getCount());
}

template <class Layout>
class ContentsTest : public testing::Test {
protected:
    using Bigrams = typename Layout::Bigrams;
    using Probabilities = typename Layout::Probabilities;
    using Pair = std::tuple<int, int, std::tuple<int, int, int>>;
    using Pairs = std::map<int, std::deque<Pair>>;

    static Pair pairOf(const BigramEntry& entry) {
        // An entry without target has nothing else that counts.
        if (!entry.isValid()) return {-1, 0, {}};
        return {entry.getTargetTerminalId(), entry.getProbability(), historyOf(entry)};
    }

    static Pairs pairsOf(const Bigrams& content) {
        Pairs pairs;
        for (int id = 0; id < ID_COUNT; ++id) {
            int remaining = content.getMaxEntryCount();
            int pos = content.getBigramListHeadPos(id);
            int plainPos = pos;
            while (const auto found = content.readNextEntry(&pos, &remaining)) {
                pairs[id].push_back(pairOf(found->entry));
                EXPECT_EQ(pairOf(found->entry), pairOf(content.getBigramEntry(found->pos)));
                EXPECT_EQ(pairOf(found->entry), pairOf(content.getBigramEntryAndAdvancePosition(&plainPos)));
            }
            EXPECT_GE(remaining, 0);
        }
        return pairs;
    }

    static BigramEntry randomEntry(Dice* dice, bool hasHistory) {
        const HistoricalInfo info = randomInfo(dice, hasHistory);
        const int target = dice->below(10) ? dice->below(ID_COUNT) : 0xFFFFFE;
        return {false, hasHistory ? NO_PROBABILITY : dice->below(256), &info, target};
    }

    static void changePairs(Dice* dice, bool hasHistory, Bigrams* content, Pairs* model) {
        for (int i = 0; i < 1500; ++i) {
            const int id = dice->below(ID_COUNT);
            BigramEntry entry = randomEntry(dice, hasHistory);
            std::deque<Pair>& list = (*model)[id];
            if (list.empty() || dice->below(2)) {
                ASSERT_TRUE(content->addNewBigramEntry(id, &entry));
                list.push_front(pairOf(entry));
                continue;
            }
            const int index = dice->below(static_cast<int>(list.size()));
            int remaining = content->getMaxEntryCount();
            int pos = content->getBigramListHeadPos(id);
            auto found = content->readNextEntry(&pos, &remaining);
            for (int step = 0; step < index; ++step) found = content->readNextEntry(&pos, &remaining);
            entry = entry.updateHasNextAndGetEntry(found->entry.hasNext());
            if (dice->below(3) == 0) entry = entry.getInvalidatedEntry();
            ASSERT_TRUE(content->writeBigramEntry(&entry, found->pos));
            list[static_cast<size_t>(index)] = pairOf(entry);
        }
        std::erase_if(*model, [](const auto& list) { return list.second.empty(); });
        ASSERT_EQ(pairsOf(*content), *model);
    }

    static Pairs collected(const Pairs& model, const TerminalIdMap& ids, int* outCount) {
        Pairs result;
        for (const auto& [id, list] : model) {
            for (auto [target, probability, history] : list) {
                if (!ids.count(id) || !ids.count(target)) continue;
                result[ids.at(id)].push_back({ids.at(target), probability, history});
                ++*outCount;
            }
        }
        return result;
    }
};

using Layouts = testing::Types<NewerLayout, OlderLayout>;
TYPED_TEST_SUITE(ContentsTest, Layouts);

TYPED_TEST(ContentsTest, PairsAgreeWithPlainLists) {
    for (const bool hasHistory : {false, true}) {
        Dice dice(hasHistory ? 11 : 12);
        typename TestFixture::Pairs model;
        typename TestFixture::Bigrams content(hasHistory);
        ASSERT_NO_FATAL_FAILURE(this->changePairs(&dice, hasHistory, &content, &model));
        SparseBytes bytes = buffersOf(content);
        typename TestFixture::Bigrams opened(viewsOf(bytes), hasHistory);
        ASSERT_EQ(this->pairsOf(opened), model);
        ASSERT_NO_FATAL_FAILURE(this->changePairs(&dice, hasHistory, &opened, &model));

        const TerminalIdMap ids = randomIdMap(&dice);
        typename TestFixture::Bigrams kept(hasHistory);
        int count = -1;
        int expectedCount = 0;
        ASSERT_TRUE(kept.runGC(&ids, &opened, &count));
        EXPECT_EQ(this->pairsOf(kept), this->collected(model, ids, &expectedCount));
        EXPECT_EQ(count, expectedCount);
    }
}

TYPED_TEST(ContentsTest, PairsThatDoNotFitAreRefused) {
    typename TestFixture::Bigrams content(false);
    for (const auto& [probability, target] : {std::pair(-1, 5), {256, 5}, {9, 0xFFFFFF}, {9, -2}}) {
        const BigramEntry entry(false, probability, target);
        EXPECT_FALSE(content.addNewBigramEntry(1, &entry));
        EXPECT_EQ(content.getContentTailPos(), 0);
        EXPECT_EQ(content.getBigramListHeadPos(1), NO_DICT_POS);
    }
    // Full: what was there is still read.
    SparseBytes bytes{ContentBytes(), ContentBytes(), ContentBytes()};
    typename TestFixture::Bigrams full(viewsOf(bytes), true);
    const HistoricalInfo info(1, 2, 3);
    const BigramEntry entry(false, NO_PROBABILITY, &info, 7);
    int id = 0;
    while (full.addNewBigramEntry(id, &entry)) ++id;
    EXPECT_GT(id, 10000);
    EXPECT_TRUE(full.isNearSizeLimit());
    EXPECT_EQ(full.getBigramListHeadPos(id), NO_DICT_POS);
    for (int i = 0; i < id; ++i) {
        ASSERT_EQ(full.getBigramEntry(full.getBigramListHeadPos(i)).getTargetTerminalId(), 7);
    }
}

TYPED_TEST(ContentsTest, ProbabilitiesAgreeWithPlainMap) {
    for (const bool hasHistory : {false, true}) {
        Dice dice(hasHistory ? 21 : 22);
        using Value = std::tuple<int, int, std::tuple<int, int, int>>;
        const auto valueOf = [&](const ProbabilityEntry& entry) {
            return Value(entry.getFlags(), hasHistory ? -1 : entry.getProbability(), historyOf(entry));
        };
        std::map<int, Value> model;
        const auto change = [&](auto* content) {
            for (int i = 0; i < 100; ++i) {
                const int id = dice.below(ID_COUNT);
                const ProbabilityEntry entry(dice.below(256), hasHistory ? NO_PROBABILITY : dice.below(256),
                                             randomInfo(&dice, hasHistory));
                ASSERT_TRUE(content->setProbabilityEntry(id, &entry));
                model[id] = valueOf(entry);
            }
        };
        const auto expectModel = [&](const auto& content) {
            for (const auto& [id, value] : model) ASSERT_EQ(valueOf(content.getProbabilityEntry(id)), value);
            for (int id = 0; hasHistory && id < ID_COUNT; ++id) {
                ASSERT_EQ(content.getProbabilityEntry(id).hasHistoricalInfo(), model.count(id) > 0);
            }
            for (const int id : {-1, ID_COUNT, INT_MAX, INT_MIN}) {
                ASSERT_EQ(valueOf(content.getProbabilityEntry(id)), valueOf(ProbabilityEntry()));
            }
        };
        typename TestFixture::Probabilities content(hasHistory);
        change(&content);
        expectModel(content);
        ContentBytes bytes = TypeParam::bytesOf(content);
        typename TestFixture::Probabilities opened(viewOf(bytes), hasHistory);
        expectModel(opened);
        change(&opened);
        expectModel(opened);
        const TerminalIdMap ids = randomIdMap(&dice);
        typename TestFixture::Probabilities kept(hasHistory);
        ASSERT_TRUE(kept.runGC(&ids, &opened, nullptr));
        for (const auto& [id, value] : model) {
            if (!ids.count(id)) continue;
            ASSERT_EQ(valueOf(kept.getProbabilityEntry(ids.at(id))), value);
        }
    }
    typename TestFixture::Probabilities content(false);
    for (const int probability : {-1, 256}) {
        const ProbabilityEntry entry(0, probability);
        EXPECT_FALSE(content.setProbabilityEntry(0, &entry));
    }
}

TEST(LanguageModelTest, CollectsSequencesUnderTheirNewIds) {
    TrieMap map;
    int level = 0;
    for (const int id : {1, 2, 3}) {
        for (const int key : {id, 9}) ASSERT_TRUE(map.put(key, static_cast<unsigned>(10 * id + key), level));
        level = map.getNextLevelBitmapEntryIndex(id, level);
    }
    ContentBytes file = writtenBytes([&](std::FILE* out) { return map.save(out); });
    ContentBytes bytes = takeSized(&file);
    const LanguageModelDictContent original(viewOf(bytes), false);
    const TerminalIdMap ids{{1, 5}, {2, 1}, {3, 2}};
    LanguageModelDictContent kept(false);
    int count = 0;
    ASSERT_TRUE(kept.runGC(&ids, &original, &count));
    EXPECT_EQ(count, 3);
    const std::vector<int> before{5, 1};
    EXPECT_EQ(kept.getNgramProbabilityEntry(IntArrayView(before), 2).getProbability(), 33);
    EXPECT_EQ(kept.getNgramProbabilityEntry(IntArrayView(before), 9).getProbability(), NO_PROBABILITY);
    const ProbabilityEntry entry(0, 77);
    EXPECT_TRUE(kept.setNgramProbabilityEntry(IntArrayView(before), 9, &entry));
    EXPECT_EQ(kept.getNgramProbabilityEntry(IntArrayView(before), 9).getProbability(), 77);
    const std::vector<int> unknown{5, 9};
    EXPECT_FALSE(kept.setNgramProbabilityEntry(IntArrayView(unknown), 9, &entry));
}

using Shortcuts = std::map<int, std::deque<std::pair<std::vector<int>, int>>>;

Shortcuts shortcutsOf(const ShortcutDictContent& content) {
    Shortcuts shortcuts;
    for (int id = 0; id < ID_COUNT; ++id) {
        int pos = content.getShortcutListHeadPos(id);
        for (bool hasNext = pos != NO_DICT_POS; hasNext;) {
            std::vector<int> target(WORD_LENGTH_LIMIT);
            int count = 0;
            int probability = -1;
            content.getShortcutEntryAndAdvancePosition(WORD_LENGTH_LIMIT, target.data(), &count, &probability,
                                                       &hasNext, &pos);
            target.resize(static_cast<size_t>(count));
            shortcuts[id].emplace_back(target, probability);
        }
    }
    return shortcuts;
}

void changeShortcuts(Dice* dice, ShortcutDictContent* content, Shortcuts* model) {
    for (int i = 0; i < 400; ++i) {
        const int id = dice->below(ID_COUNT / 4) * 4;
        std::vector<int> target(static_cast<size_t>(dice->below(20) ? dice->below(3) : WORD_LENGTH_LIMIT));
        for (int& codePoint : target) codePoint = dice->below(2) ? 'a' : 0x1F600 + dice->below(2);
        const int probability = dice->below(16);
        const int length = static_cast<int>(target.size());
        const int head = content->getShortcutListHeadPos(id);
        auto& list = (*model)[id];
        const auto known = std::find_if(list.begin(), list.end(), [&](auto& s) { return s.first == target; });
        const int pos = content->findShortcutEntryAndGetPos(head, target.data(), length);
        ASSERT_EQ(pos != NO_DICT_POS, known != list.end());
        if (pos != NO_DICT_POS) {
            ASSERT_TRUE(content->setProbability(probability, pos));
            known->second = probability;
            continue;
        }
        int tail = content->getContentTailPos();
        ASSERT_TRUE(content->createNewShortcutList(id));
        ASSERT_TRUE(content->writeShortcutEntryAndAdvancePosition(target.data(), length, probability,
                                                                  head != NO_DICT_POS, &tail));
        ASSERT_TRUE(content->copyShortcutList(head, tail));
        list.emplace_front(target, probability);
    }
    ASSERT_EQ(shortcutsOf(*content), *model);
}

TEST(ShortcutContentTest, AgreesWithPlainLists) {
    Dice dice(31);
    Shortcuts model;
    ShortcutDictContent content;
    ASSERT_NO_FATAL_FAILURE(changeShortcuts(&dice, &content, &model));
    SparseBytes bytes = buffersOf(content);
    ShortcutDictContent opened(viewsOf(bytes));
    ASSERT_NO_FATAL_FAILURE(changeShortcuts(&dice, &opened, &model));
    const TerminalIdMap ids = randomIdMap(&dice);
    ShortcutDictContent kept;
    ASSERT_TRUE(kept.runGC(&ids, &opened));
    Shortcuts expected;
    for (const auto& [id, list] : model) {
        if (ids.count(id)) expected[ids.at(id)] = list;
    }
    EXPECT_EQ(shortcutsOf(kept), expected);
    const int unstorable[] = {'a', 0x1F};
    EXPECT_FALSE(kept.writeShortcutEntry(unstorable, 2, 1, false, kept.getContentTailPos()));
    EXPECT_FALSE(kept.setProbability(1, kept.getContentTailPos()));
    // A list that claims to go on behind the content is copied once, with an end.
    const int tail = kept.getContentTailPos();
    ASSERT_TRUE(kept.writeShortcutEntry(unstorable, 1, 1, true, tail));
    ASSERT_TRUE(kept.copyShortcutList(tail, tail + 3));
    bool hasNext = true;
    kept.getShortcutEntry(0, nullptr, nullptr, nullptr, &hasNext, tail + 3);
    EXPECT_FALSE(hasNext);
    EXPECT_EQ(kept.getContentTailPos(), tail + 6);
}

TEST(TerminalTableTest, AgreesWithPlainMapAndClosesItsGaps) {
    Dice dice(41);
    std::map<int, int> model;
    TerminalPositionLookupTable table;
    const auto change = [&](TerminalPositionLookupTable* changed) {
        for (int i = 0; i < 300; ++i) {
            const int id = dice.below(ID_COUNT);
            const int pos = dice.below(3) ? 1 + dice.below(0xFFFFFF) : NO_DICT_POS;
            ASSERT_TRUE(changed->setTerminalPtNodePosition(id, pos));
            model[id] = pos;
        }
        for (const auto& [id, pos] : model) ASSERT_EQ(changed->getTerminalPtNodePosition(id), pos);
    };
    change(&table);
    ContentBytes file = writtenBytes([&](std::FILE* out) { return table.flushToFile(out); });
    ContentBytes bytes = takeSized(&file);
    TerminalPositionLookupTable opened(viewOf(bytes));
    EXPECT_EQ(opened.getNextTerminalId(), table.getNextTerminalId());
    change(&opened);
    EXPECT_TRUE(opened.setTerminalPtNodePosition(-1, 5));
    EXPECT_FALSE(opened.setTerminalPtNodePosition(0, 0x1000000));

    TerminalIdMap ids;
    ASSERT_TRUE(opened.runGCTerminalIds(&ids));
    int liveCount = 0;
    for (const auto& [id, pos] : model) {
        ASSERT_EQ(ids.count(id) > 0, pos != NO_DICT_POS);
        if (pos == NO_DICT_POS) continue;
        EXPECT_EQ(ids.at(id), liveCount++) << "the order stays";
        EXPECT_EQ(opened.getTerminalPtNodePosition(ids.at(id)), pos);
    }
    EXPECT_EQ(opened.getNextTerminalId(), liveCount);
    const ContentBytes compact =
        writtenBytes([&](std::FILE* out) { return opened.flushToFile(out, DictContent::Framing::BARE); });
    EXPECT_EQ(compact.size(), static_cast<size_t>(liveCount) * 3);
}

TEST(SparseTableTest, TellsABlockFromAValue) {
    BufferWithExtendableBuffer index(1000);
    BufferWithExtendableBuffer content(3 * 64);
    SparseTable table(&index, &content, 16, 4);
    ASSERT_TRUE(table.set(40, 0));
    for (const int id : {-1, 0, 31, 48, INT_MAX, INT_MIN}) {
        EXPECT_FALSE(table.contains(id));
        EXPECT_EQ(table.get(id), NO_DICT_POS);
    }
    EXPECT_TRUE(table.contains(41));
    EXPECT_EQ(table.get(41), NO_DICT_POS);
    EXPECT_EQ(table.get(40), 0);
    ASSERT_TRUE(table.set(0, 1) && table.set(16, 2));
    EXPECT_FALSE(table.set(64, 3)) << "no room for a block";
    EXPECT_FALSE(table.contains(64));
    EXPECT_FALSE(table.set(100000, 3));
    EXPECT_FALSE(table.set(-1, 3));
    EXPECT_EQ(table.get(16), 2);
    ASSERT_TRUE(index.writeUint(3, 4, 4));
    EXPECT_EQ(table.get(16), NO_DICT_POS) << "a block that is not there";
    EXPECT_FALSE(table.set(16, 5));
}

}  // namespace
}  // namespace wordengine::test
