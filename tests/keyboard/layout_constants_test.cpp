// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/layout_constants.h"

#include "keyboard/layout/global_colors.h"
#include "keyboard/trace_capture.h"

#include <gtest/gtest.h>

namespace vorpel {
namespace {

using platform::PlainDevice;
using platform::PlainScreen;
using platform::UserInterfaceIdiom;

class LayoutConstantsTest : public ::testing::Test {
protected:
    const PlainScreen screen{375, 667, 2};
    const PlainDevice phoneDevice;
    const PlainDevice padDevice{UserInterfaceIdiom::Pad};
    const LayoutConstants phone{screen, phoneDevice};
    const LayoutConstants pad{screen, padDevice};
};

TEST_F(LayoutConstantsTest, AMeasureOnAThresholdIsPastIt) {
    using Measure = double (LayoutConstants::*)(double) const;
    struct {
        const char* name;
        Measure measure;
        std::vector<std::pair<double, double>> values;
    } const cases[] = {
        {"side edges", &LayoutConstants::sideEdgesPortrait, {{0, 3}, {399, 3}, {400, 4}, {2000, 4}}},
        {"top edge", &LayoutConstants::topEdgePortrait, {{349.5, 12}, {350, 8}, {399, 8}, {400, 8}}},
        {"row gap", &LayoutConstants::rowGapPortrait, {{349, 15}, {350, 11}, {399.9, 11}, {400, 10}}},
        {"gap of the last row",
         &LayoutConstants::lastRowKeyGapLandscape,
         {{499, 8}, {500, 7}, {699, 7}, {700, 5}}},
        {"popup", &LayoutConstants::popupTotalHeight, {{349, 102}, {350, 108}}},
        {"shrunk size",
         &LayoutConstants::keyboardShrunkSize,
         {{599, 599}, {600, 522}, {640, 522}, {699, 522}, {700, 524}, {736, 524}}},
    };
    for (const auto& [name, measure, values] : cases) {
        for (const auto& [width, expected] : values) {
            EXPECT_EQ((phone.*measure)(width), expected) << name << " " << width;
        }
    }
    for (const double width : {599.0, 600.0, 1024.0}) {
        EXPECT_EQ(pad.keyboardShrunkSize(width), width);
        EXPECT_FALSE(pad.keyboardIsShrunk(width));
        EXPECT_EQ(phone.keyboardIsShrunk(width), width >= 600);
    }
    const double thresholds[] = {350, 400};
    EXPECT_EQ(phone.findThreshholdIndex({}, 1), 0U);
    EXPECT_EQ(phone.findThreshholdIndex(thresholds, -1), 0U);
    EXPECT_EQ(phone.findThreshholdIndex(thresholds, 350), 1U);
    EXPECT_EQ(phone.findThreshholdIndex(thresholds, 400), 2U);
}

TEST_F(LayoutConstantsTest, ManyKeysOrAShrunkKeyboardHaveSmallGaps) {
    struct {
        double width;
        std::size_t keys;
        double portrait;
        double landscape;
        double landscapeOnPad;
    } const cases[] = {
        {320, 10, 6, 6, 6}, {320, 11, 5, 5, 5}, {349, 12, 5, 5, 5},  {350, 11, 6, 5, 5},
        {599, 10, 6, 6, 6}, {600, 10, 6, 5, 6}, {1024, 11, 6, 5, 5},
    };
    for (const auto& [width, keys, portrait, landscape, landscapeOnPad] : cases) {
        EXPECT_EQ(phone.keyGapPortrait(width, keys), portrait) << width << " " << keys;
        EXPECT_EQ(phone.keyGapLandscape(width, keys), landscape) << width << " " << keys;
        EXPECT_EQ(pad.keyGapLandscape(width, keys), landscapeOnPad) << width << " " << keys;
    }
}

TEST_F(LayoutConstantsTest, TheScreenDecidesTheLastGapOfMiddleWidthsAndSaysSo) {
    struct {
        double width;
        double screenWidth;
        double gap;
        const char* trace;
    } const cases[] = {
        {320, 320, 15, ""},
        {349, 414, 15, ""},
        {350, 320, 15, "check width 320\n"},
        {375, 375, 11, "check width 375\n"},
        {380, 414, 9.5, "check width 414\n"},
        {399, 374.5, 9.5, "check width 414\n"},
        {400, 375, 10, ""},
        {414, 414, 10, ""},
    };
    for (const auto& [width, screenWidth, gap, trace] : cases) {
        const PlainScreen other(screenWidth, 667, 2);
        testing::TraceCapture capture;
        EXPECT_EQ(LayoutConstants(other, phoneDevice).rowGapPortraitLastRow(width), gap) << width;
        EXPECT_EQ(capture.text(), trace) << width;
    }
    EXPECT_EQ(phone.rowGapPortraitLastRow(), 10);
}

/// Each colour tells by its red which one it is.
class NumberedColors final : public GlobalColors {
public:
    [[nodiscard]] ui::Color lightModeRegularKey() const override { return ui::Color::rgb(1, 0, 0); }
    [[nodiscard]] ui::Color darkModeRegularKey() const override { return ui::Color::rgb(2, 0, 0); }
    [[nodiscard]] ui::Color darkModeSolidColorRegularKey() const override { return ui::Color::rgb(3, 0, 0); }
    [[nodiscard]] ui::Color lightModePopup() const override { return ui::Color::rgb(4, 0, 0); }
    [[nodiscard]] ui::Color darkModePopup() const override { return ui::Color::rgb(5, 0, 0); }
    [[nodiscard]] ui::Color darkModeSolidColorPopup() const override { return ui::Color::rgb(6, 0, 0); }
    [[nodiscard]] ui::Color lightModeSpecialKey() const override { return ui::Color::rgb(7, 0, 0); }
    [[nodiscard]] ui::Color lightModeSolidColorSpecialKey() const override { return ui::Color::rgb(8, 0, 0); }
    [[nodiscard]] ui::Color darkModeSpecialKey() const override { return ui::Color::rgb(9, 0, 0); }
    [[nodiscard]] ui::Color darkModeSolidColorSpecialKey() const override { return ui::Color::rgb(10, 0, 0); }
};

TEST(LayoutColors, FollowDarkAndSolidMode) {
    const NumberedColors colors;
    struct {
        bool dark;
        bool solid;
        double regular;
        double popup;
        double special;
    } const cases[] = {
        {false, false, 1, 4, 7}, {false, true, 1, 4, 8}, {true, false, 2, 5, 9}, {true, true, 3, 6, 10}};
    for (const auto& [dark, solid, regular, popup, special] : cases) {
        EXPECT_EQ(colors.regularKey(dark, solid).red, regular);
        EXPECT_EQ(colors.popup(dark, solid).red, popup);
        EXPECT_EQ(colors.specialKey(dark, solid).red, special);
    }
}

}  // namespace
}  // namespace vorpel
