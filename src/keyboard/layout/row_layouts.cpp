// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/key_frame_layout.h"

#include <algorithm>

namespace vorpel {

namespace {

/// Between the wide set's extra keys and the edges of the screen.
constexpr double EXTRA_KEY_MARGIN = 3;

/// A row of keys of one width: how far it is from the sides, and what gap fits.
struct CharacterRowMeasures {
    double sideSpace;
    double gapWidth;

    CharacterRowMeasures(double count, double keyWidth, double wantedGap, double frameWidth)
        : sideSpace((frameWidth - (count * keyWidth + (count - 1) * wantedGap)) / 2), gapWidth(wantedGap) {
        if (!(sideSpace < 0)) return;
        sideSpace = 0;
        gapWidth = (frameWidth - count * keyWidth) / (count - 1);
    }
};

}  // namespace

/// A row with a flexible key at each end.
struct KeyFrameLayout::SidesMeasures {
    double keyWidth = 0;
    double specialCharacterWidth = 0;
    double specialCharacterGap = 0;
    double step = 0;  ///< between two inner keys
};

ui::Rect KeyFrameLayout::leftExtraFrame(const ui::Rect& frame) const {
    return {EXTRA_KEY_MARGIN, frame.y, otherTypeKeyWidth, frame.height};
}

// It hangs on the screen, not on the view.
ui::Rect KeyFrameLayout::rightExtraFrame(const ui::Rect& frame) const {
    return {screen_.boundsWidth() - otherTypeKeyWidth - EXTRA_KEY_MARGIN, frame.y, otherTypeKeyWidth,
            frame.height};
}

KeyFrameLayout::RowFrames KeyFrameLayout::characterFrames(std::size_t count, double origin, double keyWidth,
                                                          double gapWidth, const ui::Rect& frame) const {
    RowFrames frames;
    for (std::size_t k = 0; k < count; ++k) {
        const bool sticksOut = rounded(origin) + keyWidth > frame.right();
        const double x = sticksOut ? rounded(frame.right() - keyWidth) : rounded(origin);
        frames.push_back({x, frame.y, keyWidth, frame.height});
        origin += keyWidth + gapWidth;
    }
    return frames;
}

KeyFrameLayout::RowFrames KeyFrameLayout::layoutCharacterRow(const KeyRow& row, double keyWidth,
                                                             double gapWidth, const ui::Rect& frame) {
    const CharacterRowMeasures measures(static_cast<double>(row.size()), keyWidth, gapWidth, frame.width);
    return characterFrames(row.size(), frame.x + measures.sideSpace, keyWidth, measures.gapWidth, frame);
}

KeyFrameLayout::RowFrames KeyFrameLayout::layoutCharacterRowForLandscape(const KeyRow& row, double keyWidth,
                                                                         double gapWidth,
                                                                         const ui::Rect& frame) {
    const std::size_t count = row.size() - 2;
    const CharacterRowMeasures measures(static_cast<double>(count), keyWidth, gapWidth, frame.width);
    const double origin = frame.x + measures.sideSpace;
    if (otherTypeKeyWidth == 0) otherTypeKeyWidth = origin - EXTRA_KEY_MARGIN - measures.gapWidth;
    RowFrames frames = characterFrames(count, origin, keyWidth, measures.gapWidth, frame);
    frames.insert(frames.begin(), leftExtraFrame(frame));
    frames.push_back(rightExtraFrame(frame));
    return frames;
}

KeyFrameLayout::SidesMeasures KeyFrameLayout::measureSides(double keyCount, const ui::Rect& frame,
                                                           bool isLandscape, double keyWidth,
                                                           double keyGap) const {
    const LayoutConstants& constants = layoutConstants_;
    const std::size_t standardFullKeyCount = constants.keyCompressedThreshhold() - 1;
    const auto fullCount = static_cast<double>(standardFullKeyCount);
    const double standardGap = isLandscape ? constants.keyGapLandscape(frame.width, standardFullKeyCount)
                                           : constants.keyGapPortrait(frame.width, standardFullKeyCount);
    const double sideEdges =
        isLandscape ? constants.sideEdgesLandscape() : constants.sideEdgesPortrait(frame.width);
    const double standardKeyWidth =
        (frame.width - sideEdges - standardGap * (fullCount - 1) - sideEdges) / fullCount;
    const double standardKeyCount = constants.flexibleEndRowMinimumStandardCharacterWidth();
    const double standardWidth = standardKeyWidth * standardKeyCount + standardGap * (standardKeyCount - 1);
    const double currentWidth = keyCount * keyWidth + (keyCount - 1) * keyGap;
    const bool isStandardWidth = currentWidth < standardWidth;
    const double actualWidth = isStandardWidth ? standardWidth : currentWidth;
    const double actualGap = isStandardWidth ? standardGap : keyGap;
    const double sideSpace = (frame.width - actualWidth) / 2;
    const double m = isLandscape ? constants.flexibleEndRowTotalWidthToKeyWidthMLandscape()
                                 : constants.flexibleEndRowTotalWidthToKeyWidthMPortrait();
    const double c = isLandscape ? constants.flexibleEndRowTotalWidthToKeyWidthCLandscape()
                                 : constants.flexibleEndRowTotalWidthToKeyWidthCPortrait();
    SidesMeasures measures;
    measures.keyWidth = (actualWidth - (keyCount - 1) * actualGap) / keyCount;
    measures.specialCharacterWidth = rounded(std::max(sideSpace * m + c, keyWidth));
    measures.specialCharacterGap = sideSpace - measures.specialCharacterWidth;
    // The page's own gap, also where the keys were measured with the standard one: rows stay in step.
    measures.step = keyGap;
    return measures;
}

KeyFrameLayout::RowFrames KeyFrameLayout::sidesFrames(std::size_t count, const SidesMeasures& sides,
                                                      const ui::Rect& frame) const {
    RowFrames frames;
    double origin = frame.x;
    // Key and gap are one step: added one after the other they would fall on the other side of a half pixel.
    const auto add = [&](double width, double gap) {
        frames.push_back({rounded(origin), frame.y, width, frame.height});
        origin += width + gap;
    };
    add(sides.specialCharacterWidth, sides.specialCharacterGap);
    for (std::size_t k = 1; k + 1 < count; ++k) add(sides.keyWidth, k + 2 < count ? sides.step : 0);
    origin += sides.specialCharacterGap;
    add(sides.specialCharacterWidth, 0);
    return frames;
}

KeyFrameLayout::RowFrames KeyFrameLayout::layoutCharacterWithSidesRow(const KeyRow& row,
                                                                      const ui::Rect& frame, bool isLandscape,
                                                                      double keyWidth, double keyGap) {
    const std::size_t count = row.size();
    const auto inner = static_cast<double>(count - 2);
    return sidesFrames(count, measureSides(inner, frame, isLandscape, keyWidth, keyGap), frame);
}

KeyFrameLayout::RowFrames KeyFrameLayout::layoutCharacterWithSidesRowForLandscape(
    const KeyRow& row, const ui::Rect& frame, bool isLandscape, double keyWidth, double keyGap) {
    const std::size_t count = row.size() - 2;
    const auto inner = static_cast<double>(count - 2);
    RowFrames frames = sidesFrames(count, measureSides(inner, frame, isLandscape, keyWidth, keyGap), frame);
    frames.insert(frames.begin(), leftExtraFrame(frame));
    frames.push_back(rightExtraFrame(frame));
    return frames;
}

}  // namespace vorpel
