// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace wordengine {

/// Keyboards are at most some thousand pixels wide; a coordinate beyond this limit comes from a damaged
/// file or a careless caller. Values within it are exact in a float, and their differences, lengths and
/// truncated distances stay inside an int.
inline constexpr int COORDINATE_LIMIT = 1 << 24;

inline int boundedCoordinate(int value) {
    return std::clamp(value, -COORDINATE_LIMIT, COORDINATE_LIMIT);
}

/// NaN becomes 0; whatever comes out may be converted to an int.
inline float boundedReal(float value) {
    if (value != value) return 0.0f;
    return std::clamp(value, static_cast<float>(-COORDINATE_LIMIT), static_cast<float>(COORDINATE_LIMIT));
}

inline int saturatedInt(int64_t value) {
    constexpr int64_t LOWEST = std::numeric_limits<int>::min();
    constexpr int64_t HIGHEST = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, LOWEST, HIGHEST));
}

}  // namespace wordengine
