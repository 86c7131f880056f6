// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo_canvas.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vorpel::testing {
namespace {

using ui::Font;
using ui::FontWeight;
using ui::Rect;
using ui::TextAlignment;
using ui::TextStyle;

constexpr Rect MIDDLE{20, 20, 160, 60};

double widthOf(const std::string& text, const Font& font = {20}) {
    return ui::TextLayouts(1).line(text, font).width;
}

Rect inkOf(const std::string& text, const TextStyle& style, const Rect& rect = MIDDLE) {
    return CairoCanvas().text(text, rect, style).inkBounds();
}

bool isCut(const ui::ObjectHandle<PangoLayout>& layout) {
    return pango_layout_is_ellipsized(layout.get());
}

TEST(CairoTextTest, TheSystemFontIsInstalled) {
    EXPECT_EQ(ui::TextLayouts(1).missingFamilies(), std::vector<std::string>());
}

TEST(CairoTextTest, TextLiesWithinItsRectangleAtItsSide) {
    const Rect rect{40, 30, 100, 40};
    for (const std::string text : {"Q", "g", "hello", "a much longer text than there is room for", "مرحبا",
                                   "ج", "😀", "←", "[{(", "Åg"}) {
        for (const auto alignment : {TextAlignment::Left, TextAlignment::Center, TextAlignment::Right}) {
            const Rect ink = inkOf(text, {.font = {22}, .alignment = alignment, .minimumScale = 0.5}, rect);
            EXPECT_FALSE(ink.isEmpty()) << text;
            // A letter may lean out of its own width by a pixel.
            EXPECT_EQ(ink.intersection(rect.insetBy(-1, 0)), ink) << text;
        }
    }
    // Also what is read from right to left: a side is a side.
    for (const std::string text : {"mm", "سلام"}) {
        EXPECT_NEAR(inkOf(text, {.font = {20}, .alignment = TextAlignment::Left}).x, MIDDLE.x, 3);
        EXPECT_NEAR(inkOf(text, {.font = {20}}).center().x, MIDDLE.center().x, 1.5);
        EXPECT_NEAR(inkOf(text, {.font = {20}, .alignment = TextAlignment::Right}).right(), MIDDLE.right(),
                    3);
    }
}

TEST(CairoTextTest, CapitalsAreInTheMiddleAndAllLettersShareABaseline) {
    const TextStyle style{.font = {30}};
    const Rect capital = inkOf("H", style);
    EXPECT_NEAR(capital.center().y, MIDDLE.center().y, 1);
    for (const char* const letter : {"A", "x", "i", "l", "."}) {
        EXPECT_NEAR(inkOf(letter, style).bottom(), capital.bottom(), 1) << letter;
    }
    EXPECT_GT(inkOf("g", style).bottom(), capital.bottom() + 3);
}

TEST(CairoTextTest, WideTextIsSetSmallerAndThenShortened) {
    ui::TextLayouts texts(1);
    const std::string text = "congratulations";
    const double full = texts.line(text, {20}).width;
    EXPECT_EQ(&texts.fittedLine(text, {20}, full, 0.5), &texts.line(text, {20})) << "what fits is left alone";
    struct Case {
        double room, minimumScale, size;
        bool cut;
    };
    for (const Case& one : {Case{0.8, 0.5, 16, false}, Case{0.3, 0.5, 10, true}, Case{0.8, 1, 20, true}}) {
        const ui::TextLine& fitted = texts.fittedLine(text, {20}, full * one.room, one.minimumScale);
        EXPECT_NEAR(fitted.fontSize, one.size, 0.1);
        EXPECT_LE(fitted.width, full * one.room + 0.1);
        EXPECT_EQ(isCut(fitted.layout), one.cut);
        EXPECT_GE(fitted.width, full * one.room - (one.cut ? 20 : 0.5)) << "no smaller than it must be";
    }
}

TEST(CairoTextTest, ArabicJoinsAndBeginsAtTheRight) {
    EXPECT_LT(widthOf("بيت"), (widthOf("ب") + widthOf("ي") + widthOf("ت")) * 0.8);
    // Lam and alef become one sign, which is narrower than the two side by side.
    EXPECT_LT(widthOf("لا"), (widthOf("ل") + widthOf("ا")) * 0.9);

    ui::TextLayouts texts(1);
    const ui::TextLine& line = texts.line("دار abc", {20});
    const auto xOf = [&](int index) {
        PangoRectangle place{};
        pango_layout_index_to_pos(line.layout.get(), index, &place);
        return place.x;
    };
    EXPECT_GT(xOf(0), xOf(2)) << "letters of two bytes";
    EXPECT_GT(xOf(0), xOf(7)) << "the Latin word comes after, so further left";
    EXPECT_LT(xOf(7), xOf(8)) << "and runs to the right in itself";
}

TEST(CairoTextTest, LightIsLighterThanRegularThanMedium) {
    const auto inkAmount = [](FontWeight weight) {
        return CairoCanvas(3).text("hamburg", MIDDLE, {.font = {30, weight}}).ink();
    };
    const double regular = inkAmount(FontWeight::Regular);
    EXPECT_LT(inkAmount(FontWeight::Light), regular * 0.9);
    EXPECT_LT(regular, inkAmount(FontWeight::Medium) * 0.95);
}

TEST(CairoTextTest, EmojiAreColouredAndSignsAreNot) {
    for (const std::string emoji : {"😀", "👍🏽", "🇪🇬", "❤️", "👩‍🚀"}) {
        CairoCanvas canvas;
        canvas.text(emoji, MIDDLE, {.font = {30}});
        EXPECT_GT(canvas.colouredPixels(), 50) << emoji;
        EXPECT_LT(canvas.inkBounds().width, 45) << emoji << " is one picture";
        EXPECT_NEAR(canvas.inkBounds().center().y, MIDDLE.center().y, 4) << emoji;
    }
    // Emoji fonts have digits too, twice as wide.
    EXPECT_LT(widthOf("1234567890"), 10 * widthOf("n") * 1.1);
}

TEST(CairoTextTest, DigitsAndTheNumberSignAreOfTheLettersFace) {
    // Emoji fonts have them too, twice as wide.
    EXPECT_LT(widthOf("1234567890"), 10 * widthOf("n") * 1.1);
    EXPECT_LT(widthOf("#"), 1.5 * widthOf("n"));
}

TEST(CairoTextTest, EverySignHasAGlyphWithoutColour) {
    ui::TextLayouts texts(1);
    for (const std::string text : {"❮❯➔↲×÷※•£€1#*₹¥₩§¿¡…°«»“”‘’–—¬√π±≠≈∞",
                                   "ضصثقفغعهخحجدشسيبلاتنمكطئءؤرىةوزظإأآٱ،؛؟٪ـ٠١٢٣٤٥٦٧٨٩", "ًٌٍَُِّْ", "یکگچپژ"}) {
        const ui::TextLine& line = texts.line(text, {20});
        EXPECT_EQ(pango_layout_get_unknown_glyphs_count(line.layout.get()), 0) << text;
        CairoCanvas canvas(1, {1000, 100});
        canvas.text(text, {0, 0, 1000, 100}, {.font = {20}});
        EXPECT_GT(canvas.ink(), 5) << text;
        EXPECT_EQ(canvas.colouredPixels(), 0) << text;
    }
}

TEST(CairoTextTest, DamagedTextIsDrawnAsFarAsItGoes) {
    const std::vector<std::string> texts{"\xff\xfe", "ok\xc3", std::string("a\0b", 3), "a\nb",
                                         "\xed\xa0\x80"};
    for (const std::string& text : texts) {
        const Rect ink = inkOf(text, {});
        EXPECT_FALSE(ink.isEmpty());
        EXPECT_LT(ink.height, 40) << "one line";
    }
    EXPECT_EQ(CairoCanvas().text("", MIDDLE).text("a", {20, 20, 0, 20}).ink(), 0);
}

TEST(CairoTextTest, WhatIsKeptIsWhatWasUsedLastAndItsNumberIsBounded) {
    ui::RecentCache<int, int> cache(10);
    for (int i = 0; i < 1000; ++i) {
        cache.add(i, i);
        ASSERT_NE(cache.find(0), nullptr) << "what is asked for again and again stays";
        ASSERT_NE(cache.find(std::max(0, i - 3)), nullptr);
        ASSERT_LE(cache.size(), 20U);
    }
}

constexpr Font SMALL{12};
const std::string NOTE = "Words are learnt as they are typed, and never leave this device unless you say so.";

TEST(CairoParagraphTest, LinesKeepToTheWidthAndFillTheHeightMeasuredOrEndInAnEllipsis) {
    ui::TextLayouts texts(1);
    const double line = texts.line("W", SMALL).height;
    for (const std::string text : {NOTE.c_str(), "سجل الكلمات كما تكتبها ولا تغادر هذا الجهاز أبدا",
                                   "onewordthatiswiderthanalltheroomthereis", "one\n\ntwo\nthree\nfour"}) {
        for (const double width : {60.0, 100.0}) {
            const auto& measured = texts.paragraph(text, SMALL, width);
            const auto [taken, height] = ui::Size{measured.width, measured.height};
            EXPECT_LE(taken, width + 0.1) << text;
            EXPECT_GT(height, line * 1.5) << text;
            for (const double room : {width, taken}) {
                const auto& drawn = texts.paragraph(text, SMALL, room, height);
                EXPECT_FALSE(isCut(drawn.layout)) << text << " is whole";
                EXPECT_NEAR(drawn.height, height, 0.01) << text;
            }
            const auto& cut = texts.paragraph(text, SMALL, width, line * 1.5);
            EXPECT_EQ(pango_layout_get_line_count(cut.layout.get()), 1) << text;
            EXPECT_TRUE(isCut(cut.layout)) << text;
        }
    }
    EXPECT_EQ(pango_layout_get_line_count(texts.paragraph(NOTE, SMALL, 80, 1).layout.get()), 1);
}

TEST(CairoParagraphTest, IsDrawnFromTheUpperEdgeAtItsSide) {
    const Rect rect{20, 10, 160, 80};
    const auto inkOf = [&](const std::string& text, TextAlignment alignment) {
        CairoCanvas canvas;
        canvas.draw([&](ui::Painter& painter) {
            painter.drawParagraph(text, rect, {.font = SMALL, .alignment = alignment});
        });
        return canvas.inkBounds();
    };
    for (const std::string text : {"hm\nhmm", "بيت\nبيوت"}) {
        const Rect ink = inkOf(text, TextAlignment::Left);
        EXPECT_NEAR(ink.x, rect.x, 2) << text;
        EXPECT_NEAR(inkOf(text, TextAlignment::Right).right(), rect.right(), 2) << text;
        EXPECT_NEAR(inkOf(text, TextAlignment::Center).center().x, rect.center().x, 2) << text;
        EXPECT_EQ(ink.intersection(rect.insetBy(-1, 0)), ink) << text;
        EXPECT_LT(ink.y, rect.y + SMALL.size) << text;
    }
}

}  // namespace
}  // namespace vorpel::testing
