// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/scoring.h"

namespace wordengine {

/// How typed words are scored. Stateless; any thread may use the one instance.
class TypingScoring final : public Scoring {
public:
    static const TypingScoring* getInstance() { return &sInstance; }

    /// The smallest integer for a distance whose score no integer can hold.
    int calculateFinalScore(float compoundDistance, int inputSize,
                            ErrorTypeUtils::ErrorType containedErrorTypes, bool forceCommit,
                            bool boostExactMatches) const override;
    void getMostProbableString(const DicTraverseSession*, float, SuggestionResults*) const override {}
    float getAdjustedLanguageWeight(DicTraverseSession*, const DicNode*, size_t) const override {
        return 1.0f;
    }
    float getDoubleLetterDemotionDistanceCost(const DicNode*) const override { return 0.0f; }
    bool autoCorrectsToMultiWordSuggestionIfTop() const override { return true; }
    bool sameAsTyped(const DicTraverseSession* traverseSession, const DicNode* dicNode) const override;

private:
    TypingScoring() = default;

    static const TypingScoring sInstance;
};

}  // namespace wordengine
