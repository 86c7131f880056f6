// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <limits>

namespace wordengine {

// Sentinels and limits that hold across the whole engine.

inline constexpr int NO_CODE_POINT = -1;
inline constexpr int NO_COORDINATE = -1;
inline constexpr int NO_INDEX = -1;
inline constexpr int NO_PROBABILITY = -1;
inline constexpr int NO_DICT_POS = std::numeric_limits<int>::min();

/// "Infinitely far", as an integer and as a float.
inline constexpr int WEIGHT_CEILING = 10000000;
inline constexpr float WEIGHT_CEILING_FLOAT = 1e7f;

/// The longest word in code points, and the size of every buffer that holds one.
inline constexpr int WORD_LENGTH_LIMIT = 48;

/// Marks the start of a sentence in a dictionary; one above the last Unicode code point.
inline constexpr int CODE_POINT_BEGINNING_OF_SENTENCE = 0x110000;

inline constexpr int CODE_POINT_SPACE = 0x20;
inline constexpr int CODE_POINT_APOSTROPHE = 0x27;
inline constexpr int CODE_POINT_HYPHEN = 0x2D;

}  // namespace wordengine
