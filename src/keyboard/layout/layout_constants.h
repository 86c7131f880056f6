// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/device.h"
#include "platform/screen.h"

#include <cstddef>
#include <span>

namespace vorpel {

/// Every number of the keyboard's look, in points. What varies with the width is a list of values and one of
/// thresholds. All of it may be overridden. Main thread only; screen and device must outlive it.
class LayoutConstants {
public:
    LayoutConstants(const platform::Screen& screen, const platform::Device& device)
        : screen_(screen), device_(device) {}
    virtual ~LayoutConstants() = default;

    using Values = std::span<const double>;

    [[nodiscard]] virtual Values sideEdgesPortraitArray() const;
    [[nodiscard]] virtual Values sideEdgesPortraitWidthThreshholds() const;
    [[nodiscard]] virtual Values topEdgePortraitArray() const;
    [[nodiscard]] virtual Values topEdgePortraitWidthThreshholds() const;
    [[nodiscard]] virtual Values rowGapPortraitArray() const;
    [[nodiscard]] virtual Values rowGapPortraitThreshholds() const;
    [[nodiscard]] virtual Values keyboardShrunkSizeArray() const;
    [[nodiscard]] virtual Values keyboardShrunkSizeWidthThreshholds() const;
    [[nodiscard]] virtual Values lastRowKeyGapLandscapeArray() const;
    [[nodiscard]] virtual Values lastRowKeyGapLandscapeWidthThreshholds() const;
    [[nodiscard]] virtual Values popupTotalHeightArray() const;
    [[nodiscard]] virtual Values popupTotalHeightDeviceWidthThreshholds() const;

    /// Bounds this many times as wide as high are a landscape keyboard.
    [[nodiscard]] virtual double landscapeRatio() const { return 2; }
    [[nodiscard]] virtual double sideEdgesLandscape() const { return 3; }
    [[nodiscard]] virtual double topEdgeLandscape() const { return 6; }
    [[nodiscard]] virtual double keyboardShrunkSizeBaseWidthThreshhold() const { return 600; }
    /// The operation of the same name has its own values.
    [[nodiscard]] virtual double rowGapPortraitLastRow() const { return 10; }
    [[nodiscard]] virtual std::size_t rowGapPortraitLastRowIndex() const { return 1; }
    [[nodiscard]] virtual double rowGapLandscape() const { return 7; }
    [[nodiscard]] virtual double keyGapPortraitNormal() const { return 6; }
    [[nodiscard]] virtual double keyGapPortraitSmall() const { return 5; }
    [[nodiscard]] virtual double keyGapPortraitNormalThreshhold() const { return 350; }
    [[nodiscard]] virtual double keyGapPortraitUncompressThreshhold() const { return 350; }
    [[nodiscard]] virtual double keyGapLandscapeNormal() const { return 6; }
    [[nodiscard]] virtual double keyGapLandscapeSmall() const { return 5; }
    /// Rows of so many keys have the smaller gaps.
    [[nodiscard]] virtual std::size_t keyCompressedThreshhold() const { return 11; }
    [[nodiscard]] virtual double flexibleEndRowTotalWidthToKeyWidthMPortrait() const { return 1; }
    [[nodiscard]] virtual double flexibleEndRowTotalWidthToKeyWidthCPortrait() const { return -14; }
    [[nodiscard]] virtual double flexibleEndRowTotalWidthToKeyWidthMLandscape() const { return 0.9231; }
    [[nodiscard]] virtual double flexibleEndRowTotalWidthToKeyWidthCLandscape() const { return -9.4615; }
    [[nodiscard]] virtual double flexibleEndRowMinimumStandardCharacterWidth() const { return 7; }
    [[nodiscard]] virtual double lastRowKeyGapPortrait() const { return 6; }
    [[nodiscard]] virtual double lastRowPortraitFirstTwoButtonAreaWidthToKeyboardAreaWidth() const {
        return 0.25;
    }
    [[nodiscard]] virtual double lastRowLandscapeFirstTwoButtonAreaWidthToKeyboardAreaWidth() const {
        return 0.19;
    }
    [[nodiscard]] virtual double lastRowPortraitLastButtonAreaWidthToKeyboardAreaWidth() const {
        return 0.24;
    }
    [[nodiscard]] virtual double lastRowLandscapeLastButtonAreaWidthToKeyboardAreaWidth() const {
        return 0.19;
    }
    [[nodiscard]] virtual double micButtonPortraitWidthRatioToOtherSpecialButtons() const { return 0.765; }
    [[nodiscard]] virtual double popupGap() const { return 8; }
    [[nodiscard]] virtual double popupWidthIncrement() const { return 26; }

    /// How many thresholds are at or below the measure.
    [[nodiscard]] virtual std::size_t findThreshholdIndex(Values threshholds, double measurement) const;

    /// The element at that index; `elements` has one more than `threshholds`.
    [[nodiscard]] virtual double findThreshhold(Values elements, Values threshholds,
                                                double measurement) const;

    [[nodiscard]] virtual double sideEdgesPortrait(double width) const;
    [[nodiscard]] virtual double topEdgePortrait(double width) const;
    [[nodiscard]] virtual double rowGapPortrait(double width) const;
    [[nodiscard]] virtual double lastRowKeyGapLandscape(double width) const;
    [[nodiscard]] virtual double popupTotalHeight(double deviceWidth) const;

    /// For widths of the middle step the screen decides, and a trace line tells which way.
    [[nodiscard]] virtual double rowGapPortraitLastRow(double width) const;

    /// The part of it that the screen decides, with its trace line.
    [[nodiscard]] virtual double lastRowGapOfScreen() const;

    [[nodiscard]] virtual double keyGapPortrait(double width, std::size_t rowCharacterCount) const;
    [[nodiscard]] virtual double keyGapLandscape(double width, std::size_t rowCharacterCount) const;
    [[nodiscard]] virtual bool keyboardIsShrunk(double width) const;

    /// A wide phone's keys do not spread over all of it.
    [[nodiscard]] virtual double keyboardShrunkSize(double width) const;

protected:
    [[nodiscard]] const platform::Screen& screen() const { return screen_; }
    [[nodiscard]] bool isPad() const {
        return device_.userInterfaceIdiom() == platform::UserInterfaceIdiom::Pad;
    }

private:
    const platform::Screen& screen_;
    const platform::Device& device_;
};

}  // namespace vorpel
