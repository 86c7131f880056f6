// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/key_frame_layout.h"

#include <algorithm>

namespace vorpel {

/// The row of the space key; extra keys of the wide set are not counted.
struct KeyFrameLayout::SpaceRowMeasures {
    std::size_t keysBeforeSpace = 0;
    std::size_t keysAfterSpace = 0;
    bool hasButtonInMicButtonPosition = false;
    double leftButtonWidth = 0;
    double rightButtonWidth = 0;
    double micButtonWidth = 0;
    double spaceWidth = 0;

    /// `extraKeys`: how many stand at each end.
    SpaceRowMeasures(const KeyFrameLayout& layout, const KeyRow& row, std::size_t extraKeys, double gapWidth,
                     double leftSideRatio, double rightSideRatio, double micButtonRatio, bool isLandscape,
                     double frameWidth) {
        const auto space = std::ranges::find_if(row, [](const auto& key) { return key->isSpace(); });
        keysBeforeSpace = static_cast<std::size_t>(space - row.begin()) - extraKeys;
        const auto notBefore = static_cast<std::size_t>(row.end() - space);
        keysAfterSpace = notBefore > extraKeys ? notBefore - 1 - extraKeys : 0;
        hasButtonInMicButtonPosition = keysBeforeSpace == 3;
        const auto after = static_cast<double>(std::max<std::size_t>(keysAfterSpace, 1));
        double leftSideAreaWidth = frameWidth * leftSideRatio;
        const double rightSideAreaWidth = frameWidth * rightSideRatio;
        leftButtonWidth = layout.rounded((leftSideAreaWidth - gapWidth) / 2);
        rightButtonWidth = layout.rounded((rightSideAreaWidth - gapWidth * (after - 1)) / after);
        micButtonWidth = isLandscape ? leftButtonWidth : leftButtonWidth * micButtonRatio;
        if (hasButtonInMicButtonPosition) leftSideAreaWidth += gapWidth + micButtonWidth;
        spaceWidth = layout.rounded(frameWidth - leftSideAreaWidth - rightSideAreaWidth - 2 * gapWidth);
    }
};

KeyFrameLayout::RowFrames KeyFrameLayout::layoutSpecialKeysRow(const KeyRow& row, double /*keyWidth*/,
                                                               double gapWidth, double leftSideRatio,
                                                               double rightSideRatio, double micButtonRatio,
                                                               bool isLandscape, const ui::Rect& frame) {
    const SpaceRowMeasures measures(*this, row, 0, gapWidth, leftSideRatio, rightSideRatio, micButtonRatio,
                                    isLandscape, frame.width);
    RowFrames frames;
    double origin = frame.x;
    for (std::size_t k = 0; k < row.size(); ++k) {
        double width = k < measures.keysBeforeSpace ? measures.leftButtonWidth : measures.rightButtonWidth;
        if (k == measures.keysBeforeSpace) width = measures.spaceWidth;
        if (measures.hasButtonInMicButtonPosition && k == 2) width = measures.micButtonWidth;
        frames.push_back({rounded(origin), frame.y, width, frame.height});
        origin += width + gapWidth;
    }
    return frames;
}

KeyFrameLayout::RowFrames KeyFrameLayout::layoutSpecialKeysRowForLandscape(
    const KeyRow& row, double /*keyWidth*/, double gapWidth, double leftSideRatio, double rightSideRatio,
    double micButtonRatio, bool isLandscape, const ui::Rect& frame) {
    const SpaceRowMeasures measures(*this, row, 1, gapWidth, leftSideRatio, rightSideRatio, micButtonRatio,
                                    isLandscape, frame.width);
    RowFrames frames{leftExtraFrame(frame)};
    double origin = frame.x;
    for (std::size_t k = 0; k + 2 < row.size(); ++k) {
        double width = k < measures.keysBeforeSpace ? measures.leftButtonWidth : measures.rightButtonWidth;
        if (k == measures.keysBeforeSpace) width = measures.spaceWidth;
        // No key is narrowed here: the third one takes a full width, out of the space key's.
        frames.push_back({rounded(origin), frame.y, width, frame.height});
        origin += width + gapWidth;
    }
    frames.push_back(rightExtraFrame(frame));
    return frames;
}

}  // namespace vorpel
