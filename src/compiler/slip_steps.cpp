// SPDX-License-Identifier: Apache-2.0
#include "compiler/slip_steps.h"

#include "compiler/slip_model.h"
#include "text/char_utils.h"
#include "text/utf.h"

#include <algorithm>

namespace vorpel::compiler {
namespace {

// The slips of rarer words do not matter.
constexpr double RAREST_SOURCE = 1e-6;

bool mayBeDictionaryWord(const Lexicon::Lexeme& lexeme) {
    return lexeme.isCandidate();
}

}  // namespace

std::u32string SlipCounts::smallForm(std::string_view form) {
    std::u32string small = wordengine::utf8ToUtf32Lenient(form);
    for (char32_t& letter : small) {
        letter = static_cast<char32_t>(wordengine::CharUtils::toLowerCase(static_cast<int>(letter)));
    }
    return small;
}

void SlipCounts::count(const SlipsRule& rule, const Lexicon& lexicon,
                       bool (*countsWord)(const Lexicon::Lexeme&)) {
    const SlipModel model(rule.layout);
    for (const Lexicon::Lexeme& lexeme : lexicon.all()) {
        if (countsWord(lexeme) && !lexeme.isOffensive) meant_[smallForm(lexeme.word)] += lexeme.frequency;
    }
    // In a fixed order, so that the sums come out the same everywhere.
    std::vector<const std::u32string*> words;
    for (const auto& [word, frequency] : meant_) {
        if (frequency >= RAREST_SOURCE) words.push_back(&word);
    }
    std::ranges::sort(words, {}, [](const std::u32string* word) { return *word; });
    for (const std::u32string* word : words) {
        const double frequency = meant_.at(*word);
        model.visitSlips(*word, [&](const std::u32string& form, double share) {
            if (form == *word) return;
            if (const auto watched = shares_.find(form); watched != shares_.end()) {
                watched->second += frequency * share;
            }
        });
    }
}

double SlipCounts::of(std::string_view form) const {
    const auto found = shares_.find(smallForm(form));
    return found == shares_.end() ? 0.0 : found->second;
}

double SlipCounts::meant(std::string_view form) const {
    const auto found = meant_.find(smallForm(form));
    return found == meant_.end() ? 0.0 : found->second;
}

int dropSlips(const SlipsRule& rule, Lexicon* lexicon) {
    SlipCounts slips;
    for (const Lexicon::Lexeme& lexeme : lexicon->all()) {
        if (lexeme.isCandidate()) slips.watch(lexeme.word);
    }
    slips.count(rule, *lexicon, mayBeDictionaryWord);
    int dropped = 0;
    for (Lexicon::Lexeme& lexeme : lexicon->all()) {
        if (!lexeme.isCandidate() || lexeme.isOffensive || lexeme.staysAsSlip) continue;
        const bool isLetter = wordengine::utf8ToUtf32Lenient(lexeme.word).size() < 2;
        const double meant = std::max(slips.meant(lexeme.word), rule.least);
        if (isLetter || meant >= rule.ratio * slips.of(lexeme.word)) continue;
        lexeme.isSlip = true;
        ++dropped;
    }
    return dropped;
}

}  // namespace vorpel::compiler
