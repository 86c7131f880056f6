// SPDX-License-Identifier: Apache-2.0
#include "dictionary/binary_dictionary_shortcut_iterator.h"
#include "search/results/autocorrection_threshold_utils.h"
#include "search/results/suggestion_results.h"
#include "search/results/suggestions_output_utils.h"
#include "search/search_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace wordengine {
namespace {

using testing::codePointsOf;
using testing::FoundWord;
using testing::PlainDictionary;
using testing::SearchFixture;

void add(SuggestionResults& results, const std::u32string& word, int score) {
    const std::vector<int> codePoints = codePointsOf(word);
    results.addSuggestion(codePoints.data(), static_cast<int>(codePoints.size()), score,
                          SuggestedWord::KIND_CORRECTION, NO_INDEX,
                          SuggestionsOutputUtils::NO_FIRST_WORD_CONFIDENCE);
}

TEST(SuggestionResultsTest, KeepsTheBestByScoreAndBrevity) {
    std::mt19937 random(11);
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (const int capacity : {0, 1, 3, 18}) {
        SuggestionResults results(capacity);
        // Rank of a word: the higher score, then the fewer letters.
        std::vector<std::pair<int, int>> model;
        for (int i = 0; i < 300; ++i) {
            const int length = pick(0, 52);
            const int score = pick(-5, 5);
            add(results, std::u32string(static_cast<size_t>(length), U'a'), score);
            if (length >= 1 && length <= 48) model.push_back({-score, length});
            std::sort(model.begin(), model.end());
            model.resize(std::min<size_t>(model.size(), static_cast<size_t>(capacity)));

            std::vector<std::pair<int, int>> kept;
            for (const SuggestedWord& word : results.getSuggestionsVector()) {
                kept.push_back({-word.getScore(), word.getCodePointCount()});
            }
            ASSERT_TRUE(std::is_sorted(kept.rbegin(), kept.rend())) << "worst first";
            std::reverse(kept.begin(), kept.end());
            ASSERT_EQ(kept, model);
            std::vector<int> scores(model.size());
            results.getSortedScores(scores.data());
            ASSERT_TRUE(std::is_sorted(scores.begin(), scores.end()));
            ASSERT_EQ(results.getSuggestedWords().size(), model.size());
        }
    }
}

TEST(SuggestionResultsTest, EqualScoreWithFewerLettersReplacesTheWorst) {
    SuggestionResults results(2);
    add(results, U"first", 10);
    add(results, U"abcd", 5);
    add(results, U"efgh", 5);
    EXPECT_EQ(results.getSuggestedWords().top().getCodePoint()[0], 'a');
    add(results, U"xyz", 5);
    EXPECT_EQ(results.getSuggestedWords().top().getCodePoint()[0], 'x');
    const int word = 'w';
    results.addPrediction(&word, 1, NO_PROBABILITY);
    EXPECT_EQ(results.getSuggestedWords().top().getCodePoint()[0], 'x');
    results.addPrediction(&word, 1, 200);
    EXPECT_EQ(results.getSuggestionsVector().back().getType(), SuggestedWord::KIND_PREDICTION);
}

TEST(ShortcutOutputTest, ScoresAreDecrementedTwice) {
    constexpr int SMALLEST = std::numeric_limits<int>::min();
    const struct {
        int finalScore;
        bool sameAsTyped;
        int whitelisted, plain, whitelistKind;
    } cases[] = {
        {1000, true, 2147483646, 998, SuggestedWord::KIND_WHITELIST},
        {1000, false, 998, 998, SuggestedWord::KIND_SHORTCUT},
        {SMALLEST, false, SMALLEST, SMALLEST, SuggestedWord::KIND_SHORTCUT},
        {SMALLEST, true, 2147483646, SMALLEST, SuggestedWord::KIND_WHITELIST},
    };
    PlainDictionary dictionary;
    dictionary.word(U"w", 1).shortcut(U"w", U"listed", true).shortcut(U"w", U"plain", false);
    const int w = 'w';
    for (const auto& c : cases) {
        BinaryDictionaryShortcutIterator iterator(
            dictionary.getShortcutsStructurePolicy(),
            dictionary.getShortcutPositionOfPtNode(dictionary.getTerminalPtNodePositionOfWord(&w, 1, false)));
        SuggestionResults results(18);
        SuggestionsOutputUtils::outputShortcuts(&iterator, c.finalScore, c.sameAsTyped, &results);
        const std::vector<FoundWord> words = SearchFixture::wordsOf(results);
        ASSERT_EQ(words.size(), 2u);
        EXPECT_EQ(*SearchFixture::find(words, U"listed"),
                  (FoundWord{U"listed", c.whitelisted, c.whitelistKind}));
        EXPECT_EQ(*SearchFixture::find(words, U"plain"),
                  (FoundWord{U"plain", c.plain, SuggestedWord::KIND_SHORTCUT}));
    }
}

TEST(FirstWordConfidenceTest, AddsDistanceLengthAndSpaces) {
    const auto confidence = [](std::vector<std::u32string> words, float distance) {
        DicNode node;
        node.initAsRoot(0, nullptr);
        for (size_t i = 0; i < words.size(); ++i) {
            if (i > 0) {
                DicNode next;
                next.initAsRootWithPreviousWord(&node, 0);
                if (i == 1) {
                    next.addCost(distance, 0.0f, false, 0, 0, 0);
                    next.saveNormalizedCompoundDistanceAfterFirstWordIfNoneYet();
                }
                node = next;
            }
            for (const char32_t letter : words[i]) {
                const int codePoint = static_cast<int>(letter);
                DicNode child;
                child.initAsChild(&node, 1, 0, 0, true, true, false, 1, &codePoint);
                node = child;
            }
        }
        return SuggestionsOutputUtils::computeFirstWordConfidence(&node);
    };
    EXPECT_EQ(confidence({U"word"}, 0.0f), SuggestionsOutputUtils::NO_FIRST_WORD_CONFIDENCE);
    EXPECT_EQ(confidence({U"ab", U"c"}, 0.0f), 800000);
    EXPECT_EQ(confidence({U"ab", U"cd"}, 0.0f), 800000 + 1000000 / 26);
    EXPECT_EQ(confidence({U"ab", U"c"}, 0.5f), 600000);
    EXPECT_EQ(confidence({U"ab", U"c"}, 7.0f), 0);
    EXPECT_EQ(confidence({U"a", U"b"}, 2.0f), -1000000 / 26);
    EXPECT_EQ(confidence({U"ab", U"cd", U"ef"}, 2.0f), 4 * 1000000 / 26 + 200000);
}

TEST(AutocorrectionThresholdTest, NormalizedScores) {
    const struct {
        const char32_t* before;
        const char32_t* after;
        int score;
        float expected;
    } cases[] = {
        {U"the", U"the", 1500000, 1.5f},
        {U"THE", U"th\u00E9", 1500000, 1.5f},
        {U"teh", U"the", 900000, 0.9f * (1.0f - 1.0f / 3.0f)},
        {U"hous", U"houses", 600000, 0.6f * (1.0f - 2.0f / 6.0f)},
        {U"the", U"the", 0, 0.0f},
        {U"the", U"the", -5, 0.0f},
        {U"", U"the", 1000000, 0.0f},
        {U"the", U"", 1000000, 0.0f},
        {U"the", U"   ", 1000000, 0.0f},
        {U"abc", U"xyz", 1000000, 0.0f},
        {U"abcdef", U"ab", 1000000, 0.0f},
    };
    for (const auto& c : cases) {
        const std::vector<int> before = codePointsOf(c.before);
        const std::vector<int> after = codePointsOf(c.after);
        EXPECT_FLOAT_EQ(AutocorrectionThresholdUtils::calcNormalizedScore(
                            before.data(), static_cast<int>(before.size()), after.data(),
                            static_cast<int>(after.size()), c.score),
                        c.expected);
    }
}

TEST(LongInputTest, SixteenLettersCommitToSeveralWords) {
    PlainDictionary dictionary;
    dictionary.word(U"keyboards", 150).word(U"explain", 150).word(U"explains", 150);
    SearchFixture fixture(std::move(dictionary));
    const auto best = [&](const std::u32string& typed) {
        fixture.startAfresh();
        return fixture.search(typed).front();
    };
    const FoundWord sixteen = best(U"keyboardsexplain");
    EXPECT_EQ(sixteen.text, U"keyboards explain");
    EXPECT_GT(sixteen.score, 1000000);
    PlainDictionary shorter;
    shorter.word(U"keyboards", 150).word(U"expand", 150);
    SearchFixture fifteen(std::move(shorter));
    const std::vector<FoundWord> words = fifteen.search(U"keyboardsexpand");
    EXPECT_EQ(words.front().text, U"keyboards expand");
    EXPECT_LT(words.front().score, 1000000);
}

}  // namespace
}  // namespace wordengine
