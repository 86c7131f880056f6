// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/error_type_utils.h"

#include <cstddef>

namespace wordengine {

class DicNode;
class DicTraverseSession;
class SuggestionResults;

/// How a finished word's distance becomes the score that words are ranked by.
class Scoring {
public:
    /// Higher is better; about 1000000 for a word without any distance.
    virtual int calculateFinalScore(float compoundDistance, int inputSize,
                                    ErrorTypeUtils::ErrorType containedErrorTypes, bool forceCommit,
                                    bool boostExactMatches) const = 0;
    /// May add a string that is no word of the dictionary.
    virtual void getMostProbableString(const DicTraverseSession* traverseSession, float languageWeight,
                                       SuggestionResults* outSuggestionResults) const = 0;
    /// The weight of the language when the caller names none. `terminals` come best first.
    virtual float getAdjustedLanguageWeight(DicTraverseSession* traverseSession, const DicNode* terminals,
                                            size_t size) const = 0;
    virtual float getDoubleLetterDemotionDistanceCost(const DicNode* terminalDicNode) const = 0;
    virtual bool autoCorrectsToMultiWordSuggestionIfTop() const = 0;
    virtual bool sameAsTyped(const DicTraverseSession* traverseSession, const DicNode* dicNode) const = 0;

    virtual ~Scoring() = default;
    Scoring(const Scoring&) = delete;
    Scoring& operator=(const Scoring&) = delete;

protected:
    Scoring() = default;
};

}  // namespace wordengine
