// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info_utils.h"

#include "proximity/additional_proximity_chars.h"
#include "proximity/bounded_numbers.h"
#include "proximity/proximity_info.h"
#include "proximity/proximity_params.h"
#include "text/engine_constants.h"
#include "text/geometry_utils.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace wordengine {

namespace {

/// A proximity list while it is filled; what does not fit is dropped.
class SlotWriter {
public:
    explicit SlotWriter(int* slots) : slots_(slots) {}

    bool full() const { return count_ == PROXIMITY_SLOT_COUNT; }
    bool contains(int codePoint) const {
        return std::find(slots_, slots_ + count_, codePoint) != slots_ + count_;
    }
    void add(int codePoint) {
        if (!full()) slots_[count_++] = codePoint;
    }
    void pad() { std::fill(slots_ + count_, slots_ + PROXIMITY_SLOT_COUNT, NO_CODE_POINT); }

private:
    int* slots_;
    int count_ = 0;
};

void addNearKeys(const ProximityInfo& proximityInfo, int primaryCodePoint, int x, int y, SlotWriter& slots) {
    for (const int codePoint : proximityInfo.getProximityCharsOfCell(x, y)) {
        if (codePoint < CODE_POINT_SPACE || codePoint == primaryCodePoint) continue;
        if (proximityInfo.isOnOrNearKey(proximityInfo.getKeyIndexOf(codePoint), x, y)) slots.add(codePoint);
    }
}

void addAdditionalChars(const char* locale, int primaryCodePoint, SlotWriter& slots) {
    const int size = AdditionalProximityChars::getAdditionalCharsSize(locale, primaryCodePoint);
    if (size <= 0) return;
    slots.add(ADDITIONAL_CHARS_DELIMITER);
    const int* const additionalChars = AdditionalProximityChars::getAdditionalChars(locale, primaryCodePoint);
    for (const int codePoint : std::span(additionalChars, static_cast<size_t>(size))) {
        if (!slots.contains(codePoint)) slots.add(codePoint);
    }
}

}  // namespace

bool ProximityInfoUtils::isOnKey(const int* keyXs, const int* keyYs, const int* keyWidths,
                                 const int* keyHeights, int keyId, int x, int y) {
    if (keyId < 0) return true;
    const int left = keyXs[keyId];
    const int top = keyYs[keyId];
    // Kept: only the right edge reaches one pixel further.
    const int right = left + keyWidths[keyId] + 1;
    const int bottom = top + keyHeights[keyId];
    return left < right && top < bottom && left <= x && x < right && top <= y && y < bottom;
}

int ProximityInfoUtils::squaredLengthToEdge(const int* keyXs, const int* keyYs, const int* keyWidths,
                                            const int* keyHeights, int keyId, int x, int y) {
    if (keyId < 0) return WEIGHT_CEILING;
    const int left = keyXs[keyId];
    const int top = keyYs[keyId];
    const int edgeX = std::max(left, std::min(x, left + keyWidths[keyId]));
    const int edgeY = std::max(top, std::min(y, top + keyHeights[keyId]));
    const int64_t dx = int64_t{x} - edgeX;
    const int64_t dy = int64_t{y} - edgeY;
    return saturatedInt(dx * dx + dy * dy);
}

float ProximityInfoUtils::getSquaredDistanceFloat(float x1, float y1, float x2, float y2) {
    return GeometryUtils::SQUARE_FLOAT(x1 - x2) + GeometryUtils::SQUARE_FLOAT(y1 - y2);
}

void ProximityInfoUtils::buildProximityCodePoints(const ProximityInfo& proximityInfo, int primaryCodePoint,
                                                  int x, int y, int* proximities) {
    SlotWriter slots(proximities);
    slots.add(primaryCodePoint);
    if (x != NO_COORDINATE && y != NO_COORDINATE) {
        addNearKeys(proximityInfo, primaryCodePoint, x, y, slots);
        addAdditionalChars(proximityInfo.getLocale(), primaryCodePoint, slots);
    }
    slots.pad();
}

}  // namespace wordengine
