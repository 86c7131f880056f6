// SPDX-License-Identifier: Apache-2.0
#include "dictionary/binary_dictionary_shortcut_iterator.h"
#include "search/model_language.h"
#include "search/results/autocorrection_threshold_utils.h"
#include "search/results/suggestion_results.h"
#include "search/results/suggestions_output_utils.h"
#include "search/typing/typing_scoring.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace wordengine::testing {
namespace {

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
            const std::vector<int> word(static_cast<size_t>(pick(0, 52)), 'a');
            const int length = static_cast<int>(word.size());
            const int score = pick(-5, 5);
            results.addPrediction(word.data(), length, score);
            if (length >= 1 && length <= 48 && score != NO_PROBABILITY) model.push_back({-score, length});
            std::sort(model.begin(), model.end());
            model.resize(std::min<size_t>(model.size(), static_cast<size_t>(capacity)));

            std::vector<std::pair<int, int>> kept;
            for (const SuggestedWord& each : results.getSuggestionsVector()) {
                kept.push_back({-each.getScore(), each.getCodePointCount()});
            }
            ASSERT_TRUE(std::is_sorted(kept.rbegin(), kept.rend())) << "worst first";
            std::reverse(kept.begin(), kept.end());
            ASSERT_EQ(kept, model);
        }
    }
}

TEST(ShortcutOutputTest, TheLowestScoreGoesNoLower) {
    const ModelKeyboard keyboard;
    const ModelLanguage language({.words = {{U"w", {1, false, {}, {{U"plain", 14}}}}}}, keyboard);
    const auto* const policy = language.dictionary().getDictionaryStructurePolicy();
    const int w = 'w';
    const int word = policy->getTerminalPtNodePositionOfWord(&w, 1, false);
    BinaryDictionaryShortcutIterator iterator(policy->getShortcutsStructurePolicy(),
                                              policy->getShortcutPositionOfPtNode(word));
    constexpr int LOWEST = std::numeric_limits<int>::min();
    SuggestionResults results(18);
    SuggestionsOutputUtils::outputShortcuts(&iterator, LOWEST, false, &results);
    const std::vector<FoundWord> expected = {{U"plain", LOWEST, SuggestedWord::KIND_SHORTCUT}};
    EXPECT_EQ(wordsOf(results), expected);
}

TEST(FirstWordConfidenceTest, AddsDistanceAndLength) {
    const ModelKeyboard keyboard;
    ModelLanguage language({.words = {{U"hole", {255}}, {U"time", {255}}}}, keyboard);
    const TypedWord typed = keyboard.touch(U"holetime");
    SuggestionResults results(1);
    language.dictionary().getSuggestions(keyboard.proximityInfo(), language.session(), typed.xs.data(),
                                         typed.ys.data(), nullptr, nullptr, typed.codePoints.data(), 8,
                                         nullptr, nullptr, -1.0f, &results);
    ASSERT_EQ(wordsOf(results).front().text, U"hole time");
    // Nine letters of 4 to 30; at the second word's beginning only the word itself had been paid.
    const double expected = 800000 * (2 - price::NEW_WORD) / 2 + 5 * 1000000 / 26;
    EXPECT_NEAR(results.getSuggestionsVector()[0].getAutoCommitFirstWordConfidence(), expected, 2);
}

TEST(AutocorrectionThresholdTest, NormalizedScores) {
    const struct {
        const char32_t* before;
        const char32_t* after;
        int score;
        float expected;
    } cases[] = {
        {U"THE", U"th\u00E9", 1500000, 1.5f},
        {U"teh", U"the", 900000, 0.9f * (1.0f - 1.0f / 3.0f)},
        {U"hous", U"houses", 600000, 0.6f * (1.0f - 2.0f / 6.0f)},
        {U"the", U"the", -5, 0.0f},
        {U"", U"the", 1000000, 0.0f},
        {U"the", U"", 1000000, 0.0f},
        {U" ", U"   ", 1000000, 0.0f},
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

/// What ordinary distances come to is compared with a plain search.
TEST(TypingScoringTest, DistancesBeyondAllWords) {
    const auto score = [](float distance, bool boosts) {
        return TypingScoring::getInstance()->calculateFinalScore(distance, 5, ErrorTypeUtils::NOT_AN_ERROR,
                                                                 false, boosts);
    };
    EXPECT_EQ(score(0.0f, false), 1000000) << "no promotion where the dictionary asks for none";
    for (const float distance : {1e6f, 1.2e7f, std::numeric_limits<float>::infinity()}) {
        EXPECT_EQ(score(distance, true), std::numeric_limits<int>::min());
    }
}

}  // namespace
}  // namespace wordengine::testing
