// SPDX-License-Identifier: Apache-2.0
#include "keyboard/golden_file.h"
#include "keyboard/layout/key_frame_layout.h"
#include "keyboard/model/default_keyboard.h"
#include "keyboard/trace_capture.h"

#include <gtest/gtest.h>

#include <cmath>
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

class LayoutFramesTest : public ::testing::Test {
protected:
    std::optional<KeyFrames> framesOf(int page, double width, double height) {
        return layout.generateKeyFrames(latin(), {0, 0, width, height}, page);
    }

    PlainScreen screen{375, 667, 2};
    const PlainDevice phone;
    const LayoutConstants constants{screen, phone};
    KeyFrameLayout layout{constants, screen};
};

TEST_F(LayoutFramesTest, BoundsWithoutSizeHaveNoneAndPagesWithoutRowsHaveNoFrames) {
    const wordengine::Diagnostics::Silence silence;
    EXPECT_FALSE(framesOf(0, 320, 0));
    EXPECT_FALSE(framesOf(0, 0, 216));
    for (const int page : {-1, 9, 99, 159}) EXPECT_EQ(framesOf(page, 375, 216), KeyFrames()) << page;
}

TEST_F(LayoutFramesTest, EachLayoutTellsWhichScreenItIsFor) {
    for (const double width : {320.0, 375.0, 414.0, 768.0}) {
        screen.setSize(width, 667);
        const std::string named = width < 414 ? number(width) : "414";
        for (const int page : {0, 104, 9, 400}) {
            testing::TraceCapture trace;
            framesOf(page, 667, 162);
            EXPECT_EQ(trace.text(), "check width " + named + "\n") << width << " page " << page;
        }
    }
    testing::TraceCapture trace;
    framesOf(0, 320, 0);
    EXPECT_EQ(trace.text(), "");
}

TEST_F(LayoutFramesTest, HalfPixelsAreRoundedAwayFromZero) {
    struct {
        double scale;
        double measure;
        double rounded;
    } const cases[] = {{2, 0.25, 0.5}, {2, -0.25, -0.5},  {2, 0.24, 0},      {1, 2.5, 3},
                       {1, -2.5, -3},  {3, 1.2, 4.0 / 3}, {1.5, 1, 4.0 / 3}, {1, -0.4, 0}};
    for (const auto& [scale, measure, rounded] : cases) {
        const PlainScreen other(375, 667, scale);
        EXPECT_EQ(KeyFrameLayout(constants, other).rounded(measure), rounded) << scale << " " << measure;
    }
}

TEST_F(LayoutFramesTest, ExtraKeysKeepTheWidthThatWasMeasuredFirst) {
    const testing::TraceCapture trace;
    EXPECT_EQ(layout.otherTypeKeyWidth, 0);
    framesOf(0, 667, 162);
    EXPECT_EQ(layout.otherTypeKeyWidth, 0);
    screen.setSize(667, 375);
    framesOf(100, 667, 162);
    const double measured = layout.otherTypeKeyWidth;
    EXPECT_GT(measured, 60);
    screen.setSize(844, 375);
    const auto wider = framesOf(110, 844, 162);
    EXPECT_EQ(layout.otherTypeKeyWidth, measured);
    EXPECT_EQ(wider->front().second.width, measured);
    EXPECT_EQ(wider->back().second.right(), 844 - 3);
}

TEST_F(LayoutFramesTest, RowsAreToldApartByTheirFirstKeys) {
    using Heuristic = bool (KeyFrameLayout::*)(const KeyRow&) const;
    constexpr Heuristic TESTS[] = {&KeyFrameLayout::characterRowHeuristic,
                                   &KeyFrameLayout::doubleSidedRowHeuristic,
                                   &KeyFrameLayout::specialRowWithoutSpaceHeuristic,
                                   &KeyFrameLayout::landscapeCharacterRowBoolean,
                                   &KeyFrameLayout::landscapeDoubleSidedRowBoolean,
                                   &KeyFrameLayout::landscapeSpecialRowWithoutSpaceBoolean,
                                   &KeyFrameLayout::landscapeSpecialKeysRowBoolean};
    struct {
        const Keyboard& model;
        int page;
        int row;
        const char* holds;  ///< which of the tests
    } const cases[] = {
        {latin(), 0, 0, "0"},    {latin(), 1, 1, "0"},   {latin(), 0, 2, "12"},   {latin(), 8, 2, "12"},
        {latin(), 0, 3, ""},     {latin(), 3, 3, ""},    {latin(), 6, 3, "2"},    {arabic(), 0, 2, "0"},
        {arabic(), 10, 2, "12"}, {latin(), 100, 0, "3"}, {latin(), 100, 2, "45"}, {arabic(), 100, 2, "3"},
        {latin(), 100, 3, "6"},  {latin(), 103, 3, "6"}, {latin(), 106, 3, "56"},
    };
    for (const auto& [model, page, row, holds] : cases) {
        std::string found;
        for (std::size_t test = 0; test < std::size(TESTS); ++test) {
            if ((layout.*TESTS[test])(model.pages.at(page).rows.at(row))) found += std::to_string(test);
        }
        EXPECT_EQ(found, holds) << page << " row " << row;
    }
    KeyRow row;
    for (const Heuristic test : TESTS) EXPECT_FALSE((layout.*test)(row));
    row.push_back(std::make_unique<Key>(Key::KeyType::Other));
    for (const Heuristic test : TESTS) EXPECT_FALSE((layout.*test)(row));
}

}  // namespace
}  // namespace vorpel
