// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// How far a word is from what was typed, for the decision whether it may replace it.
class AutocorrectionThresholdUtils {
public:
    static constexpr int MAX_INITIAL_SCORE = 255;
    static constexpr int TYPED_LETTER_MULTIPLIER = 2;
    static constexpr int FULL_WORD_MULTIPLIER = 2;

    AutocorrectionThresholdUtils() = delete;

    /// The score in units of a perfect word, times the part of `after` that agrees with `before`.
    static float calcNormalizedScore(const int* before, int beforeLength, const int* after, int afterLength,
                                     int score);
    /// Letters left out, put in, replaced or swapped; case and accents are no difference.
    static int editDistance(const int* before, int beforeLength, const int* after, int afterLength);
};

}  // namespace wordengine
