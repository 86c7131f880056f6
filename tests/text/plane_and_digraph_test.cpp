// SPDX-License-Identifier: Apache-2.0
#include "text/digraph_utils.h"
#include "text/geometry_utils.h"
#include "text/time_keeper.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <ctime>
#include <limits>

namespace wordengine {
namespace {

struct Header {
    bool umlauts;
    [[nodiscard]] bool requiresGermanUmlautProcessing() const { return umlauts; }
};

TEST(DigraphUtils, OnlyDictionariesThatAskHaveThem) {
    const Header german{true};
    const Header english{false};
    for (const int letter : {0xE4, 0xF6, 0xFC, 0xC4, 0xD6, 0xDC}) {
        EXPECT_TRUE(DigraphUtils::hasDigraphForCodePoint(&german, letter)) << letter;
        EXPECT_FALSE(DigraphUtils::hasDigraphForCodePoint(&english, letter)) << letter;
    }
    for (const int letter : {static_cast<int>('a'), static_cast<int>('e'), 0xE9, 0xDF, -1, INT_MAX}) {
        EXPECT_FALSE(DigraphUtils::hasDigraphForCodePoint(&german, letter)) << letter;
        EXPECT_EQ(nullptr, DigraphUtils::getDigraphForCodePoint(letter));
    }
    const auto at = DigraphUtils::getDigraphCodePointForIndex;
    EXPECT_EQ('o', at(0xD6, DigraphUtils::FIRST_DIGRAPH_CODEPOINT));
    EXPECT_EQ('e', at(0xFC, DigraphUtils::SECOND_DIGRAPH_CODEPOINT));
    EXPECT_EQ(NO_CODE_POINT, at('u', DigraphUtils::FIRST_DIGRAPH_CODEPOINT));
}

TEST(GeometryUtils, DistancesAreCut) {
    EXPECT_EQ(5, GeometryUtils::getDistanceInt(0, 0, 3, 4));
    EXPECT_EQ(5, GeometryUtils::getDistanceInt(3, -4, 0, 0));
    EXPECT_EQ(1, GeometryUtils::getDistanceInt(0, 0, 1, 1));
    EXPECT_EQ(0, GeometryUtils::getDistanceInt(7, 7, 7, 7));
    EXPECT_EQ(INT_MAX, GeometryUtils::getDistanceInt(INT_MIN, INT_MIN, INT_MAX, INT_MAX));
}

TEST(GeometryUtils, AnglesPointFromSecondToFirst) {
    const float pi = 3.14159265f;
    EXPECT_EQ(0.0f, GeometryUtils::getAngle(4, 5, 4, 5));
    EXPECT_EQ(0.0f, GeometryUtils::getAngle(9, 5, 4, 5));
    EXPECT_FLOAT_EQ(pi, GeometryUtils::getAngle(4, 5, 9, 5));
    EXPECT_FLOAT_EQ(pi / 2, GeometryUtils::getAngle(4, 9, 4, 5));
    EXPECT_FLOAT_EQ(-pi / 2, GeometryUtils::getAngle(4, 5, 4, 9));
    EXPECT_FLOAT_EQ(-3 * pi / 4, GeometryUtils::getAngle(0, 0, 1, 1));
    EXPECT_TRUE(std::isfinite(GeometryUtils::getAngle(INT_MAX, INT_MAX, INT_MIN, INT_MIN)));
}

TEST(GeometryUtils, AngleDifferencesTakeTheShorterWayRound) {
    for (float a = -3.14f; a < 3.14f; a += 0.11f) {
        for (float b = -3.14f; b < 3.14f; b += 0.13f) {
            const float difference = GeometryUtils::getAngleDiff(a, b);
            EXPECT_EQ(difference, GeometryUtils::getAngleDiff(b, a));
            EXPECT_NEAR(std::acos(std::cos(a - b)), difference, 1e-3f) << a << " " << b;
        }
    }
}

TEST(GeometryUtils, RoundingCutsOnlyInsideItsRange) {
    EXPECT_EQ(0.0005f, GeometryUtils::roundFloat10000(0.0005f));
    EXPECT_EQ(0.001f, GeometryUtils::roundFloat10000(0.001f));
    EXPECT_EQ(0.0012f, GeometryUtils::roundFloat10000(0.00129f));
    EXPECT_EQ(1.2345f, GeometryUtils::roundFloat10000(1.23459f));
    EXPECT_EQ(1000.00006f, GeometryUtils::roundFloat10000(1000.00006f));
    EXPECT_EQ(-1.23459f, GeometryUtils::roundFloat10000(-1.23459f));
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(infinity, GeometryUtils::roundFloat10000(infinity));
}

TEST(TimeKeeper, TestModeHoldsTheTimeUntilItIsStopped) {
    TimeKeeper::startTestModeWithForceCurrentTime(12345);
    TimeKeeper::setCurrentTime();
    EXPECT_EQ(12345, TimeKeeper::peekCurrentTime());
    TimeKeeper::stopTestMode();
    EXPECT_EQ(12345, TimeKeeper::peekCurrentTime());
    const auto before = static_cast<int>(std::time(nullptr));
    TimeKeeper::setCurrentTime();
    EXPECT_GE(TimeKeeper::peekCurrentTime(), before);
}

}  // namespace
}  // namespace wordengine
