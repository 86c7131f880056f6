// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace wordengine::testing {

/// What typing costs, written down a second time: a slip of the pen in the engine's own table must show.
namespace price {
inline constexpr double OF_KEY_WIDTHS = 0.1524;
inline constexpr double LANGUAGE = 1.1214;
inline constexpr double NEAR_KEY = 0.0694;
inline constexpr double NEAR_KEY_AT_START = 0.072;
inline constexpr double FIRST_NEAR_KEY = 0.07788;
inline constexpr double NEAR_KEY_AT_END = 0.0683;
inline constexpr double EDIT_AT_END = 0.0362;
inline constexpr double OMITTED = 0.467;
inline constexpr double OMITTED_DOUBLE = 0.345;
inline constexpr double OMITTED_FIRST = 0.5256;
inline constexpr double OMITTED_HYPHEN = 0.1;
inline constexpr double INSERTED = 0.7248;
inline constexpr double INSERTED_TWICE = 0.5508;
inline constexpr double INSERTED_NEAR = 0.674;
inline constexpr double INSERTED_FIRST = 0.639;
inline constexpr double INSERTED_BEHIND = 0.8128;
inline constexpr double SWAPPED = 0.5608;
inline constexpr double SUBSTITUTED = 0.3806;
inline constexpr double NEW_WORD = 0.0314;
inline constexpr double SPACE_HIT_AS_LETTER = 0.334;
inline constexpr double SEVERAL_WORDS_AT_END = 0.4182;
inline constexpr double CAPITAL_IN_LATER_WORD = 0.3224;
inline constexpr double FIRST_COMPLETED = 0.4836;
inline constexpr double COMPLETED = 0.00624;
}  // namespace price

/// Scores are compared up to this: what 32-bit sums lose, in millionths.
inline constexpr int SCORE_TOLERANCE = 4;

/// 0 to 0.24 up to half a key width, steeply on to 1.2 at a whole one.
inline double aimFactor(double squaredKeyWidths) {
    if (squaredKeyWidths < 0.25) return squaredKeyWidths * 0.96;
    if (squaredKeyWidths < 1) return 0.24 + (squaredKeyWidths - 0.25) * 1.28;
    return 1.2;
}

inline double languageCost(int probability) {
    return (255 - probability) / 255.0 * price::LANGUAGE;
}

/// A pair's strength of 0 to 15 lifts the word's own probability towards 255.
inline int liftedProbability(int probability, int pairStrength) {
    return probability + static_cast<int>((pairStrength + 1) * ((255 - probability) / 16.5));
}

/// `bonus` is what an exact match gets, less what its case, accents and digraphs take off.
inline int finalScore(double distance, int points, double bonus = 0) {
    const double score = (1 - distance / (1.1214 + points * 0.1) + bonus) * 1e6;
    return score < -2147483648.0 ? std::numeric_limits<int>::min() : static_cast<int>(score);
}

/// The folding that the tests' words need.
inline char32_t baseOf(char32_t letter) {
    constexpr std::u32string_view ACCENTED = U"\u00E9\u00C9\u00E8\u00F6\u00D6\u00FC\u00DC\u00E4\u00C4\u00F1";
    constexpr std::u32string_view BASES = U"eEeoOuUaAn";
    const size_t i = ACCENTED.find(letter);
    return i == std::u32string_view::npos ? letter : BASES[i];
}
inline bool isCapital(char32_t letter) {
    return letter >= U'A' && letter <= U'Z';
}
inline char32_t smallOf(char32_t letter) {
    const bool isAccentedCapital = letter >= 0xC0 && letter <= 0xDE && letter != 0xD7;
    return isCapital(letter) || isAccentedCapital ? letter + 32 : letter;
}
inline char32_t smallBaseOf(char32_t letter) {
    return smallOf(baseOf(letter));
}

}  // namespace wordengine::testing
