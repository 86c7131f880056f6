// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info.h"

#include "proximity/bounded_numbers.h"
#include "proximity/proximity_info_params.h"
#include "proximity/proximity_info_utils.h"
#include "text/char_utils.h"
#include "text/geometry_utils.h"

#include <algorithm>
#include <cmath>

namespace wordengine {

namespace {

int ceilingOfQuotient(int length, int parts) {
    if (parts <= 0) return 0;
    return static_cast<int>((int64_t{length} + parts - 1) / parts);
}

float normalizedSquaredHypotenuse(int keyWidth, int keyHeight) {
    if (keyWidth == 0) return 1.0f;
    return 1.0f + GeometryUtils::SQUARE_FLOAT(static_cast<float>(keyHeight) / static_cast<float>(keyWidth));
}

void copyKeyInts(const int* source, int count, std::array<int, KEY_COUNT_LIMIT>& target) {
    if (source != nullptr) std::copy_n(source, count, target.begin());
}

void copyKeyPixels(const int* source, int count, std::array<int, KEY_COUNT_LIMIT>& target) {
    if (source != nullptr) std::transform(source, source + count, target.begin(), boundedCoordinate);
}

void copyKeyReals(const float* source, int count, std::array<float, KEY_COUNT_LIMIT>& target) {
    if (source != nullptr) std::transform(source, source + count, target.begin(), boundedReal);
}

}  // namespace

ProximityInfo::ProximityInfo(const char*, int keyboardWidth, int keyboardHeight, int gridWidth,
                             int gridHeight, int mostCommonKeyWidth, int mostCommonKeyHeight,
                             const int* proximityChars, int proximityCharsLength, int keyCount,
                             const int* keyXCoordinates, const int* keyYCoordinates, const int* keyWidths,
                             const int* keyHeights, const int* keyCodePoints, const float* sweetSpotCenterXs,
                             const float* sweetSpotCenterYs, const float* sweetSpotRadii)
    : gridWidth_(gridWidth),
      gridHeight_(gridHeight),
      mostCommonKeyWidth_(boundedCoordinate(mostCommonKeyWidth)),
      mostCommonKeyWidthSquare_(saturatedInt(int64_t{mostCommonKeyWidth_} * mostCommonKeyWidth_)),
      normalizedSquaredMostCommonKeyHypotenuse_(
          normalizedSquaredHypotenuse(mostCommonKeyWidth_, boundedCoordinate(mostCommonKeyHeight))),
      cellWidth_(ceilingOfQuotient(boundedCoordinate(keyboardWidth), gridWidth)),
      cellHeight_(ceilingOfQuotient(boundedCoordinate(keyboardHeight), gridHeight)),
      keyCount_(std::clamp(keyCount, 0, KEY_COUNT_LIMIT)),
      keyboardWidth_(boundedCoordinate(keyboardWidth)),
      keyboardHeight_(boundedCoordinate(keyboardHeight)),
      keyboardHypotenuse_(hypotf(static_cast<float>(keyboardWidth_), static_cast<float>(keyboardHeight_))),
      hasTouchPositionCorrection_(keyCount > 0 && keyXCoordinates != nullptr && keyYCoordinates != nullptr &&
                                  keyWidths != nullptr && keyHeights != nullptr && keyCodePoints != nullptr &&
                                  sweetSpotCenterXs != nullptr && sweetSpotCenterYs != nullptr &&
                                  sweetSpotRadii != nullptr) {
    copyGrid(proximityChars, proximityCharsLength);
    // localeStr_ stays empty on purpose: the additional characters of a locale are never offered here.
    copyKeyPixels(keyXCoordinates, keyCount_, keyXCoordinates_);
    copyKeyPixels(keyYCoordinates, keyCount_, keyYCoordinates_);
    copyKeyPixels(keyWidths, keyCount_, keyWidths_);
    copyKeyPixels(keyHeights, keyCount_, keyHeights_);
    copyKeyInts(keyCodePoints, keyCount_, keyCodePoints_);
    copyKeyReals(sweetSpotCenterXs, keyCount_, sweetSpotCenterXs_);
    copyKeyReals(sweetSpotCenterYs, keyCount_, sweetSpotCenterYs_);
    copyKeyReals(sweetSpotRadii, keyCount_, sweetSpotRadii_);
    initializeG();
}

void ProximityInfo::copyGrid(const int* proximityChars, int proximityCharsLength) {
    if (proximityChars == nullptr || proximityCharsLength <= 0 || gridWidth_ <= 0 || gridHeight_ <= 0) return;
    // No more than what was given is held, so that a hostile grid size costs nothing.
    const int64_t cells = int64_t{gridWidth_} * gridHeight_;
    const int64_t cellsGiven =
        (int64_t{proximityCharsLength} + PROXIMITY_SLOT_COUNT - 1) / PROXIMITY_SLOT_COUNT;
    const int64_t length =
        std::min<int64_t>(proximityCharsLength, std::min(cells, cellsGiven) * PROXIMITY_SLOT_COUNT);
    proximityCharsArray_.assign(proximityChars, proximityChars + length);
}

void ProximityInfo::initializeG() {
    for (int i = 0; i < keyCount_; ++i) {
        const int lowerCodePoint = CharUtils::toLowerCase(keyCodePoints_[i]);
        centerXsG_[i] = keyXCoordinates_[i] + keyWidths_[i] / 2;
        centerYsG_[i] = keyYCoordinates_[i] + keyHeights_[i] / 2;
        if (hasTouchPositionCorrection_) {
            const float centerY = static_cast<float>(centerYsG_[i]);
            const float shift =
                (sweetSpotCenterYs_[i] - centerY) * ProximityInfoParams::VERTICAL_SWEET_SPOT_SCALE_G;
            sweetSpotCenterYsG_[i] = static_cast<float>(static_cast<int>(centerY + shift));
        }
        lowerCodePointToKeyIndex_[lowerCodePoint] = i;
        keyIndexToOriginalCodePoint_[i] = keyCodePoints_[i];
        keyIndexToLowerCodePoint_[i] = lowerCodePoint;
    }
    initializeDirectKeyIndices();
    initializeKeyKeyDistances();
}

void ProximityInfo::initializeDirectKeyIndices() {
    for (int codePoint = 0; codePoint < DIRECT_CODE_POINTS; ++codePoint) {
        directKeyIndices_[codePoint] = static_cast<int8_t>(findKeyIndex(CharUtils::toLowerCase(codePoint)));
    }
}

int ProximityInfo::findKeyIndex(int lowerCodePoint) const {
    const auto found = lowerCodePointToKeyIndex_.find(lowerCodePoint);
    return found != lowerCodePointToKeyIndex_.end() ? found->second : NO_INDEX;
}

void ProximityInfo::initializeKeyKeyDistances() {
    for (int i = 0; i < keyCount_; ++i) {
        for (int j = i + 1; j < keyCount_; ++j) {
            const int distance = GeometryUtils::getDistanceInt(
                getKeyCenterXOfKeyIdG(i, NO_COORDINATE, true), getKeyCenterYOfKeyIdG(i, NO_COORDINATE, true),
                getKeyCenterXOfKeyIdG(j, NO_COORDINATE, true), getKeyCenterYOfKeyIdG(j, NO_COORDINATE, true));
            keyKeyDistancesG_[i][j] = distance;
            keyKeyDistancesG_[j][i] = distance;
        }
    }
}

bool ProximityInfo::hasSpaceProximity(int x, int y) const {
    if (x < 0 || y < 0) return false;
    const std::span<const int> slots = getProximityCharsOfCell(x, y);
    return std::find(slots.begin(), slots.end(), CODE_POINT_SPACE) != slots.end();
}

int ProximityInfo::getKeyIndexOf(int codePoint) const {
    if (keyCount_ == 0 || codePoint == NO_CODE_POINT) return NO_INDEX;
    if (codePoint >= 0 && codePoint < DIRECT_CODE_POINTS) return directKeyIndices_[codePoint];
    return findKeyIndex(CharUtils::toLowerCase(codePoint));
}

int ProximityInfo::getKeyCenterXOfKeyIdG(int keyId, int referencePointX, bool) const {
    if (keyId < 0) return 0;
    const int centerX =
        hasTouchPositionCorrection_ ? static_cast<int>(sweetSpotCenterXs_[keyId]) : centerXsG_[keyId];
    const int keyWidth = keyWidths_[keyId];
    if (referencePointX == NO_COORDINATE || keyWidth <= mostCommonKeyWidth_) return centerX;
    const int halfSegment = (keyWidth - mostCommonKeyWidth_) / 2;
    return std::clamp(referencePointX, centerX - halfSegment, centerX + halfSegment);
}

int ProximityInfo::getKeyCenterYOfKeyIdG(int keyId, int referencePointY, bool isGeometric) const {
    if (keyId < 0) return 0;
    int centerY = centerYsG_[keyId];
    if (hasTouchPositionCorrection_) {
        centerY = static_cast<int>(isGeometric ? sweetSpotCenterYsG_[keyId] : sweetSpotCenterYs_[keyId]);
    }
    const bool isAtBottom = centerY + keyHeights_[keyId] > keyboardHeight_;
    if (referencePointY != NO_COORDINATE && isAtBottom && centerY < referencePointY) return referencePointY;
    return centerY;
}

float ProximityInfo::getNormalizedSquaredDistanceFromCenterFloatG(int keyId, int x, int y,
                                                                  bool isGeometric) const {
    if (mostCommonKeyWidth_ == 0) return WEIGHT_CEILING_FLOAT;
    const float centerX = static_cast<float>(getKeyCenterXOfKeyIdG(keyId, x, isGeometric));
    const float centerY = static_cast<float>(getKeyCenterYOfKeyIdG(keyId, y, isGeometric));
    return ProximityInfoUtils::getSquaredDistanceFloat(centerX, centerY, static_cast<float>(x),
                                                       static_cast<float>(y)) /
           GeometryUtils::SQUARE_FLOAT(static_cast<float>(mostCommonKeyWidth_));
}

int ProximityInfo::getKeyKeyDistanceG(int keyId0, int keyId1) const {
    if (keyId0 < 0 || keyId1 < 0) return WEIGHT_CEILING;
    return keyKeyDistancesG_[keyId0][keyId1];
}

std::span<const int> ProximityInfo::getProximityCharsOfCell(int x, int y) const {
    if (cellWidth_ <= 0 || cellHeight_ <= 0) return {};
    const int64_t cell = int64_t{y / cellHeight_} * gridWidth_ + x / cellWidth_;
    if (cell < 0 || cell >= static_cast<int64_t>(proximityCharsArray_.size())) return {};
    const size_t start = static_cast<size_t>(cell) * PROXIMITY_SLOT_COUNT;
    if (start >= proximityCharsArray_.size()) return {};
    const std::span<const int> rest = std::span(proximityCharsArray_).subspan(start);
    return rest.first(std::min<size_t>(rest.size(), PROXIMITY_SLOT_COUNT));
}

bool ProximityInfo::isOnOrNearKey(int keyIndex, int x, int y) const {
    const int* const xs = keyXCoordinates_.data();
    const int* const ys = keyYCoordinates_.data();
    const int* const widths = keyWidths_.data();
    const int* const heights = keyHeights_.data();
    return ProximityInfoUtils::isOnKey(xs, ys, widths, heights, keyIndex, x, y) ||
           ProximityInfoUtils::squaredLengthToEdge(xs, ys, widths, heights, keyIndex, x, y) <
               mostCommonKeyWidthSquare_;
}

}  // namespace wordengine
