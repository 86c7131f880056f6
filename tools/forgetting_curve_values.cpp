// SPDX-License-Identifier: Apache-2.0
// Prints how a word fades that reached the highest level and is never used again: for each table of
// probabilities and each step of time the seconds, the level and the probability, as one line with tabs.
// tools/draw_forgetting_curve makes a picture of it.
#include "dictionary/header_policy.h"
#include "dictionary/v4/forgetting_curve_utils.h"
#include "text/time_keeper.h"

#include <cstdio>

using wordengine::ForgettingCurveUtils;
using wordengine::HeaderPolicy;
using wordengine::HistoricalInfo;
using wordengine::TimeKeeper;
using Table = ForgettingCurveUtils::ProbabilityTable;

namespace {

constexpr int DURATION = HeaderPolicy::DEFAULT_FORGETTING_CURVE_DURATION_TO_LEVEL_DOWN_IN_SECONDS;
constexpr int STEP = DURATION / (ForgettingCurveUtils::MAX_ELAPSED_TIME_STEP_COUNT + 1);
/// One for each level, and some time with nothing left.
constexpr int DRAWN_SECONDS = DURATION * (ForgettingCurveUtils::MAX_LEVEL + 1);

HeaderPolicy headerWithTable(int tableId) {
    HeaderPolicy::AttributeMap attributes;
    wordengine::HeaderReadWriteUtils::setIntAttribute(
        &attributes, HeaderPolicy::FORGETTING_CURVE_PROBABILITY_VALUES_TABLE_ID_KEY, tableId);
    return HeaderPolicy(wordengine::FormatUtils::VERSION_403, {}, &attributes);
}

void printCurve(const char* name, int tableId) {
    const HeaderPolicy header = headerWithTable(tableId);
    HistoricalInfo info(0, ForgettingCurveUtils::MAX_LEVEL, 0);
    for (int seconds = 0; seconds <= DRAWN_SECONDS; seconds += STEP) {
        TimeKeeper::startTestModeWithForceCurrentTime(seconds);
        // As compactions do it in between.
        info = ForgettingCurveUtils::createHistoricalInfoToSave(&info, &header);
        std::printf("%s\t%d\t%d\t%d\n", name, seconds, info.getLevel(),
                    ForgettingCurveUtils::decodeProbability(&info, &header));
    }
}

}  // namespace

int main() {
    std::puts("table\tseconds\tlevel\tprobability");
    printCurve("weak", Table::WEAK_PROBABILITY_TABLE_ID);
    printCurve("modest", Table::MODEST_PROBABILITY_TABLE_ID);
    printCurve("strong", Table::STRONG_PROBABILITY_TABLE_ID);
    printCurve("aggressive", Table::AGGRESSIVE_PROBABILITY_TABLE_ID);
    return std::fflush(stdout) == 0 ? 0 : 1;
}
