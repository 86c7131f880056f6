// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo_canvas.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vorpel::testing {
namespace {

using ui::Font;
using ui::Rect;
using ui::Size;
using ui::TextAlignment;
using ui::TextStyle;

constexpr Font FONT{12};
const std::string NOTE = "Words are learnt as they are typed, and never leave this device unless you say so.";

Size sizeOf(const std::string& text, double width) {
    Size size;
    CairoCanvas().draw([&](ui::Painter& painter) { size = painter.measureParagraph(text, width, FONT); });
    return size;
}

int lineCount(const ui::TextParagraph& paragraph) {
    return pango_layout_get_line_count(paragraph.layout.get());
}

TEST(CairoParagraphTest, LinesKeepToTheWidthAndFillTheHeightMeasured) {
    const double line = sizeOf("W", 1000).height;
    for (const std::string& text :
         {NOTE, std::string("سجل الكلمات كما تكتبها ولا تغادر هذا الجهاز أبدا"),
          std::string("onewordthatiswiderthanalltheroomthereis"), std::string("a\n\nb")}) {
        for (const double width : {60.0, 100.0, 190.0}) {
            const Size size = sizeOf(text, width);
            EXPECT_LE(size.width, width + 0.1) << text;
            EXPECT_GT(size.height, line * 1.5) << text;
            ui::TextLayouts texts(1);
            for (const double taken : {width, size.width}) {
                const auto& drawn = texts.paragraph(text, FONT, taken, size.height);
                EXPECT_FALSE(pango_layout_is_ellipsized(drawn.layout.get())) << text << " is whole";
                EXPECT_NEAR(drawn.height, size.height, 0.01) << text;
            }
        }
    }
    EXPECT_EQ(sizeOf("", 100), Size());
    EXPECT_NEAR(sizeOf("a\n\nb", 100).height, 3 * line, line * 0.1);
}

TEST(CairoParagraphTest, WhatHasNoRoomEndsInAnEllipsis) {
    ui::TextLayouts texts(1);
    const double line = sizeOf("W", 1000).height;
    for (const std::string& text : {NOTE, std::string("one\ntwo\nthree\nfour\nfive")}) {
        for (const int lines : {1, 2, 3}) {
            const auto& cut = texts.paragraph(text, FONT, 80, line * (lines + 0.5));
            EXPECT_EQ(lineCount(cut), lines) << text;
            EXPECT_TRUE(pango_layout_is_ellipsized(cut.layout.get())) << text;
        }
        EXPECT_EQ(lineCount(texts.paragraph(text, FONT, 80, 1)), 1) << "one line is always there";
    }
}

TEST(CairoParagraphTest, IsDrawnFromTheUpperEdgeAtItsSide) {
    const Rect rect{20, 10, 160, 80};
    const auto inkOf = [&](const std::string& text, TextAlignment alignment) {
        CairoCanvas canvas;
        canvas.draw([&](ui::Painter& painter) {
            painter.drawParagraph(text, rect, {.font = FONT, .alignment = alignment});
        });
        return canvas.inkBounds();
    };
    for (const std::string text : {"hm\nhmm", "بيت\nبيوت"}) {
        EXPECT_NEAR(inkOf(text, TextAlignment::Left).x, rect.x, 2) << text;
        EXPECT_NEAR(inkOf(text, TextAlignment::Right).right(), rect.right(), 2) << text;
        EXPECT_NEAR(inkOf(text, TextAlignment::Center).center().x, rect.center().x, 2) << text;
        const Rect ink = inkOf(text, TextAlignment::Left);
        EXPECT_EQ(ink.intersection(rect.insetBy(-1, 0)), ink) << text;
        EXPECT_LT(ink.y, rect.y + FONT.size) << text;
    }
}

}  // namespace
}  // namespace vorpel::testing
