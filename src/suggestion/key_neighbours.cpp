// SPDX-License-Identifier: Apache-2.0
#include "suggestion/key_neighbours.h"

#include <algorithm>
#include <cmath>

namespace vorpel {

namespace {

/// How far people touch from a key's centre, in fractions of the key's size, and how much they scatter.
struct SweetSpotCorrection {
    int firstKeyAfter;
    float offsetX;
    float offsetY;
    float radiusFactor;
};

/// One a row of letter keys.
constexpr SweetSpotCorrection CORRECTIONS[] = {
    {10, 0.0038756f, -0.0005677f, 0.1577026f},
    {19, -0.0236678f, 0.0381731f, 0.1529972f},
    {26, -0.0086827f, 0.0880847f, 0.1522819f},
};
constexpr SweetSpotCorrection NO_CORRECTION = {0, 0.0f, 0.0f, 0.0f};
constexpr float DEFAULT_RADIUS_FACTOR = 0.15f;

const SweetSpotCorrection& correctionOf(int keyIndex) {
    for (const SweetSpotCorrection& correction : CORRECTIONS) {
        if (keyIndex < correction.firstKeyAfter) return correction;
    }
    return NO_CORRECTION;
}

float hypotenuse(int width, int height) {
    return hypotf(static_cast<float>(width), static_cast<float>(height));
}

}  // namespace

SweetSpot liveSweetSpot(int keyIndex, int x, int y, int width, int height, int mostCommonKeyWidth,
                        int mostCommonKeyHeight) {
    const SweetSpotCorrection& correction = correctionOf(keyIndex);
    // Half of the far edge, not the middle of the key.
    const float halfRight = static_cast<float>(x + width) / 2.0f;
    const float halfBottom = static_cast<float>(y + height) / 2.0f;
    const float radius = correction.radiusFactor != 0.0f
                             ? correction.radiusFactor * hypotenuse(width, height)
                             : DEFAULT_RADIUS_FACTOR * hypotenuse(mostCommonKeyWidth, mostCommonKeyHeight);
    return {correction.offsetX * static_cast<float>(width) + halfRight,
            correction.offsetY * static_cast<float>(height) + halfBottom, radius};
}

CellSpan cellsNearKey(int keyStart, int keyLength, int threshold, int cellLength, int cells) {
    const int halfCell = cellLength / 2;
    const int firstPixel = keyStart - threshold;
    const int delta = firstPixel % cellLength;
    const int middle = firstPixel - delta + halfCell;
    const int firstCenter = middle + (delta > halfCell ? cellLength : 0);
    return {std::max(halfCell, firstCenter),
            std::min(cellLength * cells - 1, keyStart + keyLength + threshold)};
}

}  // namespace vorpel
