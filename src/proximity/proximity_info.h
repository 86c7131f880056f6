// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/proximity_params.h"
#include "text/engine_constants.h"

#include <array>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace wordengine {

/// The engine's immutable picture of one keyboard layout: where each key lies, which keys are near each
/// cell of a coarse grid over the keyboard, how far keys are from each other. Distances are in the
/// keyboard's integer pixels; a normalized squared distance is in squares of the most common key width.
/// All arguments are copied. Read-only after construction: any thread may share it, as long as it lives.
class ProximityInfo {
public:
    /// `proximityChars` holds PROXIMITY_SLOT_COUNT code points for each cell of the grid, row by row; what
    /// it lacks reads as empty cells, what it has beyond the grid is dropped. The per-key arrays hold at
    /// least `keyCount` entries each, or are null, which leaves the keys without that property.
    /// Sizes that are not positive give a layout without a grid, keys or distances, but a usable object.
    ProximityInfo(const char* locale, int keyboardWidth, int keyboardHeight, int gridWidth, int gridHeight,
                  int mostCommonKeyWidth, int mostCommonKeyHeight, const int* proximityChars,
                  int proximityCharsLength, int keyCount, const int* keyXCoordinates,
                  const int* keyYCoordinates, const int* keyWidths, const int* keyHeights,
                  const int* keyCodePoints, const float* sweetSpotCenterXs, const float* sweetSpotCenterYs,
                  const float* sweetSpotRadii);

    ProximityInfo(const ProximityInfo&) = delete;
    ProximityInfo& operator=(const ProximityInfo&) = delete;

    int getGridWidth() const { return gridWidth_; }
    int getGridHeight() const { return gridHeight_; }
    int getCellWidth() const { return cellWidth_; }
    int getCellHeight() const { return cellHeight_; }
    int getKeyCount() const { return keyCount_; }
    int getKeyboardWidth() const { return keyboardWidth_; }
    int getKeyboardHeight() const { return keyboardHeight_; }
    float getKeyboardHypotenuse() const { return keyboardHypotenuse_; }
    int getMostCommonKeyWidth() const { return mostCommonKeyWidth_; }
    int getMostCommonKeyWidthSquare() const { return mostCommonKeyWidthSquare_; }
    float getNormalizedSquaredMostCommonKeyHypotenuse() const {
        return normalizedSquaredMostCommonKeyHypotenuse_;
    }
    bool hasTouchPositionCorrectionData() const { return hasTouchPositionCorrection_; }

    /// Whether the cell of (x, y) lists the space; false for a negative coordinate.
    bool hasSpaceProximity(int x, int y) const;

    /// The key's lower-cased code point, NO_CODE_POINT for an index outside the layout.
    int getCodePointOf(int keyIndex) const {
        return isKeyIndex(keyIndex) ? keyIndexToLowerCodePoint_[keyIndex] : NO_CODE_POINT;
    }
    /// The key's code point as it was given, with the same guard.
    int getOriginalCodePointOf(int keyIndex) const {
        return isKeyIndex(keyIndex) ? keyIndexToOriginalCodePoint_[keyIndex] : NO_CODE_POINT;
    }

    /// The key that types the code point in either case, or NO_INDEX. One table look-up for the scripts
    /// with keyboards; asked once per search node.
    int getKeyIndexOf(int codePoint) const;

    /// The key's centre as seen from the reference coordinate: a wide key's centre is a segment, and a key
    /// of the bottom row absorbs what lies below it. NO_COORDINATE as reference gives the bare centre;
    /// a negative id gives 0. `isGeometric` selects the derived centre of sampled input (y only).
    int getKeyCenterXOfKeyIdG(int keyId, int referencePointX, bool isGeometric) const;
    int getKeyCenterYOfKeyIdG(int keyId, int referencePointY, bool isGeometric) const;

    /// From (x, y) to the centre that the two operations above give, normalized and squared.
    float getNormalizedSquaredDistanceFromCenterFloatG(int keyId, int x, int y, bool isGeometric) const;

    /// Pixels between two key centres; WEIGHT_CEILING if either id is negative.
    int getKeyKeyDistanceG(int keyId0, int keyId1) const;

    /// The four below take an index below KEY_COUNT_LIMIT, unchecked.
    bool hasSweetSpotData(int keyIndex) const { return sweetSpotRadii_[keyIndex] > 0.0f; }
    float getSweetSpotCenterXAt(int keyIndex) const { return sweetSpotCenterXs_[keyIndex]; }
    float getSweetSpotCenterYAt(int keyIndex) const { return sweetSpotCenterYs_[keyIndex]; }
    float getSweetSpotRadiiAt(int keyIndex) const { return sweetSpotRadii_[keyIndex]; }

    /// Always empty, whatever locale was given (see the constructor).
    const char* getLocale() const { return localeStr_.data(); }

    /// The slots of the cell of (x, y), by the grid formula alone: beyond the right edge they are those of
    /// a cell of the next row. Empty where the grid has nothing.
    std::span<const int> getProximityCharsOfCell(int x, int y) const;

    /// Whether (x, y) is on the key, or nearer to it than the most common key width.
    bool isOnOrNearKey(int keyIndex, int x, int y) const;

private:
    using KeyInts = std::array<int, KEY_COUNT_LIMIT>;
    using KeyFloats = std::array<float, KEY_COUNT_LIMIT>;

    /// Below this the code points of Latin, Greek, Cyrillic, Hebrew and Arabic keys lie.
    static constexpr int DIRECT_CODE_POINTS = 0x700;
    static constexpr int LOCALE_BYTES = 10;

    bool isKeyIndex(int keyIndex) const { return keyIndex >= 0 && keyIndex < keyCount_; }
    void copyGrid(const int* proximityChars, int proximityCharsLength);
    void initializeG();
    void initializeDirectKeyIndices();
    void initializeKeyKeyDistances();
    int findKeyIndex(int lowerCodePoint) const;

    int gridWidth_;
    int gridHeight_;
    int mostCommonKeyWidth_;
    int mostCommonKeyWidthSquare_;
    float normalizedSquaredMostCommonKeyHypotenuse_;
    int cellWidth_;
    int cellHeight_;
    int keyCount_;
    int keyboardWidth_;
    int keyboardHeight_;
    float keyboardHypotenuse_;
    bool hasTouchPositionCorrection_;
    std::array<char, LOCALE_BYTES> localeStr_{};
    std::vector<int> proximityCharsArray_;
    KeyInts keyXCoordinates_{};
    KeyInts keyYCoordinates_{};
    KeyInts keyWidths_{};
    KeyInts keyHeights_{};
    KeyInts keyCodePoints_{};
    KeyFloats sweetSpotCenterXs_{};
    KeyFloats sweetSpotCenterYs_{};
    KeyFloats sweetSpotCenterYsG_{};
    KeyFloats sweetSpotRadii_{};
    std::unordered_map<int, int> lowerCodePointToKeyIndex_;
    /// The look-up of any code point below the limit, folding included.
    std::array<int8_t, DIRECT_CODE_POINTS> directKeyIndices_{};
    KeyInts keyIndexToOriginalCodePoint_{};
    KeyInts keyIndexToLowerCodePoint_{};
    KeyInts centerXsG_{};
    KeyInts centerYsG_{};
    std::array<KeyInts, KEY_COUNT_LIMIT> keyKeyDistancesG_{};
};

}  // namespace wordengine
