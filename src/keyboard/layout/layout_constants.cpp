// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/layout_constants.h"

#include "text/diagnostics.h"

namespace vorpel {

using wordengine::Diagnostics;

LayoutConstants::Values LayoutConstants::sideEdgesPortraitArray() const {
    static constexpr double VALUES[] = {3, 4};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::sideEdgesPortraitWidthThreshholds() const {
    static constexpr double VALUES[] = {400};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::topEdgePortraitArray() const {
    static constexpr double VALUES[] = {12, 8, 8};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::topEdgePortraitWidthThreshholds() const {
    static constexpr double VALUES[] = {350, 400};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::rowGapPortraitArray() const {
    static constexpr double VALUES[] = {15, 11, 10};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::rowGapPortraitThreshholds() const {
    static constexpr double VALUES[] = {350, 400};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::keyboardShrunkSizeArray() const {
    static constexpr double VALUES[] = {522, 524};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::keyboardShrunkSizeWidthThreshholds() const {
    static constexpr double VALUES[] = {700};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::lastRowKeyGapLandscapeArray() const {
    static constexpr double VALUES[] = {8, 7, 5};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::lastRowKeyGapLandscapeWidthThreshholds() const {
    static constexpr double VALUES[] = {500, 700};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::popupTotalHeightArray() const {
    static constexpr double VALUES[] = {102, 108};
    return VALUES;
}

LayoutConstants::Values LayoutConstants::popupTotalHeightDeviceWidthThreshholds() const {
    static constexpr double VALUES[] = {350};
    return VALUES;
}

std::size_t LayoutConstants::findThreshholdIndex(Values threshholds, double measurement) const {
    for (std::size_t count = threshholds.size(); count > 0; --count) {
        if (measurement >= threshholds[count - 1]) return count;
    }
    return 0;
}

double LayoutConstants::findThreshhold(Values elements, Values threshholds, double measurement) const {
    return elements[findThreshholdIndex(threshholds, measurement)];
}

double LayoutConstants::sideEdgesPortrait(double width) const {
    return findThreshhold(sideEdgesPortraitArray(), sideEdgesPortraitWidthThreshholds(), width);
}

double LayoutConstants::topEdgePortrait(double width) const {
    return findThreshhold(topEdgePortraitArray(), topEdgePortraitWidthThreshholds(), width);
}

double LayoutConstants::rowGapPortrait(double width) const {
    return findThreshhold(rowGapPortraitArray(), rowGapPortraitThreshholds(), width);
}

double LayoutConstants::lastRowKeyGapLandscape(double width) const {
    return findThreshhold(lastRowKeyGapLandscapeArray(), lastRowKeyGapLandscapeWidthThreshholds(), width);
}

double LayoutConstants::popupTotalHeight(double deviceWidth) const {
    return findThreshhold(popupTotalHeightArray(), popupTotalHeightDeviceWidthThreshholds(), deviceWidth);
}

double LayoutConstants::rowGapPortraitLastRow(double width) const {
    const std::size_t index = findThreshholdIndex(rowGapPortraitThreshholds(), width);
    if (index != rowGapPortraitLastRowIndex()) return rowGapPortraitArray()[index];
    return lastRowGapOfScreen();
}

double LayoutConstants::lastRowGapOfScreen() const {
    const double screenWidth = screen_.boundsWidth();
    if (screenWidth == 320) {
        Diagnostics::print("check width 320\n");
        return 15;
    }
    if (screenWidth == 375) {
        Diagnostics::print("check width 375\n");
        return 11;
    }
    Diagnostics::print("check width 414\n");
    return 9.5;
}

double LayoutConstants::keyGapPortrait(double width, std::size_t rowCharacterCount) const {
    const bool isCompressed =
        rowCharacterCount >= keyCompressedThreshhold() && !(width >= keyGapPortraitUncompressThreshhold());
    return isCompressed ? keyGapPortraitSmall() : keyGapPortraitNormal();
}

double LayoutConstants::keyGapLandscape(double width, std::size_t rowCharacterCount) const {
    const bool isCompressed = rowCharacterCount >= keyCompressedThreshhold() || keyboardIsShrunk(width);
    return isCompressed ? keyGapLandscapeSmall() : keyGapLandscapeNormal();
}

bool LayoutConstants::keyboardIsShrunk(double width) const {
    return !isPad() && width >= keyboardShrunkSizeBaseWidthThreshhold();
}

double LayoutConstants::keyboardShrunkSize(double width) const {
    if (!keyboardIsShrunk(width)) return width;
    return findThreshhold(keyboardShrunkSizeArray(), keyboardShrunkSizeWidthThreshholds(), width);
}

}  // namespace vorpel
