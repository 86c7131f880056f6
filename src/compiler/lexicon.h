// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vorpel::compiler {

/// The words that a build knows of, those that are left out in the end included, and what became of each.
class Lexicon {
public:
    static constexpr int NONE = -1;

    struct Lexeme {
        std::string_view word;
        /// The relative frequency, as far as the steps have come.
        double frequency = 0.0;
        double floor = 0.0;
        /// The tier of a word written by hand, else 0.
        double tier = 0.0;
        bool tierMayLower = false;
        bool isInVocabulary = false;
        bool isExcluded = false;
        bool isOffensive = false;
        /// More often typed by mistake than meant.
        bool isSlip = false;
        /// A list of words written by hand says that it is meant, however often it is also a slip.
        bool staysAsSlip = false;
        /// The small twin that stands for a capitalised word that was dropped.
        int twin = NONE;
        /// On the dictionary's scale; only for words that are in the dictionary.
        std::optional<int> probability;

        bool isSeeded() const { return tier > 0.0; }
        bool isCandidate() const {
            return !isExcluded && !isSlip && twin == NONE && (frequency > 0.0 || floor > 0.0 || isSeeded());
        }
    };

    Lexicon() = default;
    /// Words are views into the lexicon that made them: it can be moved, not copied.
    Lexicon(Lexicon&&) = default;
    Lexicon& operator=(Lexicon&&) = default;

    /// The lexeme of a word, made if need be.
    int intern(std::string_view word);
    /// The lexeme of a word, or NONE.
    [[nodiscard]] int find(std::string_view word) const;
    /// The lexeme by which the dictionary has a word, itself or its small twin; NONE if it has neither.
    [[nodiscard]] int findInDictionary(std::string_view word) const;

    int size() const { return static_cast<int>(lexemes_.size()); }
    Lexeme& operator[](int index) { return lexemes_[index]; }
    const Lexeme& operator[](int index) const { return lexemes_[index]; }
    std::vector<Lexeme>& all() { return lexemes_; }
    const std::vector<Lexeme>& all() const { return lexemes_; }

private:
    /// A deque, so that the views into its strings stay good while it grows.
    std::deque<std::string> words_;
    std::unordered_map<std::string_view, int> indexes_;
    std::vector<Lexeme> lexemes_;
};

}  // namespace vorpel::compiler
