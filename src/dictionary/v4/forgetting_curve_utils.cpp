// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/forgetting_curve_utils.h"

#include "dictionary/header_policy.h"
#include "text/engine_constants.h"
#include "text/time_keeper.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace wordengine {

namespace {

constexpr int TIME_STEP_COUNT = ForgettingCurveUtils::MAX_ELAPSED_TIME_STEP_COUNT + 1;
constexpr int MAX_PROBABILITY = 255;

int saturate(int64_t value) {
    return static_cast<int>(
        std::clamp<int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

/// Headers come from files. A step must last a second at least, or nothing could be divided by it.
int usableDuration(int durationToLevelDown) {
    return durationToLevelDown >= TIME_STEP_COUNT
               ? durationToLevelDown
               : HeaderPolicy::DEFAULT_FORGETTING_CURVE_DURATION_TO_LEVEL_DOWN_IN_SECONDS;
}

int usableOccurrences(const HeaderPolicy* headerPolicy) {
    const int occurrences = headerPolicy->getForgettingCurveOccurrencesToLevelUp();
    return occurrences >= 1 ? occurrences : HeaderPolicy::DEFAULT_FORGETTING_CURVE_OCCURRENCES_TO_LEVEL_UP;
}

int usableTableId(const HeaderPolicy* headerPolicy) {
    const int tableId = headerPolicy->getForgettingCurveProbabilityValuesTableId();
    return tableId >= 0 && tableId < ForgettingCurveUtils::ProbabilityTable::PROBABILITY_TABLE_COUNT
               ? tableId
               : HeaderPolicy::DEFAULT_FORGETTING_CURVE_PROBABILITY_VALUES_TABLE_ID;
}

const ForgettingCurveUtils::ProbabilityTable& probabilityTable() {
    static const ForgettingCurveUtils::ProbabilityTable TABLE;
    return TABLE;
}

bool isBelow(const HistoricalInfo& left, const HistoricalInfo& right) {
    if (left.getLevel() != right.getLevel()) return left.getLevel() < right.getLevel();
    return left.getCount() < right.getCount();
}

int hardLimit(int maxCount, double weight) {
    return saturate(static_cast<int64_t>(maxCount * weight));
}

}  // namespace

HistoricalInfo ForgettingCurveUtils::createUpdatedHistoricalInfo(const HistoricalInfo* original,
                                                                 int newProbability,
                                                                 const HistoricalInfo* newInfo,
                                                                 const HeaderPolicy* headerPolicy) {
    const int timestamp = newInfo->getTimeStamp();
    const int newCount = clampToCount(newInfo->getCount(), headerPolicy);
    if (newProbability != NO_PROBABILITY && original->getLevel() == 0) {
        return {timestamp, clampToVisibleLevel(newInfo->getLevel()), newCount};
    }
    if (!original->isValid() || isBelow(*original, *newInfo)) {
        return {timestamp, clampToLevel(newInfo->getLevel()), newCount};
    }
    if (int64_t{original->getCount()} + 1 < usableOccurrences(headerPolicy)) {
        return {timestamp, original->getLevel(), original->getCount() + 1};
    }
    if (original->getLevel() < MAX_LEVEL) return {timestamp, original->getLevel() + 1, 0};
    return {timestamp, original->getLevel(), original->getCount()};
}

HistoricalInfo ForgettingCurveUtils::createHistoricalInfoToSave(const HistoricalInfo* original,
                                                                const HeaderPolicy* headerPolicy) {
    if (!original->isValid()) return HistoricalInfo();
    const int stepCount = getElapsedTimeStepCount(*original, headerPolicy);
    if (stepCount <= MAX_ELAPSED_TIME_STEP_COUNT) return *original;
    const int levelDownCount = std::min(stepCount / TIME_STEP_COUNT, std::max(original->getLevel(), 0));
    const int duration = usableDuration(headerPolicy->getForgettingCurveDurationToLevelDown());
    const int timestamp = saturate(original->getTimeStamp() + int64_t{levelDownCount} * duration);
    return {timestamp, original->getLevel() - levelDownCount, 0};
}

int ForgettingCurveUtils::decodeProbability(const HistoricalInfo* info, const HeaderPolicy* headerPolicy) {
    const int stepCount = getElapsedTimeStepCount(*info, headerPolicy);
    return probabilityTable().getProbability(usableTableId(headerPolicy), clampToLevel(info->getLevel()),
                                             clampToElapsedTimeStepCount(stepCount));
}

int ForgettingCurveUtils::getProbability(int unigramProbability, int bigramProbability) {
    if (unigramProbability == NO_PROBABILITY) return NO_PROBABILITY;
    if (bigramProbability == NO_PROBABILITY) return std::min(backoff(unigramProbability), MAX_PROBABILITY);
    // The sum could overflow, so what exceeds the limit anyway is cut before it.
    const int scaled = std::min(bigramProbability, MAX_PROBABILITY) + MULTIPLIER_TWO_IN_PROBABILITY_SCALE;
    return std::min(std::max(unigramProbability, scaled), MAX_PROBABILITY);
}

bool ForgettingCurveUtils::needsToKeep(const HistoricalInfo* info, const HeaderPolicy* headerPolicy) {
    return info->getLevel() > 0 ||
           getElapsedTimeStepCount(*info, headerPolicy) < DISCARD_LEVEL_ZERO_ENTRY_TIME_STEP_COUNT_THRESHOLD;
}

bool ForgettingCurveUtils::needsToDecay(bool ignoresElapsedTime, int unigramCount, int bigramCount,
                                        const HeaderPolicy* headerPolicy) {
    if (unigramCount >= getUnigramCountHardLimit(headerPolicy->getMaxUnigramCount())) return true;
    if (bigramCount >= getBigramCountHardLimit(headerPolicy->getMaxBigramCount())) return true;
    if (ignoresElapsedTime) return false;
    return int64_t{headerPolicy->getLastDecayedTime()} + DECAY_INTERVAL_SECONDS <
           TimeKeeper::peekCurrentTime();
}

int ForgettingCurveUtils::getElapsedTimeStepCount(int timestamp, int durationToLevelDownInSeconds) {
    const int64_t elapsedSeconds = int64_t{TimeKeeper::peekCurrentTime()} - timestamp;
    return saturate(elapsedSeconds / (usableDuration(durationToLevelDownInSeconds) / TIME_STEP_COUNT));
}

int ForgettingCurveUtils::getElapsedTimeStepCount(const HistoricalInfo& info,
                                                  const HeaderPolicy* headerPolicy) {
    return getElapsedTimeStepCount(info.getTimeStamp(),
                                   headerPolicy->getForgettingCurveDurationToLevelDown());
}

int ForgettingCurveUtils::getUnigramCountHardLimit(int maxUnigramCount) {
    return hardLimit(maxUnigramCount, UNIGRAM_COUNT_HARD_LIMIT_WEIGHT);
}

int ForgettingCurveUtils::getBigramCountHardLimit(int maxBigramCount) {
    return hardLimit(maxBigramCount, BIGRAM_COUNT_HARD_LIMIT_WEIGHT);
}

int ForgettingCurveUtils::clampToVisibleLevel(int level) {
    return std::clamp(level, MIN_VISIBLE_LEVEL, MAX_LEVEL);
}

int ForgettingCurveUtils::clampToLevel(int level) {
    return std::clamp(level, 0, MAX_LEVEL);
}

int ForgettingCurveUtils::clampToElapsedTimeStepCount(int stepCount) {
    return std::clamp(stepCount, 0, MAX_ELAPSED_TIME_STEP_COUNT);
}

int ForgettingCurveUtils::clampToCount(int count, const HeaderPolicy* headerPolicy) {
    return std::clamp(count, 0, usableOccurrences(headerPolicy) - 1);
}

}  // namespace wordengine
