// SPDX-License-Identifier: Apache-2.0
#include "search/results/suggestion_results.h"

#include "search/results/suggestions_output_utils.h"
#include "text/char_utils.h"
#include "text/diagnostics.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <utility>

namespace wordengine {

namespace {

/// Room for a usual answer, so that filling it allocates nothing.
SuggestionResults::SuggestedWordQueue emptyQueue(int maxSuggestionCount) {
    constexpr int USUAL_COUNT = 64;
    std::vector<SuggestedWord> storage;
    storage.reserve(static_cast<size_t>(std::clamp(maxSuggestionCount, 0, USUAL_COUNT)));
    return SuggestionResults::SuggestedWordQueue(SuggestedWord::Comparator(), std::move(storage));
}

}  // namespace

SuggestionResults::SuggestionResults(int maxSuggestionCount)
    : maxSuggestionCount_(maxSuggestionCount), suggestedWords_(emptyQueue(maxSuggestionCount)) {}

void SuggestionResults::addSuggestion(const int* codePoints, int codePointCount, int score, int type,
                                      int indexToPartialCommit, int autoCommitFirstWordConfidence) {
    if (codePointCount <= 0 || codePointCount > WORD_LENGTH_LIMIT || maxSuggestionCount_ <= 0) return;
    if (getSuggestionCount() >= maxSuggestionCount_) {
        const SuggestedWord& worst = suggestedWords_.top();
        if (score < worst.getScore()) return;
        if (score == worst.getScore() && codePointCount >= worst.getCodePointCount()) return;
        suggestedWords_.pop();
    }
    suggestedWords_.emplace(codePoints, codePointCount, score, type, indexToPartialCommit,
                            autoCommitFirstWordConfidence);
}

void SuggestionResults::addPrediction(const int* codePoints, int codePointCount, int probability) {
    if (probability == NO_PROBABILITY) return;
    addSuggestion(codePoints, codePointCount, probability, SuggestedWord::KIND_PREDICTION, NO_INDEX,
                  SuggestionsOutputUtils::NO_FIRST_WORD_CONFIDENCE);
}

void SuggestionResults::getSortedScores(int* outScores) const {
    for (SuggestedWordQueue words = suggestedWords_; !words.empty(); words.pop()) {
        *outScores++ = words.top().getScore();
    }
}

std::vector<SuggestedWord> SuggestionResults::getSuggestionsVector() const {
    std::vector<SuggestedWord> suggestions;
    suggestions.reserve(suggestedWords_.size());
    for (SuggestedWordQueue words = suggestedWords_; !words.empty(); words.pop()) {
        suggestions.push_back(words.top());
    }
    return suggestions;
}

void SuggestionResults::dumpSuggestions() const {
    // Four bytes a code point, and the closing 0.
    char text[WORD_LENGTH_LIMIT * 4 + 1];
    Diagnostics::print("language weight: %f\n", static_cast<double>(languageWeight_));
    for (const SuggestedWord& word : getSuggestionsVector()) {
        CharUtils::codePointsToUtf8(word.getCodePoint(), word.getCodePointCount(), text, sizeof(text));
        Diagnostics::print("%s: score %d, type %08x\n", text, word.getScore(),
                           static_cast<unsigned int>(word.getType()));
    }
}

}  // namespace wordengine
