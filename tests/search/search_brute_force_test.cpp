// SPDX-License-Identifier: Apache-2.0
#include "search/brute_force_answer.h"
#include "search/brute_force_search.h"
#include "search/random_language.h"
#include "text/utf.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wordengine::testing {
namespace {

using LetterCase = ModelKeyboard::LetterCase;

/// In key widths.
constexpr double AIMS[] = {0, 0.3, 0.6, 1.5};
/// What the queues hold; the model knows no such limit.
constexpr int MOST_NODES = 170;

/// Whole answers, duplicates included, against every path that there is.
class SearchBruteForceTest : public ::testing::TestWithParam<LetterCase> {
protected:
    void check(const ModelWords& words, ModelLanguage* language, const TypedWord& typed,
               const std::u32string& previous) {
        const BruteForceSearch model(words, keyboard_, typed, previous);
        if (model.isCloseCall() || model.mostNodesAtOnce() > MOST_NODES) {
            ++skipped_;
            return;
        }
        ++checked_;
        language->startAfresh();
        const std::vector<FoundWord> answer = language->search(typed, previous);
        BruteForceAnswer expected(model.found(), static_cast<int>(typed.codePoints.size()));
        const std::string difference = expected.compare(answer);
        ASSERT_EQ(difference, "") << describe(words, typed) << ::testing::PrintToString(answer);
    }

    static std::string describe(const ModelWords& words, const TypedWord& typed) {
        std::string text = "typed ";
        for (size_t i = 0; i < typed.codePoints.size(); ++i) {
            text += utf32ToUtf8(std::u32string(1, static_cast<char32_t>(typed.codePoints[i]))) + "(" +
                    std::to_string(typed.xs[i]) + "," + std::to_string(typed.ys[i]) + ") ";
        }
        for (const auto& [word, entry] : words.words) {
            text += "\n  " + utf32ToUtf8(word) + " " + std::to_string(entry.probability);
        }
        return text + "\n";
    }

    /// For a test's last line: hardly anything may have been left out.
    void expectMostChecked(int atLeast) const {
        EXPECT_GE(checked_, atLeast);
        EXPECT_GT(checked_, 20 * skipped_);
    }

    const ModelKeyboard keyboard_{GetParam()};
    RandomLanguage random_{GetParam() == LetterCase::Lower ? 7u : 8u};
    int checked_ = 0;
    int skipped_ = 0;
};

TEST_P(SearchBruteForceTest, RandomWordsAndInput) {
    for (int i = 0; i < 50 && !HasFatalFailure(); ++i) {
        const ModelWords words = random_.words(2 + random_.below(11), 7);
        ModelLanguage language(words, keyboard_);
        for (int j = 0; j < 20 && !HasFatalFailure(); ++j) {
            TypedWord typed;
            random_.touch(keyboard_, random_.slippedText(words), AIMS[random_.below(4)], &typed);
            check(words, &language, typed, random_.oneIn(2) ? random_.anyOf(words) : U"");
        }
    }
    expectMostChecked(900);
}

TEST_P(SearchBruteForceTest, LongInputOfSeveralWords) {
    for (int i = 0; i < 100 && !HasFatalFailure(); ++i) {
        const ModelWords words = random_.words(2, 9);
        ModelLanguage language(words, keyboard_);
        std::u32string text;
        while (text.size() < 16) text += random_.anyOf(words);
        TypedWord typed;
        random_.touch(keyboard_, text.substr(0, 15 + static_cast<size_t>(random_.below(8))), 0.3, &typed);
        check(words, &language, typed, U"");
    }
    expectMostChecked(90);
}

/// How the letters of a word are spread over nodes of the file must not show, nor how many siblings it has.
TEST_P(SearchBruteForceTest, SplitNodesAndWideListsOfChildren) {
    constexpr int WIDE = 150;  // more than a one-byte node count holds
    constexpr char32_t STRANGE = 0x4E00;
    for (int i = 0; i < 12 && !HasFatalFailure(); ++i) {
        const ModelWords words = random_.words(2, 7);
        ModelWords split = words;
        for (const auto& [word, entry] : words.words) {
            for (size_t k = 1; k < word.size(); ++k) split.words[word.substr(0, k) + STRANGE].probability = 1;
        }
        ModelWords wide = split;
        const std::u32string start = random_.anyOf(words).substr(0, 1);
        for (char32_t k = 1; k <= WIDE; ++k) {
            const char32_t letter = STRANGE + k;
            wide.words[std::u32string{letter}].probability = 1;
            wide.words[start + letter].probability = 1;
        }
        ModelLanguage language(words, keyboard_);
        ModelLanguage splitLanguage(split, keyboard_);
        ModelLanguage wideLanguage(wide, keyboard_);
        for (int j = 0; j < 10 && !HasFatalFailure(); ++j) {
            TypedWord typed;
            random_.touch(keyboard_, random_.slippedText(words), AIMS[random_.below(4)], &typed);
            check(words, &language, typed, U"");
            check(split, &splitLanguage, typed, U"");
            check(wide, &wideLanguage, typed, U"");
        }
    }
    expectMostChecked(350);
}

INSTANTIATE_TEST_SUITE_P(Keys, SearchBruteForceTest, ::testing::Values(LetterCase::Lower, LetterCase::Upper));

}  // namespace
}  // namespace wordengine::testing
