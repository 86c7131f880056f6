// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

class ProximityInfo;

/// Plane geometry of keys, and the list of keys that one typed point may have meant.
class ProximityInfoUtils {
public:
    ProximityInfoUtils() = delete;

    /// Whether (x, y) lies on the key's rectangle, its right edge counted one pixel wider; true for a
    /// negative keyId. The arrays hold an entry for keyId.
    static bool isOnKey(const int* keyXs, const int* keyYs, const int* keyWidths, const int* keyHeights,
                        int keyId, int x, int y);

    /// Squared pixels from (x, y) to the key's rectangle, 0 inside; WEIGHT_CEILING for a negative keyId.
    static int squaredLengthToEdge(const int* keyXs, const int* keyYs, const int* keyWidths,
                                   const int* keyHeights, int keyId, int x, int y);

    static float getSquaredDistanceFloat(float x1, float y1, float x2, float y2);

    /// Fills the PROXIMITY_SLOT_COUNT places of `proximities`: the primary code point, the keys on or near
    /// (x, y) in the order of its grid cell, additional characters of the locale behind
    /// ADDITIONAL_CHARS_DELIMITER, and NO_CODE_POINT for the rest.
    static void buildProximityCodePoints(const ProximityInfo& proximityInfo, int primaryCodePoint, int x,
                                         int y, int* proximities);
};

}  // namespace wordengine
