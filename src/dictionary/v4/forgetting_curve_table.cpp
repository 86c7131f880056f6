// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/forgetting_curve_utils.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <cmath>

namespace wordengine {

namespace {

constexpr int MIN_PROBABILITY = 1;
constexpr int MAX_PROBABILITY = 255;

/// On the exponential curve that would reach the level below's probability at the sixteenth step.
int probabilityAt(int tableId, int level, int step) {
    // Invisible, so without a probability.
    if (level < ForgettingCurveUtils::MIN_VISIBLE_LEVEL) return NO_PROBABILITY;
    using Table = ForgettingCurveUtils::ProbabilityTable;
    const auto initial = static_cast<float>(Table::getBaseProbabilityForLevel(tableId, level));
    const auto end = static_cast<float>(Table::getBaseProbabilityForLevel(tableId, level - 1));
    constexpr float STEP_COUNT = ForgettingCurveUtils::MAX_ELAPSED_TIME_STEP_COUNT + 1;
    const float probability = initial * std::pow(initial / end, -static_cast<float>(step) / STEP_COUNT);
    return std::clamp(static_cast<int>(probability), MIN_PROBABILITY, MAX_PROBABILITY);
}

}  // namespace

ForgettingCurveUtils::ProbabilityTable::ProbabilityTable() : probabilities_(PROBABILITY_TABLE_COUNT) {
    for (int tableId = 0; tableId < PROBABILITY_TABLE_COUNT; ++tableId) {
        auto& levels = probabilities_[static_cast<size_t>(tableId)];
        for (int level = 0; level <= MAX_LEVEL; ++level) {
            auto& steps = levels.emplace_back();
            for (int step = 0; step <= MAX_ELAPSED_TIME_STEP_COUNT; ++step) {
                steps.push_back(probabilityAt(tableId, level, step));
            }
        }
    }
}

int ForgettingCurveUtils::ProbabilityTable::getProbability(int tableId, int level,
                                                           int elapsedTimeStepCount) const {
    return probabilities_[static_cast<size_t>(tableId)][static_cast<size_t>(level)]
                         [static_cast<size_t>(elapsedTimeStepCount)];
}

int ForgettingCurveUtils::ProbabilityTable::getBaseProbabilityForLevel(int tableId, int level) {
    switch (tableId) {
        case WEAK_PROBABILITY_TABLE_ID:
            return WEAK_MAX_PROBABILITY / (1 << (MAX_LEVEL - level));
        case MODEST_PROBABILITY_TABLE_ID:
            return MODEST_BASE_PROBABILITY * (level + 1);
        case STRONG_PROBABILITY_TABLE_ID:
            return STRONG_BASE_PROBABILITY * (level + 1);
        case AGGRESSIVE_PROBABILITY_TABLE_ID:
            return AGGRESSIVE_BASE_PROBABILITY * (level + 1);
        default:
            return NO_PROBABILITY;
    }
}

}  // namespace wordengine
