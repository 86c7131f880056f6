// SPDX-License-Identifier: Apache-2.0
#include "keyboard/golden_file.h"
#include "keyboard/layout/key_frame_layout.h"
#include "keyboard/model/default_keyboard.h"
#include "text/diagnostics.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

namespace vorpel {
namespace {

using platform::PlainDevice;
using platform::PlainScreen;
using platform::UserInterfaceIdiom;

const Keyboard& latin() {
    static const Keyboard keyboard = defaultKeyboard(0, 0);
    return keyboard;
}

const Keyboard& arabic() {
    static const Keyboard keyboard = arabicKeyboard(0, 0);
    return keyboard;
}

/// At most three decimals.
std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", value);
    std::string written = text;
    written.erase(written.find_last_not_of('0') + 1);
    if (written.back() == '.') written.pop_back();
    return written == "-0" ? "0" : written;
}

/// "y height | x:width x:width ..." for each row.
std::vector<std::string> described(const Page& page, const KeyFrames& frames) {
    std::vector<std::string> lines;
    std::size_t next = 0;
    for (const KeyRow& row : page.rows) {
        const ui::Rect& first = frames.at(next).second;
        std::string line = number(first.y) + " " + number(first.height) + " |";
        for (const auto& key : row) {
            const auto& [placed, frame] = frames.at(next++);
            EXPECT_EQ(placed, key.get());
            EXPECT_TRUE(frame.y == first.y && frame.height == first.height);
            line += " " + number(frame.x) + ":" + number(frame.width);
        }
        lines.push_back(line);
    }
    EXPECT_EQ(next, frames.size());
    return lines;
}

TEST(LayoutFrames, AreAsWorkedOutByHand) {
    for (const testing::GoldenPage& golden : testing::readGolden("frames.txt")) {
        std::istringstream head(golden.head);
        std::string language, idiom;
        int page = 0;
        double width = 0, height = 0, scale = 0, screenWidth = 0;
        head >> language >> page >> width >> height >> scale >> idiom >> screenWidth;
        ASSERT_TRUE(head) << golden.head;
        const PlainScreen screen(screenWidth, 667, scale);
        const PlainDevice device(idiom == "pad" ? UserInterfaceIdiom::Pad : UserInterfaceIdiom::Phone);
        const LayoutConstants constants(screen, device);
        const wordengine::Diagnostics::Silence silence;
        const Keyboard& model = language == "arabic" ? arabic() : latin();
        const auto frames =
            KeyFrameLayout(constants, screen).generateKeyFrames(model, {0, 0, width, height}, page);
        ASSERT_TRUE(frames) << golden.head;
        EXPECT_EQ(described(model.pages.at(page), *frames), golden.rows) << golden.head;
    }
}

TEST(LayoutFrames, AMeasureOnAThresholdIsPastIt) {
    const PlainScreen screen(375, 667, 2);
    const PlainDevice device;
    const LayoutConstants phone(screen, device);
    EXPECT_EQ(phone.rowGapPortrait(349.9), 15);
    EXPECT_EQ(phone.rowGapPortrait(350), 11);
    EXPECT_EQ(phone.rowGapPortrait(400), 10);
    EXPECT_EQ(phone.keyboardShrunkSize(599), 599);
    EXPECT_EQ(phone.keyboardShrunkSize(600), 522);
    EXPECT_EQ(phone.popupTotalHeight(349), 102);
    EXPECT_EQ(phone.popupTotalHeight(350), 108);
}

}  // namespace
}  // namespace vorpel
