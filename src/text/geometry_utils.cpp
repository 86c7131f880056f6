// SPDX-License-Identifier: Apache-2.0
#include "text/geometry_utils.h"

#include <cmath>
#include <limits>

namespace wordengine {

namespace {

constexpr float PI = 3.1415927f;
constexpr float TWO_PI = 6.2831855f;

/// The difference of two ints where overflow wraps around, since coordinates come from outside.
int wrappingDifference(int minuend, int subtrahend) {
    return static_cast<int>(static_cast<unsigned>(minuend) - static_cast<unsigned>(subtrahend));
}

}  // namespace

int GeometryUtils::getDistanceInt(int x1, int y1, int x2, int y2) {
    const float distance = hypotf(static_cast<float>(x1) - static_cast<float>(x2),
                                  static_cast<float>(y1) - static_cast<float>(y2));
    // The smallest float that an int cannot hold.
    if (distance >= 2147483648.0f) return std::numeric_limits<int>::max();
    return static_cast<int>(distance);
}

float GeometryUtils::getAngle(int x1, int y1, int x2, int y2) {
    const int dx = wrappingDifference(x1, x2);
    const int dy = wrappingDifference(y1, y2);
    if (dx == 0 && dy == 0) return 0.0f;
    return atan2f(static_cast<float>(dy), static_cast<float>(dx));
}

float GeometryUtils::getAngleDiff(float a1, float a2) {
    const float difference = roundFloat10000(fabsf(a1 - a2));
    return difference > PI ? roundFloat10000(TWO_PI - difference) : difference;
}

float GeometryUtils::roundFloat10000(float f) {
    if (f > 0.001f && f < 1000.0f) return floorf(f * 10000.0f) / 10000.0f;
    return f;
}

}  // namespace wordengine
