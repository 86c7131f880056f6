// SPDX-License-Identifier: Apache-2.0
#include "dictionary/header_policy.h"
#include "dictionary/v4/forgetting_curve_utils.h"
#include "storage/byte_array_view.h"
#include "support/trie_assembler.h"
#include "text/time_keeper.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>
#include <vector>

namespace wordengine::test {
namespace {

using Curve = ForgettingCurveUtils;
using Table = ForgettingCurveUtils::ProbabilityTable;

constexpr int NOW = 1700000000;
constexpr int DURATION = 16 * 100;
constexpr int DEFAULT_STEP = HeaderPolicy::DEFAULT_FORGETTING_CURVE_DURATION_TO_LEVEL_DOWN_IN_SECONDS / 16;
const std::vector<int> EXTREMES = {INT_MIN, INT_MIN + 1, -1, 0, 1, 15, 16, 255, NOW, INT_MAX - 1, INT_MAX};

struct Settings {
    int duration = DURATION;
    int tableId = Table::AGGRESSIVE_PROBABILITY_TABLE_ID;
    int occurrences = 3;
    int lastDecayedTime = NOW;
    int maxCount = 100;
};

HeaderPolicy headerOf(const Settings& settings) {
    const Bytes file = TrieAssembler::fileOf(
        {},
        {{HeaderPolicy::FORGETTING_CURVE_DURATION_TO_LEVEL_DOWN_IN_SECONDS_KEY,
          std::to_string(settings.duration)},
         {HeaderPolicy::FORGETTING_CURVE_PROBABILITY_VALUES_TABLE_ID_KEY, std::to_string(settings.tableId)},
         {HeaderPolicy::FORGETTING_CURVE_OCCURRENCES_TO_LEVEL_UP_KEY, std::to_string(settings.occurrences)},
         {HeaderPolicy::LAST_DECAYED_TIME_KEY, std::to_string(settings.lastDecayedTime)},
         {HeaderPolicy::MAX_UNIGRAM_COUNT_KEY, std::to_string(settings.maxCount)},
         {HeaderPolicy::MAX_BIGRAM_COUNT_KEY, std::to_string(settings.maxCount)}});
    return HeaderPolicy(ReadOnlyByteArrayView(file.data(), file.size()), FormatUtils::VERSION_403);
}

class ForgettingCurveTest : public ::testing::Test {
protected:
    void SetUp() override { setTime(NOW); }
    void TearDown() override { TimeKeeper::stopTestMode(); }
    static void setTime(int time) { TimeKeeper::startTestModeWithForceCurrentTime(time); }

