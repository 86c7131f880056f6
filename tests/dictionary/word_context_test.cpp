// SPDX-License-Identifier: Apache-2.0
#include "dictionary/multi_bigram_map.h"
#include "dictionary/prev_words_info.h"
#include "fake_policy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

namespace wordengine::test {
namespace {

constexpr int MARK = CODE_POINT_BEGINNING_OF_SENTENCE;

int positionAfter(const FakePolicy& policy, const std::vector<int>& word, bool isBeginningOfSentence,
                  bool tryLowerCaseSearch = true) {
    const PrevWordsInfo info(word.data(), static_cast<int>(word.size()), isBeginningOfSentence);
    int position = 7;
    info.getPrevWordsTerminalPtNodePos(&policy, &position, tryLowerCaseSearch);
    return position;
}

TEST(PrevWordsInfoTest, PutsTheMarkBeforeTheBeginningOfASentence) {
    FakePolicy policy;
    const std::vector<int> full(48, 'x');
    std::vector<int> longest(48, 'x');
    longest[0] = MARK;
    policy.words = {{{MARK}, 4}, {{MARK, 'h', 'i'}, 5}, {full, 6}, {longest, 7}};
    const int nothing = 0;
    EXPECT_EQ(PrevWordsInfo::getTerminalPtNodePosOfWord(&policy, &nothing, 0, true, false), 4);
    EXPECT_EQ(positionAfter(policy, {'h', 'i'}, true), 5);
    EXPECT_EQ(positionAfter(policy, {MARK, 'h', 'i'}, true), 5) << "not a second time";
    EXPECT_EQ(positionAfter(policy, {'H', 'I'}, true), 5);
    EXPECT_EQ(positionAfter(policy, full, true), NO_DICT_POS) << "no room for the mark";
    EXPECT_EQ(positionAfter(policy, std::vector<int>(47, 'x'), true), 7);
    EXPECT_EQ(positionAfter(policy, full, false), 6);
    EXPECT_EQ(positionAfter(policy, longest, true), 7);
}

/// What the map must answer, by the lists themselves.
class ModelOfCache {
public:
    explicit ModelOfCache(const FakePolicy* policy) : policy_(policy) {}

    int probabilityOf(int previous, int next, int unigram) {
        if (previous == NO_DICT_POS) return policy_->getProbability(unigram, NO_PROBABILITY);
        const bool isKnown = std::count(known_.begin(), known_.end(), previous) > 0;
        if (!isKnown && known_.size() < 25) known_.push_back(previous);
        const auto list = policy_->pairs.find(previous);
        int probability = NO_PROBABILITY;
        if (list != policy_->pairs.end()) {
            const bool isRead = isKnown || known_.back() == previous;
            for (const auto& [target, value] : list->second) {
                if (target != next) continue;
                probability = isRead ? value : -1000 - value;
                if (!isRead) return probability;
            }
        }
        return policy_->getProbability(unigram, probability);
    }
    void clear() { known_.clear(); }
    int knownCount() const { return static_cast<int>(known_.size()); }

private:
    const FakePolicy* policy_;
    std::vector<int> known_;
};

TEST(MultiBigramMapTest, AgreesWithTheListsThemselves) {
    std::mt19937 random(11);
    FakePolicy policy;
    for (int previous = 0; previous < 40; ++previous) {
        // From nothing to thousands of targets, some of them listed twice; strides that share filter bits.
        const int count = previous % 8 == 7 ? 2000 : static_cast<int>(random() % 60);
        const int stride = previous % 3 == 0 ? 1021 : 1;
        for (int i = 0; i < count; ++i) {
            policy.pairs[previous * 10].emplace_back(static_cast<int>(random() % (2 * count)) * stride - 500,
                                                     static_cast<int>(random() % 16));
        }
    }
    MultiBigramMap map;
    ModelOfCache model(&policy);
    for (int step = 0; step < 40000; ++step) {
        if (random() % 4000 == 0) {
            map.clear();
            model.clear();
            policy.iterationCount = 0;
        }
        const int previous = random() % 50 == 0 ? NO_DICT_POS : static_cast<int>(random() % 40) * 10;
        const auto& list = policy.pairs[previous];
        const int next = list.empty() || random() % 2 == 0 ? static_cast<int>(random() % 3000) - 500
                                                           : list[random() % list.size()].first;
        ASSERT_EQ(map.getBigramProbability(&policy, &previous, next, 100),
                  model.probabilityOf(previous, next, 100))
            << previous << " " << next;
        ASSERT_EQ(policy.iterationCount, model.knownCount()) << "each list is read once";
    }
    EXPECT_GT(policy.directReadCount, 0);
    EXPECT_EQ(map.getBigramProbability(&policy, nullptr, 5, 100), policy.getProbability(100, NO_PROBABILITY));
}

TEST(MultiBigramMapTest, IgnoresEntriesWithoutATarget) {
    FakePolicy policy;
    policy.pairs[1] = {{NO_DICT_POS, 9}, {5, 3}};
    MultiBigramMap map;
    const int previous = 1;
    EXPECT_EQ(map.getBigramProbability(&policy, &previous, NO_DICT_POS, 0), NO_PROBABILITY);
    EXPECT_EQ(map.getBigramProbability(&policy, &previous, 5, 0), 3);
}

TEST(MultiBigramMapTest, SurvivesListsMadeToFillTheMemoryOrToCollide) {
    FakePolicy policy;
    for (int i = 0; i < 500000; ++i) policy.pairs[1].emplace_back(i, 3);
    // Multiples of the inverse of the table's multiplier: they all want the same place.
    for (unsigned int i = 0; i < 200000; ++i)
        policy.pairs[2].emplace_back(static_cast<int>(i * 0x144CBC89u), 4);
    MultiBigramMap map;
    for (const int previous : {1, 2}) {
        const auto& list = policy.pairs[previous];
        int foundCount = 0;
        for (int i = 0; i < 1000; ++i) {
            const int answer =
                map.getBigramProbability(&policy, &previous, list[static_cast<size_t>(i)].first, 0);
            ASSERT_TRUE(answer == previous + 2 || answer == NO_PROBABILITY);
            foundCount += answer != NO_PROBABILITY;
        }
        EXPECT_GE(foundCount, 50) << "what came first is kept";
    }
}

}  // namespace
}  // namespace wordengine::test
