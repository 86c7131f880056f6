// SPDX-License-Identifier: Apache-2.0
#include "search/results/autocorrection_threshold_utils.h"

#include "text/damerau_levenshtein_edit_distance_policy.h"
#include "text/edit_distance.h"
#include "text/engine_constants.h"

#include <algorithm>

namespace wordengine {

float AutocorrectionThresholdUtils::calcNormalizedScore(const int* before, int beforeLength, const int* after,
                                                        int afterLength, int score) {
    // The score of a word that lies no distance away at all.
    constexpr float PERFECT_SCORE = 1000000.0f;
    if (beforeLength == 0 || afterLength == 0) return 0.0f;
    const int distance = editDistance(before, beforeLength, after, afterLength);
    const auto spaceCount = std::count(after, after + afterLength, CODE_POINT_SPACE);
    if (spaceCount == afterLength || score <= 0 || distance >= afterLength) return 0.0f;
    const float weight = 1.0f - static_cast<float>(distance) / static_cast<float>(afterLength);
    return (static_cast<float>(score) / PERFECT_SCORE) * weight;
}

int AutocorrectionThresholdUtils::editDistance(const int* before, int beforeLength, const int* after,
                                               int afterLength) {
    const DamerauLevenshteinEditDistancePolicy policy(before, beforeLength, after, afterLength);
    return static_cast<int>(EditDistance::getEditDistance(&policy));
}

}  // namespace wordengine
