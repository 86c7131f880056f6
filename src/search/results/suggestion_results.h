// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/results/suggested_word.h"

#include <queue>
#include <vector>

namespace wordengine {

/// The best words of a request, at most `maxSuggestionCount`.
class SuggestionResults {
public:
    using SuggestedWordQueue =
        std::priority_queue<SuggestedWord, std::vector<SuggestedWord>, SuggestedWord::Comparator>;

    explicit SuggestionResults(int maxSuggestionCount);
    SuggestionResults(const SuggestionResults&) = delete;
    SuggestionResults& operator=(const SuggestionResults&) = delete;

    /// Keeps the word if there is room or if it is better than the worst. A word of no code points, or of
    /// more than WORD_LENGTH_LIMIT, is dropped.
    void addSuggestion(const int* codePoints, int codePointCount, int score, int type,
                       int indexToPartialCommit, int autoCommitFirstWordConfidence);
    void addPrediction(const int* codePoints, int codePointCount, int probability);

    int getSuggestionCount() const { return static_cast<int>(suggestedWords_.size()); }
    void setLanguageWeight(float languageWeight) { languageWeight_ = languageWeight; }
    /// -1 until a search has set it.
    float getLanguageWeight() const { return languageWeight_; }

    /// A copy, the worst word on top.
    SuggestedWordQueue getSuggestedWords() const { return suggestedWords_; }
    /// Worst first. `outScores` holds `getSuggestionCount` entries.
    void getSortedScores(int* outScores) const;
    std::vector<SuggestedWord> getSuggestionsVector() const;
    /// Prints the words through Diagnostics, worst first.
    void dumpSuggestions() const;

private:
    const int maxSuggestionCount_;
    float languageWeight_ = -1.0f;
    SuggestedWordQueue suggestedWords_;
};

}  // namespace wordengine
