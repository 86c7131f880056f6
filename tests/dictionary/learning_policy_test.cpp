// SPDX-License-Identifier: Apache-2.0
#include "dictionary/ngram_listener.h"
#include "dictionary/prev_words_info.h"
#include "dictionary/v4/forgetting_curve_utils.h"
#include "dictionary/v4/ver4_patricia_trie_policy.h"
#include "dictionary/v402/ver4_dict_buffers.h"
#include "node/dic_node_child.h"
#include "text/time_keeper.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>

namespace wordengine::test {
namespace {

using Word = std::vector<int>;
using FormatVersion = FormatUtils::FORMAT_VERSION;

using Settings = std::map<std::string, std::string>;

Ver4DictBuffers::Ver4DictBuffersPtr newBuffers(FormatVersion version, const Settings& settings = {}) {
    constexpr int TRIE_SIZE = Ver4DictConstants::MAX_DICTIONARY_SIZE;
    DictionaryHeaderStructurePolicy::AttributeMap attributes;
    for (const auto& [key, value] : settings)
        attributes[{key.begin(), key.end()}] = {value.begin(), value.end()};
    const HeaderPolicy header(version, {}, &attributes);
    return version == FormatUtils::VERSION_402 ? backward::v402::createVer4DictBuffers(&header, TRIE_SIZE)
                                               : Ver4DictBuffers::createVer4DictBuffers(&header, TRIE_SIZE);
}

std::unique_ptr<Ver4PatriciaTriePolicy> newDictionary(FormatVersion version, const Settings& settings = {}) {
    auto buffers = newBuffers(version, settings);
    EXPECT_TRUE(buffers->writeEmptyTrie());
    return std::make_unique<Ver4PatriciaTriePolicy>(std::move(buffers));
}

/// A dictionary, and beside it what it should hold. What a removed word had comes back with it.
class Learner {
public:
    explicit Learner(FormatVersion version) : version_(version), policy_(newDictionary(version)) {}

    void add(const Word& word, int probability, const Word& shortcut) {
        std::vector<UnigramProperty::ShortcutProperty> shortcuts;
        if (!shortcut.empty()) shortcuts.emplace_back(shortcut, probability % 16);
        const UnigramProperty property(false, probability % 7 == 0, probability % 5 == 0, probability, -1, 0,
                                       0, shortcuts);
        ASSERT_TRUE(policy_->addUnigramEntry(word.data(), length(word), &property));
        // Only a word that is written anew gets new marks.
        Entry& entry = words_[word];
        if (!entry.isAlive)
            entry.isNotAWord = property.isNotAWord(), entry.isBlacklisted = property.isBlacklisted();
        entry.isAlive = true;
        entry.probability = probability;
        if (!shortcut.empty()) entry.shortcuts[shortcut] = probability % 16;
    }

    void remove(const Word& word) {
        EXPECT_EQ(policy_->removeUnigramEntry(word.data(), length(word)), isAlive(word));
        if (isAlive(word)) words_[word].isAlive = false;
    }

    void pair(const Word& first, const Word& second, int probability) {
        const BigramProperty property(second, probability, -1, 0, 0);
        const PrevWordsInfo previous(first.data(), length(first), false);
        const bool isPossible = isAlive(first) && isAlive(second);
        ASSERT_EQ(policy_->addNgramEntry(&previous, &property), isPossible);
        if (isPossible) words_[first].pairs[second] = probability;
    }

    void unpair(const Word& first, const Word& second) {
        const PrevWordsInfo previous(first.data(), length(first), false);
        const bool isThere = isAlive(first) && isAlive(second) && words_[first].pairs.erase(second) > 0;
        EXPECT_EQ(policy_->removeNgramEntry(&previous, second.data(), length(second)), isThere);
    }

    /// What nobody can see any more is gone for good, and the rest is as it was.
    void collect() {
        auto buffers = newBuffers(version_);
        Ver4PatriciaTriePolicy::Counts counts;
        ASSERT_TRUE(policy_->collectInto(buffers.get(), &counts));
        const UnigramProperty property(false, false, false, 1, -1, 0, 0);
        EXPECT_FALSE(policy_->addUnigramEntry(&LETTER, 1, &property));
        policy_ = std::make_unique<Ver4PatriciaTriePolicy>(std::move(buffers), counts);
        std::erase_if(words_, [](const auto& word) { return !word.second.isAlive; });
        int pairCount = 0;
        for (auto& [word, entry] : words_) {
            std::erase_if(entry.pairs, [&](const auto& pair) { return !isAlive(pair.first); });
            pairCount += length(entry.pairs);
        }
        EXPECT_EQ(policy_->getBigramCount(), pairCount);
    }

