// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/lexicon.h"
#include "compiler/recipe.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace vorpel::compiler {

/// How often forms are typed by mistake for another word of the lexicon, told from the words' frequencies.
class SlipCounts {
public:
    /// Asks for a form; case says nothing.
    void watch(std::string_view form) { shares_.emplace(smallForm(form), 0.0); }
    /// Adds up the slips of all words; `countsWord` says which lexemes count.
    void count(const SlipsRule& rule, const Lexicon& lexicon, bool (*countsWord)(const Lexicon::Lexeme&));
    /// The share of all typed words that are this form by a slip; 0 for a form that was not watched.
    [[nodiscard]] double of(std::string_view form) const;
    /// How often the form is meant, as a word in any case.
    [[nodiscard]] double meant(std::string_view form) const;

private:
    static std::u32string smallForm(std::string_view form);

    std::unordered_map<std::u32string, double> shares_;
    std::unordered_map<std::u32string, double> meant_;
};

/// Marks the words that slips of other words make more often than people mean them: a typed word that the
/// dictionary has is never corrected. Returns how many.
int dropSlips(const SlipsRule& rule, Lexicon* lexicon);

}  // namespace vorpel::compiler
