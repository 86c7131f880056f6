// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/model_costs.h"
#include "search/model_language.h"
#include "search/model_typist.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace wordengine::testing {

inline constexpr double EXACT = 1.1;
inline constexpr double WRONG_CASE = 0.01;
inline constexpr double WRONG_ACCENT = 0.02;
inline constexpr double DIGRAPH = 0.03;
/// Within half a key width of the middle, where every correction stays open to the letters that follow.
inline constexpr double GOOD_AIM = 0.49;

/// Types words of small random dictionaries with one slip each and expects the word meant among the
/// answers, at the score of a sum made up by hand.
class SearchModelTest : public ::testing::Test {
protected:
    static constexpr int DICTIONARIES = 12;
    static constexpr int WORDS = 5;

    int below(size_t limit) { return static_cast<int>(random_() % static_cast<uint32_t>(limit)); }

    std::u32string randomWord(const std::u32string& alphabet, int shortest, int longest) {
        std::u32string word;
        for (int i = shortest + below(static_cast<size_t>(longest - shortest + 1)); i > 0; --i) {
            word += alphabet[random_() % alphabet.size()];
        }
        return word;
    }

    /// Letters that lie side by side, so that one word is soon mistaken for another; or real words.
    std::u32string randomWord() {
        static const std::vector<std::u32string> REAL = {
            U"letter", U"keyboard", U"minute",  U"balloon", U"success", U"other", U"people", U"before",
            U"little", U"between",  U"address", U"zebra",   U"public",  U"heat",  U"coffee", U"express"};
        return below(2) == 0 ? randomWord(U"asdewqx", 4, 8) : REAL[random_() % REAL.size()];
    }

    /// Calls for each word of each dictionary, with the file opened and nothing remembered. `change` makes
    /// of a word what stands in the dictionary.
    void eachWord(const std::function<void(const std::u32string&)>& body,
                  const std::function<std::u32string(std::u32string)>& change = nullptr) {
        for (int i = 0; i < DICTIONARIES && !HasFailure(); ++i) {
            ModelWords words;
            while (static_cast<int>(words.words.size()) < WORDS) {
                const std::u32string word = randomWord();
                words.words[change ? change(word) : word].probability = 1 + below(255);
            }
            open(words);
            for (const auto& [word, entry] : words.words) body(word);
        }
    }

    void open(const ModelWords& words) {
        words_ = words;
        language_ = std::make_unique<ModelLanguage>(words_, keyboard_);
    }

    ModelTypist typist(double aim = GOOD_AIM) { return ModelTypist(keyboard_, aim, random_); }

    double languageOf(const std::u32string& word) const {
        return languageCost(words_.find(word)->probability);
    }

    /// The sum so far and the word's own improbability are all that it costs.
    void expect(const ModelTypist& typist, const std::u32string& meant, double bonus = 0) {
        expectAt(typist, meant, typist.sum() + languageOf(meant), bonus);
    }
    void expectAt(const ModelTypist& typist, const std::u32string& meant, double distance, double bonus = 0) {
        expectScore(typist, meant, finalScore(distance, typist.points(), bonus), bonus > 0);
    }
    void expectScore(const ModelTypist& typist, const std::u32string& meant, int score, bool isExact) {
        language_->startAfresh();
        const std::vector<FoundWord> found = language_->search(typist.typed(), previous_);
        for (const FoundWord& word : found) {
            if (word.text != meant || std::abs(word.score - score) > SCORE_TOLERANCE) continue;
            EXPECT_EQ((word.type & SuggestedWord::KIND_FLAG_EXACT_MATCH) != 0, isExact);
            return;
        }
        ADD_FAILURE() << "typed " << ::testing::PrintToString(typist.typed().codePoints) << " for "
                      << ::testing::PrintToString(meant) << ", wanted " << score << " among "
                      << ::testing::PrintToString(found);
    }

    std::mt19937 random_{20250314};
    ModelKeyboard keyboard_;
    ModelWords words_;
    std::unique_ptr<ModelLanguage> language_;
    std::u32string previous_;
};

}  // namespace wordengine::testing
