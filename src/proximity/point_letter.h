// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/proximity_type.h"
#include "text/engine_constants.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wordengine {

/// How a letter looks from an input point.
struct PointLetter {
    /// The letter, its neighbour, or one that is often taken for it was hit.
    bool isNear() const {
        return type == PROXIMITY_MATCH || type == PROXIMITY_NEAR || type == PROXIMITY_ADDITIONAL;
    }

    int codePoint = NO_CODE_POINT;
    float length = 0.0f;  ///< normalized squared distance to the letter's key
    uint16_t generation = 0;
    ProximityType type = PROXIMITY_UNRELATED;
    bool isPrimaryLetter = false;  ///< but for case and accent it is what the point typed
};

/// What has been found out about letters and points: a search asks about the same few letters thousands of
/// times. One letter a place: of two that fall on the same, the later stays.
class PointLetterCache {
public:
    /// Before the first letter of an input of up to WORD_LENGTH_LIMIT points.
    void clear() {
        if (!letters_.empty() && ++generation_ != 0) return;
        letters_.assign(static_cast<size_t>(WORD_LENGTH_LIMIT) << LETTER_BITS, PointLetter());
        generation_ = 1;
    }

    PointLetter& placeOf(int pointIndex, int codePoint) {
        const unsigned int letter = static_cast<unsigned int>(codePoint) & ((1u << LETTER_BITS) - 1);
        return letters_[(static_cast<size_t>(pointIndex) << LETTER_BITS) | letter];
    }
    bool isKnown(const PointLetter& letter, int codePoint) const {
        return letter.codePoint == codePoint && letter.generation == generation_;
    }
    uint16_t generation() const { return generation_; }

private:
    /// The letters of a script differ in their last bits.
    static constexpr int LETTER_BITS = 7;

    std::vector<PointLetter> letters_;
    uint16_t generation_ = 1;
};

}  // namespace wordengine
