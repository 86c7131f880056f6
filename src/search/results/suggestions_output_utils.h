// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <limits>

namespace wordengine {

class BinaryDictionaryShortcutIterator;
class DicNode;
class DicTraverseSession;
class Scoring;
class SuggestionResults;

/// Turns the finished words of a search into results.
class SuggestionsOutputUtils {
public:
    static constexpr int NO_FIRST_WORD_CONFIDENCE = std::numeric_limits<int>::min();
    /// Inputs from this length on are committed to several words if these stand first.
    static constexpr int MIN_LEN_FOR_MULTI_WORD_AUTOCORRECT = 16;

    SuggestionsOutputUtils() = delete;

    /// Empties the session's terminals. A weight below 0 is left to the scoring.
    static void outputSuggestions(const Scoring* scoringPolicy, DicTraverseSession* traverseSession,
                                  float languageWeight, SuggestionResults* outSuggestionResults);

    static void outputSuggestionsOfDicNode(const Scoring* scoringPolicy, DicTraverseSession* traverseSession,
                                           const DicNode* terminalDicNode, float languageWeight,
                                           bool boostExactMatches, bool forceCommitMultiWords,
                                           bool outputSecondWordFirstLetterInputIndex,
                                           SuggestionResults* outSuggestionResults);

    /// How sure it is that the first of several words is right.
    static int computeFirstWordConfidence(const DicNode* terminalDicNode);

    static void outputShortcuts(BinaryDictionaryShortcutIterator* shortcutIterator, int finalScore,
                                bool sameAsTyped, SuggestionResults* outSuggestionResults);
};

}  // namespace wordengine