    const HeaderPolicy header_ = headerOf({});
};

std::vector<int> fieldsOf(const HistoricalInfo& info) {
    return {info.getTimeStamp(), info.getLevel(), info.getCount()};
}

TEST_F(ForgettingCurveTest, EveryCellIsOnTheExponentialCurve) {
    const std::vector<std::vector<int>> bases = {
        {15, 31, 63, 127}, {32, 64, 96, 128}, {35, 70, 105, 140}, {40, 80, 120, 160}};
    const Table table;
    for (int id = 0; id < Table::PROBABILITY_TABLE_COUNT; ++id) {
        for (int step = 0; step <= 15; ++step) EXPECT_EQ(-1, table.getProbability(id, 0, step));
        for (int level = 1; level <= 3; ++level) {
            const double initial = bases[id][level];
            const double ratio = initial / bases[id][level - 1];
            EXPECT_EQ(bases[id][level], table.getProbability(id, level, 0));
            for (int step = 1; step <= 15; ++step) {
                const double exact = initial * std::exp(-std::log(ratio) * step / 16);
                // So that truncation cannot depend on the precision of a float.
                ASSERT_GT(std::abs(exact - std::round(exact)), 1e-3) << id << level << step;
                EXPECT_EQ(static_cast<int>(exact), table.getProbability(id, level, step))
                    << "table " << id << " level " << level << " step " << step;
            }
        }
    }
    EXPECT_EQ(-1, Table::getBaseProbabilityForLevel(4, 2));
    EXPECT_EQ(-1, Table::getBaseProbabilityForLevel(-1, 2));
}

TEST_F(ForgettingCurveTest, ProbabilityNeverRisesWithTimeHoweverOftenItIsSaved) {
    for (int tableId = 0; tableId < Table::PROBABILITY_TABLE_COUNT; ++tableId) {
        const HeaderPolicy header = headerOf({.tableId = tableId});
        const HistoricalInfo learned(NOW, 3, 1);
        HistoricalInfo saved = learned;
        int before = INT_MAX;
        for (int seconds = 0; seconds < 5 * DURATION; seconds += 7) {
            setTime(NOW + seconds);
            saved = Curve::createHistoricalInfoToSave(&saved, &header);
            const HistoricalInfo savedOnce = Curve::createHistoricalInfoToSave(&learned, &header);
            ASSERT_EQ(fieldsOf(savedOnce), fieldsOf(saved)) << "when it was saved must not matter";
            const int probability = Curve::decodeProbability(&saved, &header);
            ASSERT_LE(probability, before) << tableId << " after " << seconds;
            ASSERT_EQ(std::max(0, 3 - seconds / DURATION), saved.getLevel());
            before = probability;
        }
        EXPECT_EQ(-1, before);
        EXPECT_FALSE(Curve::needsToKeep(&saved, &header));
    }
}

TEST_F(ForgettingCurveTest, UseRaisesLevels) {
    const struct {
        HistoricalInfo original;
        int probability;
        HistoricalInfo update;
        std::vector<int> expected;
        const char* why;
    } samples[] = {
        {{}, 100, {NOW, 0, 0}, {NOW, 1, 0}, "a word of a dictionary is visible at once"},
        {{5, 0, 2}, 100, {NOW, 9, 9}, {NOW, 3, 2}, "its level and count are kept in range"},
        {{5, 0, 1}, 100, {NOW, -3, -3}, {NOW, 1, 0}, "from below too"},
        {{5, 1, 0}, 100, {NOW, 0, 0}, {NOW, 1, 1}, "a visible one only counts"},
        {{}, -1, {NOW, 0, 0}, {NOW, 0, 0}, "what was merely typed is not visible yet"},
        {{}, -1, {NOW, 9, 9}, {NOW, 3, 2}, "an import brings its level"},
        {{-1, 2, 2}, -1, {NOW, 1, 1}, {NOW, 1, 1}, "an invalid one has no level worth keeping"},
        {{5, 1, 2}, -1, {NOW, 2, 0}, {NOW, 2, 0}, "the higher level wins"},
        {{5, 2, 0}, -1, {NOW, 2, 1}, {NOW, 2, 1}, "at the same level the higher count"},
        {{5, 2, 1}, -1, {NOW, 2, 1}, {NOW, 2, 2}, "an equal one counts"},
        {{5, 2, 1}, -1, {NOW, 1, 2}, {NOW, 2, 2}, "and so does one below"},
        {{5, 0, 2}, -1, {NOW, 0, 0}, {NOW, 1, 0}, "the third use lifts"},
        {{5, 2, 2}, -1, {NOW, 0, 0}, {NOW, 3, 0}, "up to the top"},
        {{5, 3, 2}, -1, {NOW, 0, 0}, {NOW, 3, 2}, "and stays there"},
        {{5, 1, INT_MAX}, -1, {7, 0, 0}, {7, 2, 0}, "a count beyond all bounds"},
        {{5, 255, 255}, -1, {7, 0, 0}, {7, 255, 255}, "a level from a damaged store"},
    };
    for (const auto& sample : samples) {
        EXPECT_EQ(sample.expected, fieldsOf(Curve::createUpdatedHistoricalInfo(
                                       &sample.original, sample.probability, &sample.update, &header_)))
            << sample.why;
    }
}

TEST_F(ForgettingCurveTest, SavingTakesOffWholeLevels) {
    const struct {
        int elapsed;
        HistoricalInfo info;
        std::vector<int> expected;
    } samples[] = {
        {DURATION - 1, {NOW, 2, 1}, {NOW, 2, 1}},
        {DURATION, {NOW, 2, 1}, {NOW + DURATION, 1, 0}},
        {2 * DURATION - 1, {NOW, 2, 1}, {NOW + DURATION, 1, 0}},
        {9 * DURATION, {NOW, 2, 1}, {NOW + 2 * DURATION, 0, 0}},
        {9 * DURATION, {NOW, 0, 1}, {NOW, 0, 0}},
        {-DURATION * 9, {NOW, 2, 1}, {NOW, 2, 1}},
        {0, {-1, 3, 2}, {-1, 0, 0}},
        {DURATION, {NOW, -5, 1}, {NOW, -5, 0}},
    };
    for (const auto& sample : samples) {
        setTime(NOW + sample.elapsed);
        EXPECT_EQ(sample.expected, fieldsOf(Curve::createHistoricalInfoToSave(&sample.info, &header_)))
            << sample.elapsed << " level " << sample.info.getLevel();
    }
}

TEST_F(ForgettingCurveTest, OnlyInvisibleEntriesAreDroppedAndOnlyLate) {
    const HistoricalInfo invisible(NOW, 0, 0);
    const HistoricalInfo visible(NOW, 1, 0);
    setTime(NOW + 14 * DURATION / 16 - 1);
    EXPECT_TRUE(Curve::needsToKeep(&invisible, &header_));
    setTime(NOW + 14 * DURATION / 16);
    EXPECT_FALSE(Curve::needsToKeep(&invisible, &header_));
    setTime(INT_MAX);
    EXPECT_TRUE(Curve::needsToKeep(&visible, &header_));
}

TEST_F(ForgettingCurveTest, DecayIsDueEveryTwoHoursOrWhenThereAreTooMany) {
    for (const int elapsed : {0, 7200}) {
        setTime(NOW + elapsed);
        EXPECT_FALSE(Curve::needsToDecay(false, 119, 119, &header_)) << elapsed;
    }
    EXPECT_TRUE(Curve::needsToDecay(true, 120, 0, &header_)) << "at a fifth more than the maximum";
    EXPECT_TRUE(Curve::needsToDecay(true, 0, 120, &header_));
    setTime(NOW + 7201);
    EXPECT_TRUE(Curve::needsToDecay(false, 0, 0, &header_));
    EXPECT_FALSE(Curve::needsToDecay(true, 119, 119, &header_));

    const HeaderPolicy future = headerOf({.lastDecayedTime = INT_MAX});
    EXPECT_FALSE(Curve::needsToDecay(false, 0, 0, &future));
    const HeaderPolicy past = headerOf({.lastDecayedTime = INT_MIN});
    EXPECT_TRUE(Curve::needsToDecay(false, 0, 0, &past));
    EXPECT_EQ(12000, Curve::getUnigramCountHardLimit(10000));
    EXPECT_EQ(-1, Curve::getBigramCountHardLimit(-1)) << "towards 0";
    EXPECT_EQ(INT_MAX, Curve::getBigramCountHardLimit(INT_MAX));
}

TEST_F(ForgettingCurveTest, PairsCountTwiceButNeverBelowTheWord) {
    const std::vector<std::vector<int>> samples = {
        {-1, 200, -1},   {100, -1, 100},    {300, -1, 255},    {100, 91, 100}, {100, 93, 101},
        {100, 250, 255}, {0, INT_MAX, 255}, {INT_MAX, 0, 255}, {5, 0, 8},      {-7, INT_MIN, -7},
    };
    for (const auto& sample : samples) {
        EXPECT_EQ(sample[2], Curve::getProbability(sample[0], sample[1])) << sample[0] << " " << sample[1];
    }
}

TEST_F(ForgettingCurveTest, StepsAreSixteenthsOfTheDuration) {
    EXPECT_EQ(0, Curve::getElapsedTimeStepCount(NOW - 99, DURATION));
    EXPECT_EQ(1, Curve::getElapsedTimeStepCount(NOW - 100, DURATION + 15)) << "whole seconds a step";
    EXPECT_EQ(-1, Curve::getElapsedTimeStepCount(NOW + 100, DURATION)) << "the clock went back";
    EXPECT_EQ(1000, Curve::getElapsedTimeStepCount(NOW - 1000, 16));
    for (const int duration : {15, 0, -1, INT_MIN}) {
        EXPECT_EQ(1, Curve::getElapsedTimeStepCount(NOW - DEFAULT_STEP, duration)) << duration;
        EXPECT_EQ(0, Curve::getElapsedTimeStepCount(NOW - DEFAULT_STEP + 1, duration)) << duration;
    }
    EXPECT_EQ(INT_MAX, Curve::getElapsedTimeStepCount(INT_MIN, 16));
    setTime(INT_MIN);
    EXPECT_EQ(INT_MIN, Curve::getElapsedTimeStepCount(INT_MAX, 16));
}

TEST_F(ForgettingCurveTest, SenselessSettingsGiveWayToTheDefaults) {
    const HistoricalInfo info(NOW, 2, 0);
    for (const int value : {INT_MIN, -1, 4, INT_MAX}) {
        const HeaderPolicy header = headerOf({.tableId = value});
        EXPECT_EQ(120, Curve::decodeProbability(&info, &header)) << value;
    }
    for (const int value : {INT_MIN, -1, 0}) {
        const HeaderPolicy header = headerOf({.occurrences = value});
        const HistoricalInfo once = Curve::createUpdatedHistoricalInfo(&info, -1, &info, &header);
        EXPECT_EQ((std::vector<int>{NOW, 2, 1}), fieldsOf(once)) << value;
    }
}

/// The sanitizers watch; the results need only lie in their ranges.
TEST_F(ForgettingCurveTest, BearsAnyValues) {
    for (const int now : EXTREMES) {
        setTime(now);
        for (const int duration : EXTREMES) {
            const HeaderPolicy header = headerOf({.duration = duration, .occurrences = duration});
            for (const int timestamp : EXTREMES) {
                for (const int other : EXTREMES) {
                    const HistoricalInfo info(timestamp, other, other);
                    const int probability = Curve::decodeProbability(&info, &header);
                    ASSERT_TRUE(probability == -1 || (probability >= 40 && probability <= 160));
                    const HistoricalInfo saved = Curve::createHistoricalInfoToSave(&info, &header);
                    ASSERT_LE(saved.getLevel(), std::max(other, 0));
                    const HistoricalInfo updated =
                        Curve::createUpdatedHistoricalInfo(&saved, other, &info, &header);
                    ASSERT_EQ(timestamp, updated.getTimeStamp());
                    ASSERT_TRUE(Curve::needsToKeep(&info, &header) || other <= 0);
                }
            }
        }
    }
}

}  // namespace
}  // namespace wordengine::test
