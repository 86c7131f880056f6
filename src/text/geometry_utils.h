// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// Plane geometry of touch points. Stateless; coordinates are pixels, angles radians.
class GeometryUtils {
public:
    GeometryUtils() = delete;

    [[nodiscard]] static constexpr float SQUARE_FLOAT(float x) { return x * x; }

    /// The distance, cut to an integer; at most the largest int.
    [[nodiscard]] static int getDistanceInt(int x1, int y1, int x2, int y2);

    /// The direction from (x2, y2) to (x1, y1), from -pi to pi; 0 for one and the same point.
    [[nodiscard]] static float getAngle(int x1, int y1, int x2, int y2);

    /// How far two directions lie apart, cut to four decimals, for directions as getAngle gives them.
    [[nodiscard]] static float getAngleDiff(float a1, float a2);

    /// Cuts to four decimals what lies between 0.001 and 1000; anything else stays as it is.
    [[nodiscard]] static float roundFloat10000(float f);
};

}  // namespace wordengine
