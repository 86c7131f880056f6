// SPDX-License-Identifier: Apache-2.0
#include "search/typing/typing_scoring.h"

#include "node/dic_node.h"
#include "search/dic_traverse_session.h"
#include "search/typing/scoring_params.h"

#include <limits>

namespace wordengine {

namespace {

constexpr float OUTPUT_SCORE_SCALE = 1000000.0f;

int truncateOrSmallest(float value) {
    constexpr float LIMIT = 2147483648.0f;
    // Written so that a value that is no number fails too.
    if (!(value >= -LIMIT && value < LIMIT)) return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

}  // namespace

const TypingScoring TypingScoring::sInstance;

int TypingScoring::calculateFinalScore(float compoundDistance, int inputSize,
                                       ErrorTypeUtils::ErrorType containedErrorTypes, bool forceCommit,
                                       bool boostExactMatches) const {
    const float maxDistance =
        ScoringParams::DISTANCE_WEIGHT_LANGUAGE +
        static_cast<float>(inputSize) * ScoringParams::TYPING_MAX_OUTPUT_SCORE_PER_INPUT;
    float score = ScoringParams::TYPING_BASE_OUTPUT_SCORE - compoundDistance / maxDistance;
    if (forceCommit) score += ScoringParams::AUTOCORRECT_OUTPUT_THRESHOLD;
    if (boostExactMatches && ErrorTypeUtils::isExactMatch(containedErrorTypes)) {
        score += ScoringParams::EXACT_MATCH_PROMOTION;
        if (containedErrorTypes & ErrorTypeUtils::MATCH_WITH_CASE_ERROR) {
            score -= ScoringParams::CASE_ERROR_PENALTY_FOR_EXACT_MATCH;
        }
        if (containedErrorTypes & ErrorTypeUtils::MATCH_WITH_ACCENT_ERROR) {
            score -= ScoringParams::ACCENT_ERROR_PENALTY_FOR_EXACT_MATCH;
        }
        if (containedErrorTypes & ErrorTypeUtils::MATCH_WITH_DIGRAPH) {
            score -= ScoringParams::DIGRAPH_PENALTY_FOR_EXACT_MATCH;
        }
    }
    return truncateOrSmallest(score * OUTPUT_SCORE_SCALE);
}

bool TypingScoring::sameAsTyped(const DicTraverseSession* traverseSession, const DicNode* dicNode) const {
    return traverseSession->getProximityInfoState(0)->sameAsTyped(dicNode->getOutputWordBuf(),
                                                                  dicNode->getNodeCodePointCount());
}

}  // namespace wordengine
