// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// The tuning of the typing policy. Costs are distances, probabilities run from 0 to 255.
struct ScoringParams {
    static constexpr float MAX_SPATIAL_DISTANCE = 1.0f;
    static constexpr int THRESHOLD_NEXT_WORD_PROBABILITY = 40;
    static constexpr int THRESHOLD_NEXT_WORD_PROBABILITY_FOR_CAPPED = 120;
    static constexpr float AUTOCORRECT_OUTPUT_THRESHOLD = 1.0f;
    static constexpr float EXACT_MATCH_PROMOTION = 1.1f;
    static constexpr float CASE_ERROR_PENALTY_FOR_EXACT_MATCH = 0.01f;
    static constexpr float ACCENT_ERROR_PENALTY_FOR_EXACT_MATCH = 0.02f;
    static constexpr float DIGRAPH_PENALTY_FOR_EXACT_MATCH = 0.03f;

    static constexpr int MAX_CACHE_DIC_NODE_SIZE = 170;
    static constexpr int MAX_CACHE_DIC_NODE_SIZE_FOR_SINGLE_POINT = 310;
    static constexpr int THRESHOLD_SHORT_WORD_LENGTH = 4;

    static constexpr float DISTANCE_WEIGHT_LENGTH = 0.1524f;
    static constexpr float PROXIMITY_COST = 0.0694f;
    static constexpr float FIRST_CHAR_PROXIMITY_COST = 0.072f;
    static constexpr float FIRST_PROXIMITY_COST = 0.07788f;
    static constexpr float INTENTIONAL_OMISSION_COST = 0.1f;
    static constexpr float OMISSION_COST = 0.467f;
    static constexpr float OMISSION_COST_SAME_CHAR = 0.345f;
    static constexpr float OMISSION_COST_FIRST_CHAR = 0.5256f;
    static constexpr float INSERTION_COST = 0.7248f;
    static constexpr float TERMINAL_INSERTION_COST = 0.8128f;
    static constexpr float INSERTION_COST_SAME_CHAR = 0.5508f;
    static constexpr float INSERTION_COST_PROXIMITY_CHAR = 0.674f;
    static constexpr float INSERTION_COST_FIRST_CHAR = 0.639f;
    static constexpr float TRANSPOSITION_COST = 0.5608f;
    static constexpr float SPACE_SUBSTITUTION_COST = 0.334f;
    static constexpr float ADDITIONAL_PROXIMITY_COST = 0.4576f;
    static constexpr float SUBSTITUTION_COST = 0.3806f;
    static constexpr float COST_NEW_WORD = 0.0314f;
    static constexpr float COST_SECOND_OR_LATER_WORD_FIRST_CHAR_UPPERCASE = 0.3224f;
    static constexpr float DISTANCE_WEIGHT_LANGUAGE = 1.1214f;
    static constexpr float COST_FIRST_COMPLETION = 0.4836f;
    static constexpr float COST_COMPLETION = 0.00624f;
    static constexpr float HAS_PROXIMITY_TERMINAL_COST = 0.0683f;
    static constexpr float HAS_EDIT_CORRECTION_TERMINAL_COST = 0.0362f;
    static constexpr float HAS_MULTI_WORD_TERMINAL_COST = 0.4182f;

    static constexpr float TYPING_BASE_OUTPUT_SCORE = 1.0f;
    static constexpr float TYPING_MAX_OUTPUT_SCORE_PER_INPUT = 0.1f;
    static constexpr float NORMALIZED_SPATIAL_DISTANCE_THRESHOLD_FOR_EDIT = 0.095f;
};

}  // namespace wordengine
