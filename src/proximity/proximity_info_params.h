// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// Constants of the key geometry and of the sampled mode. Normalized distances are in squares of the most
/// common key width, angles in radians, times in milliseconds, percentages in their names.
class ProximityInfoParams {
public:
    ProximityInfoParams() = delete;

    static constexpr float VERTICAL_SWEET_SPOT_SCALE = 1.0f;
    static constexpr float VERTICAL_SWEET_SPOT_SCALE_G = 0.5f;

    static constexpr float NOT_A_DISTANCE_FLOAT = -1.0f;

    // Which raw points are kept.
    static constexpr float NEAR_KEY_THRESHOLD_FOR_DISTANCE = 2.0f;
    static constexpr float MARGIN_FOR_PREV_LOCAL_MIN = 0.01f;
    static constexpr float NEAR_KEY_THRESHOLD_FOR_POINT_SCORE = 0.6f;
    static constexpr int DISTANCE_BASE_SCALE = 100;
    static constexpr int CORNER_CHECK_DISTANCE_THRESHOLD_SCALE = 25;
    static constexpr float NOT_LOCALMIN_DISTANCE_SCORE = -1.0f;
    static constexpr float LOCALMIN_DISTANCE_AND_NEAR_TO_KEY_SCORE = 1.0f;
    static constexpr float CORNER_ANGLE_THRESHOLD_FOR_POINT_SCORE = 2.0943952f;
    static constexpr float CORNER_SUM_ANGLE_THRESHOLD = 0.7853982f;
    static constexpr float CORNER_SCORE = 1.0f;
    static constexpr int LAST_POINT_SKIP_DISTANCE_SCALE = 4;

    // Speed along the trace.
    static constexpr int NUM_POINTS_FOR_SPEED_CALCULATION = 2;
    static constexpr int LOOKUP_RADIUS_PERCENTILE = 50;
    static constexpr int FIRST_POINT_TIME_OFFSET_MILLIS = 150;
    static constexpr int STRONG_DOUBLE_LETTER_TIME_MILLIS = 600;
    static constexpr int MIN_DOUBLE_LETTER_BEELINE_SPEED_PERCENTILE = 5;

    // How likely a point means no key at all.
    static constexpr float MIN_PROBABILITY = 0.000005f;
    static constexpr float MAX_SKIP_PROBABILITY = 0.95f;
    static constexpr float SKIP_FIRST_POINT_PROBABILITY = 0.01f;
    static constexpr float SKIP_LAST_POINT_PROBABILITY = 0.1f;
    static constexpr float MIN_SPEED_RATE_FOR_SKIP_PROBABILITY = 0.15f;
    static constexpr float SPEED_WEIGHT_FOR_SKIP_PROBABILITY = 0.9f;
    static constexpr float SLOW_STRAIGHT_WEIGHT_FOR_SKIP_PROBABILITY = 0.6f;
    static constexpr float NEAREST_DISTANCE_WEIGHT = 0.5f;
    static constexpr float NEAREST_DISTANCE_BIAS = 0.5f;
    static constexpr float NEAREST_DISTANCE_WEIGHT_FOR_LAST = 0.6f;
    static constexpr float NEAREST_DISTANCE_BIAS_FOR_LAST = 0.4f;
    static constexpr float ANGLE_WEIGHT = 0.9f;
    static constexpr float DEEP_CORNER_ANGLE_THRESHOLD = 1.0471976f;
    static constexpr float SKIP_DEEP_CORNER_PROBABILITY = 0.1f;
    static constexpr float CORNER_ANGLE_THRESHOLD = 0.5235988f;
    static constexpr float STRAIGHT_ANGLE_THRESHOLD = 0.2617994f;
    static constexpr float SKIP_CORNER_PROBABILITY = 0.4f;
    static constexpr float SPEED_MARGIN = 0.1f;

    // How the rest is shared out among the keys.
    static constexpr float CENTER_VALUE_OF_NORMALIZED_DISTRIBUTION = 0.0f;
    static constexpr float SPEEDxANGLE_WEIGHT_FOR_STANDARD_DEVIATION = 0.3f;
    static constexpr float MAX_SPEEDxANGLE_RATE_FOR_STANDARD_DEVIATION = 0.25f;
    static constexpr float SPEEDxNEAREST_WEIGHT_FOR_STANDARD_DEVIATION = 0.5f;
    static constexpr float MAX_SPEEDxNEAREST_RATE_FOR_STANDARD_DEVIATION = 0.15f;
    static constexpr float MIN_STANDARD_DEVIATION = 0.37f;
    static constexpr float STANDARD_DEVIATION_X_WEIGHT_FOR_FIRST = 1.25f;
    static constexpr float STANDARD_DEVIATION_Y_WEIGHT_FOR_FIRST = 0.85f;
    static constexpr float STANDARD_DEVIATION_X_WEIGHT_FOR_LAST = 1.4f;
    static constexpr float STANDARD_DEVIATION_Y_WEIGHT_FOR_LAST = 0.95f;
    static constexpr float STANDARD_DEVIATION_X_WEIGHT = 1.1f;
    static constexpr float STANDARD_DEVIATION_Y_WEIGHT = 0.95f;

    // How a point's likely key makes the same key less likely at its neighbours on the trace.
    static constexpr float SUPPRESSION_LENGTH_WEIGHT = 1.5f;
    static constexpr float MIN_SUPPRESSION_RATE = 0.1f;
    static constexpr float SUPPRESSION_WEIGHT = 0.5f;
    static constexpr float SUPPRESSION_WEIGHT_FOR_PROBABILITY_GAIN = 0.1f;
    static constexpr float SKIP_PROBABALITY_WEIGHT_FOR_PROBABILITY_GAIN = 0.3f;

    static constexpr float DEMOTION_LOG_PROBABILITY = 0.3f;
    static constexpr float SEARCH_KEY_RADIUS_RATIO = 0.95f;
};

}  // namespace wordengine
