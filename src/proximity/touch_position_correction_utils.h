// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>

namespace wordengine {

class TouchPositionCorrectionUtils {
public:
    TouchPositionCorrectionUtils() = delete;

    /// Turns the normalized squared distance from a key's sweet spot into a cost factor, 0 to 1.2. With
    /// touch position correction, a touch within half a key width costs little; beyond, steeply more.
    static float getSweetSpotFactor(bool isTouchPositionCorrectionEnabled, float normalizedSquaredDistance) {
        constexpr float A = 0.0f;
        constexpr float B = 0.24f;
        constexpr float C = 1.2f;
        constexpr float R1 = 0.25f;
        constexpr float R2 = 1.0f;
        const float x = normalizedSquaredDistance;
        if (!isTouchPositionCorrectionEnabled) return std::min(C, x);
        if (x < 0.0f) return A;
        if (x < R1) return (A * (R1 - x) + B * (x - 0.0f)) / R1;
        if (x < R2) return (B * (R2 - x) + C * (x - R1)) / (R2 - R1);
        return C;
    }
};

}  // namespace wordengine
