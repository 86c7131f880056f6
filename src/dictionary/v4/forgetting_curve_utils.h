// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/historical_info.h"

#include <vector>

namespace wordengine {

class HeaderPolicy;

/// How learned words gain and lose weight. Use lifts an entry through four levels; time takes it down one
/// level after each duration that the header sets, in sixteen steps from one level's probability to that
/// of the level below. Level 0 is remembered but never suggested, and soon dropped.
///
/// Stateless; the time is that of TimeKeeper. Any value in an entry or a header is bearable: settings that
/// make no sense give way to the header's defaults, differences of times do not overflow.
class ForgettingCurveUtils {
public:
    class ProbabilityTable;

    static constexpr int MULTIPLIER_TWO_IN_PROBABILITY_SCALE = 8;
    static constexpr int DECAY_INTERVAL_SECONDS = 2 * 60 * 60;
    static constexpr int MAX_LEVEL = 3;
    static constexpr int MIN_VISIBLE_LEVEL = 1;
    static constexpr int MAX_ELAPSED_TIME_STEP_COUNT = 15;
    static constexpr int DISCARD_LEVEL_ZERO_ENTRY_TIME_STEP_COUNT_THRESHOLD = 14;
    /// How far the counts may go beyond the header's maxima before the next compaction cannot wait.
    static constexpr double UNIGRAM_COUNT_HARD_LIMIT_WEIGHT = 1.2;
    static constexpr double BIGRAM_COUNT_HARD_LIMIT_WEIGHT = 1.2;

    ForgettingCurveUtils() = delete;

    /// The entry after a use or an update. A new probability other than NO_PROBABILITY says that the word
    /// is known to be one, and makes it visible at once.
    [[nodiscard]] static HistoricalInfo createUpdatedHistoricalInfo(const HistoricalInfo* original,
                                                                    int newProbability,
                                                                    const HistoricalInfo* newInfo,
                                                                    const HeaderPolicy* headerPolicy);

    /// The entry as a compaction writes it: levels that time has taken are taken off.
    [[nodiscard]] static HistoricalInfo createHistoricalInfoToSave(const HistoricalInfo* original,
                                                                   const HeaderPolicy* headerPolicy);

    /// 1 to 255; NO_PROBABILITY for an entry that is not to be suggested.
    [[nodiscard]] static int decodeProbability(const HistoricalInfo* info, const HeaderPolicy* headerPolicy);

    /// The probability of a word behind another one: a pair counts twice its own, but never makes a word
    /// less probable than it is alone.
    [[nodiscard]] static int getProbability(int unigramProbability, int bigramProbability);

    /// False if a compaction may drop the entry.
    [[nodiscard]] static bool needsToKeep(const HistoricalInfo* info, const HeaderPolicy* headerPolicy);

    /// Whether a compaction is due. With `ignoresElapsedTime` the time since the last one does not count.
    [[nodiscard]] static bool needsToDecay(bool ignoresElapsedTime, int unigramCount, int bigramCount,
                                           const HeaderPolicy* headerPolicy);

    /// Steps of a sixteenth of the duration since the timestamp; below 0 if the clock went back.
    [[nodiscard]] static int getElapsedTimeStepCount(int timestamp, int durationToLevelDownInSeconds);

    /// The counts from which on needsToDecay holds at any time.
    [[nodiscard]] static int getUnigramCountHardLimit(int maxUnigramCount);
    [[nodiscard]] static int getBigramCountHardLimit(int maxBigramCount);

private:
    static int backoff(int unigramProbability) { return unigramProbability; }
    static int clampToVisibleLevel(int level);
    static int clampToLevel(int level);
    static int clampToElapsedTimeStepCount(int stepCount);
    static int clampToCount(int count, const HeaderPolicy* headerPolicy);

    static int getElapsedTimeStepCount(const HistoricalInfo& info, const HeaderPolicy* headerPolicy);
};

/// The curves: a probability for each table, level and number of elapsed steps.
class ForgettingCurveUtils::ProbabilityTable {
public:
    static constexpr int PROBABILITY_TABLE_COUNT = 4;
    static constexpr int WEAK_PROBABILITY_TABLE_ID = 0;
    static constexpr int MODEST_PROBABILITY_TABLE_ID = 1;
    static constexpr int STRONG_PROBABILITY_TABLE_ID = 2;
    static constexpr int AGGRESSIVE_PROBABILITY_TABLE_ID = 3;

    static constexpr int WEAK_MAX_PROBABILITY = 127;
    static constexpr int MODEST_BASE_PROBABILITY = 32;
    static constexpr int STRONG_BASE_PROBABILITY = 35;
    static constexpr int AGGRESSIVE_BASE_PROBABILITY = 40;

    ProbabilityTable();

    /// All three must be in range.
    [[nodiscard]] int getProbability(int tableId, int level, int elapsedTimeStepCount) const;

    /// What an entry has when it has just reached the level, 0 to 3; -1 for an unknown table.
    [[nodiscard]] static int getBaseProbabilityForLevel(int tableId, int level);

private:
    std::vector<std::vector<std::vector<int>>> probabilities_;
};

}  // namespace wordengine