    void compare() const {
        std::set<Word> alive;
        for (const auto& [word, entry] : words_) {
            ASSERT_NO_FATAL_FAILURE(compareWord(word, entry));
            if (entry.isAlive) alive.insert(word);
        }
        EXPECT_EQ(policy_->getUnigramCount(), length(alive));
        EXPECT_EQ(wordsOfWalk(), alive);
        EXPECT_EQ(wordsOfSearch(), alive);
        EXPECT_FALSE(policy_->isCorrupted());
    }

private:
    static constexpr int LETTER = 'z';

    struct Entry {
        bool isAlive = false;
        bool isNotAWord = false;
        bool isBlacklisted = false;
        int probability = 0;
        std::map<Word, int> pairs;
        std::map<Word, int> shortcuts;
    };

    template <typename Container>
    static int length(const Container& container) {
        return static_cast<int>(container.size());
    }

    [[nodiscard]] bool isAlive(const Word& word) const {
        const auto found = words_.find(word);
        return found != words_.end() && found->second.isAlive;
    }

    void compareWord(const Word& word, const Entry& entry) const {
        const int pos = policy_->getTerminalPtNodePositionOfWord(word.data(), length(word), false);
        ASSERT_EQ(pos != NO_DICT_POS, entry.isAlive);
        const WordProperty found = policy_->getWordProperty(word.data(), length(word));
        if (!entry.isAlive) {
            EXPECT_TRUE(found.getCodePoints().empty());
            return;
        }
        const UnigramProperty& unigram = found.getUnigramProperty();
        EXPECT_EQ(found.getCodePoints(), word);
        EXPECT_EQ(unigram.getProbability(), entry.probability);
        EXPECT_EQ(unigram.isNotAWord(), entry.isNotAWord);
        EXPECT_EQ(unigram.isBlacklisted(), entry.isBlacklisted);
        std::map<Word, int> shortcuts;
        for (const auto& shortcut : unigram.getShortcuts()) {
            shortcuts[shortcut.getTargetCodePoints()] = shortcut.getProbability();
        }
        EXPECT_EQ(shortcuts, entry.shortcuts);
        std::map<Word, int> pairs;
        for (const auto& bigram : found.getBigramProperties()) {
            pairs[bigram.getTargetCodePoints()] = bigram.getProbability();
        }
        std::map<Word, int> expected = entry.pairs;
        std::erase_if(expected, [&](const auto& wanted) { return !isAlive(wanted.first); });
        EXPECT_EQ(pairs, expected);
    }

    [[nodiscard]] std::set<Word> wordsOfWalk() const {
        std::set<Word> words;
        int token = 0;
        do {
            int codePoints[WORD_LENGTH_LIMIT];
            int count = 0;
            token = policy_->getNextWordAndNextToken(token, codePoints, &count);
            EXPECT_TRUE(count == 0 || words.insert(Word(codePoints, codePoints + count)).second);
        } while (token != 0);
        return words;
    }

    /// As the search goes: from the root's children downwards.
    [[nodiscard]] std::set<Word> wordsOfSearch() const {
        std::set<Word> words;
        collect(policy_->getRootPosition(), {}, &words);
        return words;
    }

    void collect(int arrayPos, const Word& prefix, std::set<Word>* words) const {
        DicNodeChildList children;
        policy_->readChildren(arrayPos, &children);
        for (int i = 0; i < children.size(); ++i) {
            const int* const codePoints = children.codePointsOf(children[i]);
            Word word = prefix;
            word.insert(word.end(), codePoints, codePoints + children[i].codePointCount);
            EXPECT_TRUE(!children[i].isTerminal || words->insert(word).second);
            if (children[i].hasChildren) collect(children[i].childrenPtNodeArrayPos, word, words);
        }
    }

    FormatVersion version_;
    std::unique_ptr<Ver4PatriciaTriePolicy> policy_;
    std::map<Word, Entry> words_;
};

class LearningPolicyTest : public ::testing::TestWithParam<FormatVersion> {};

/// Few letters make words that share, split and continue each other.
Word randomWord(std::mt19937& random) {
    static constexpr int LETTERS[] = {'a', 'b', 'c', 0x628, 0x1F600};
    Word word;
    for (unsigned left = 1 + random() % 6; left > 0; --left) word.push_back(LETTERS[random() % 5]);
    return word;
}

TEST_P(LearningPolicyTest, HoldsWhatAPlainMapHolds) {
    std::mt19937 random(7);
    Learner learner(GetParam());
    for (int operation = 1; operation <= 8000; ++operation) {
        const Word word = randomWord(random);
        const Word other = randomWord(random);
        const int probability = static_cast<int>(random() % 256);
        switch (random() % 8) {
            case 0:
            case 1:
            case 2:
                ASSERT_NO_FATAL_FAILURE(learner.add(word, probability, {}));
                break;
            case 3:
                ASSERT_NO_FATAL_FAILURE(learner.add(word, probability, other));
                break;
            case 4:
                learner.remove(word);
                break;
            case 5:
            case 6:
                ASSERT_NO_FATAL_FAILURE(learner.pair(word, other, probability));
                break;
            default:
                learner.unpair(word, other);
        }
        if (operation % 1000 != 0) continue;
        ASSERT_NO_FATAL_FAILURE(learner.compare()) << operation;
        if (operation % 2000 != 0) continue;
        ASSERT_NO_FATAL_FAILURE(learner.collect()) << operation;
        ASSERT_NO_FATAL_FAILURE(learner.compare()) << operation << " collected";
    }
}

TEST_P(LearningPolicyTest, RefusesWhatCouldNotBeReadBack) {
    const auto policy = newDictionary(GetParam());
    const UnigramProperty plain(false, false, false, 100, -1, 0, 0);
    const UnigramProperty improbable(false, false, false, 256, -1, 0, 0);
    const UnigramProperty badShortcut(false, false, false, 100, -1, 0, 0, {{{'a', 0x1F}, 15}});
    const std::vector<Word> refused = {{}, {0x1F}, {'a', -1}, {0x1F0000}, Word(WORD_LENGTH_LIMIT + 1, 'a')};
    for (const Word& word : refused) {
        EXPECT_FALSE(policy->addUnigramEntry(word.data(), static_cast<int>(word.size()), &plain));
    }
    const Word longest(WORD_LENGTH_LIMIT, 'a');
    EXPECT_FALSE(policy->addUnigramEntry(longest.data(), WORD_LENGTH_LIMIT, &improbable));
    EXPECT_FALSE(policy->addUnigramEntry(longest.data(), WORD_LENGTH_LIMIT, &badShortcut));
    EXPECT_EQ(policy->getUnigramCount(), 0);
    EXPECT_TRUE(policy->addUnigramEntry(longest.data(), WORD_LENGTH_LIMIT, &plain));
    EXPECT_EQ(policy->getUnigramCount(), 1);
}

/// A pair behind the beginning of a sentence brings the mark with it, which nobody finds by typing.
TEST_P(LearningPolicyTest, SentencesBeginWithAMarkThatIsNoWord) {
    const auto policy = newDictionary(GetParam());
    const UnigramProperty plain(false, false, false, 100, -1, 0, 0);
    const Word word{'h', 'i'};
    ASSERT_TRUE(policy->addUnigramEntry(word.data(), 2, &plain));
    const PrevWordsInfo beginning(nullptr, 0, true);
    const PrevWordsInfo start(word.data(), 0, true);
    const BigramProperty pair(word, 77, -1, 0, 0);
    EXPECT_FALSE(policy->addNgramEntry(&beginning, &pair)) << "no word, and no beginning";
    ASSERT_TRUE(policy->addNgramEntry(&start, &pair));
    EXPECT_EQ(policy->getUnigramCount(), 1);
    EXPECT_EQ(policy->getBigramCount(), 1);
    int previous = NO_DICT_POS;
    start.getPrevWordsTerminalPtNodePos(policy.get(), &previous, false);
    const int pos = policy->getTerminalPtNodePositionOfWord(word.data(), 2, false);
    EXPECT_EQ(policy->getProbabilityOfPtNode(&previous, pos), 77);
    DicNodeChildList children;
    policy->readChildren(policy->getRootPosition(), &children);
    EXPECT_EQ(children.size(), 1);
    char answer[16] = "untouched";
    for (const auto& [query, expected] : {std::pair("", "untouched"),
                                          {"U", "untouched"},
                                          {"UNIGRAM_COUNT", "1"},
                                          {"BIGRAM_COUNT", "1"},
                                          {"MAX_UNIGRAM_COUNT", "8388608"}}) {
        policy->getProperty(query, static_cast<int>(std::string(query).size()), answer, sizeof answer);
        EXPECT_STREQ(answer, expected) << query;
    }
}

/// What has not been used for long loses its levels, then goes; of the rest, as many stay as may, the most
/// probable first.
TEST_P(LearningPolicyTest, ForgetsWhatIsNotUsed) {
    constexpr int NOW = 1700000000;
    constexpr int DAY = 24 * 60 * 60;
    constexpr size_t MOST_WORDS = 40;
    const Settings settings = {{HeaderPolicy::IS_DECAYING_DICT_KEY, "1"},
                               {HeaderPolicy::HAS_HISTORICAL_INFO_KEY, "1"},
                               {HeaderPolicy::MAX_UNIGRAM_COUNT_KEY, std::to_string(MOST_WORDS)}};
    TimeKeeper::startTestModeWithForceCurrentTime(NOW);
    auto policy = newDictionary(GetParam(), settings);
    auto buffers = newBuffers(GetParam(), settings);
    const HeaderPolicy& header = *buffers->getHeaderPolicy();
    struct Expected {
        int probability;
        int latest;
        Word word;
        HistoricalInfo info;
    };
    std::vector<Expected> kept;
    std::set<Word> all;
    std::mt19937 random(9);
    while (all.size() < 120) {
        const Word word = randomWord(random);
        if (!all.insert(word).second) continue;
        const HistoricalInfo info(NOW - static_cast<int>(all.size()) * DAY, static_cast<int>(random() % 4),
                                  0);
        const UnigramProperty property(false, false, false, NO_PROBABILITY, info.getTimeStamp(),
                                       info.getLevel(), 0);
        ASSERT_TRUE(policy->addUnigramEntry(word.data(), static_cast<int>(word.size()), &property));
        const HistoricalInfo saved = ForgettingCurveUtils::createHistoricalInfoToSave(&info, &header);
        if (!ForgettingCurveUtils::needsToKeep(&saved, &header)) continue;
        kept.push_back(
            {ForgettingCurveUtils::decodeProbability(&saved, &header), saved.getTimeStamp(), word, saved});
    }
    Ver4PatriciaTriePolicy::Counts counts;
    ASSERT_TRUE(policy->collectInto(buffers.get(), &counts));
    policy = std::make_unique<Ver4PatriciaTriePolicy>(std::move(buffers), counts);
    TimeKeeper::stopTestMode();
    ASSERT_GT(kept.size(), MOST_WORDS);
    std::ranges::sort(kept, {},
                      [](const Expected& word) { return std::pair(-word.probability, word.latest); });
    for (size_t i = 0; i < kept.size(); ++i) {
        const Word& word = kept[i].word;
        const WordProperty found = policy->getWordProperty(word.data(), static_cast<int>(word.size()));
        // Where the limit falls between words of one rank, either may stay.
        const auto isTied = [&](size_t other) {
            return kept[other].probability == kept[i].probability && kept[other].latest == kept[i].latest;
        };
        if (isTied(MOST_WORDS - 1) || isTied(MOST_WORDS)) continue;
        ASSERT_EQ(!found.getCodePoints().empty(), i < MOST_WORDS) << i;
        if (i >= MOST_WORDS) continue;
        EXPECT_EQ(found.getUnigramProperty().getLevel(), kept[i].info.getLevel());
        EXPECT_EQ(found.getUnigramProperty().getTimestamp(), kept[i].info.getTimeStamp());
    }
    EXPECT_EQ(policy->getUnigramCount(), static_cast<int>(MOST_WORDS));
}

INSTANTIATE_TEST_SUITE_P(BothLayouts, LearningPolicyTest,
                         ::testing::Values(FormatUtils::VERSION_403, FormatUtils::VERSION_402),
                         [](const auto& layout) { return "Format" + std::to_string(layout.param); });

}  // namespace
}  // namespace wordengine::test
