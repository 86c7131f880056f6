// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/font_emoji_coverage.h"
#include "ui/cairo_canvas.h"

#include <gtest/gtest.h>

#include <string>

namespace vorpel::testing {
namespace {

using ui::Font;
using ui::FontWeight;
using ui::Rect;
using ui::TextAlignment;
using ui::TextStyle;

constexpr Rect MIDDLE{20, 20, 160, 60};

double widthOf(const std::string& text) {
    return ui::TextLayouts(1).line(text, {20}).width;
}

Rect inkOf(const std::string& text, const TextStyle& style, const Rect& rect = MIDDLE) {
    return CairoCanvas().text(text, rect, style).inkBounds();
}

bool isCut(const ui::ObjectHandle<PangoLayout>& layout) {
    return pango_layout_is_ellipsized(layout.get());
}

TEST(CairoTextTest, TextLiesWithinItsRectangleAtItsSide) {
    const Rect rect{40, 30, 100, 40};
    for (const std::string text : {"Q", "g", "hello", "a much longer text than there is room for", "مرحبا",
                                   "ج", "😀", "←", "[{(", "Åg"}) {
        const Rect ink = inkOf(text, {.font = {22}, .minimumScale = 0.5}, rect);
        EXPECT_FALSE(ink.isEmpty()) << text;
        // A letter may lean out of its own width by a pixel.
        EXPECT_EQ(ink.intersection(rect.insetBy(-1, 0)), ink) << text;
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

TEST(CairoTextTest, ArabicJoins) {
    EXPECT_LT(widthOf("بيت"), (widthOf("ب") + widthOf("ي") + widthOf("ت")) * 0.8);
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
    }
    EXPECT_LT(widthOf("1234567890"), 10 * widthOf("n") * 1.1) << "emoji fonts have wider digits";
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
    for (const std::string text : {"\xff\xfe", "ok\xc3", "a\nb", "\xed\xa0\x80"}) {
        const Rect ink = inkOf(text, {});
        EXPECT_FALSE(ink.isEmpty());
        EXPECT_LT(ink.height, 40) << "one line";
    }
}

constexpr Font SMALL{12};

TEST(CairoParagraphTest, LinesKeepToTheWidthAndFillTheHeightMeasuredOrEndInAnEllipsis) {
    ui::TextLayouts texts(1);
    const double line = texts.line("W", SMALL).height;
    for (const std::string text : {"Words are learnt as they are typed, and never leave this device.",
                                   "سجل الكلمات كما تكتبها ولا تغادر هذا الجهاز أبدا",
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
}

TEST(CairoParagraphTest, IsDrawnFromTheUpperEdgeAtItsSide) {
    const Rect rect{20, 10, 160, 80};
    const auto inkOf = [&](TextAlignment alignment) {
        CairoCanvas canvas;
        canvas.draw([&](ui::Painter& painter) {
            painter.drawParagraph("hm\nhmm", rect, {.font = SMALL, .alignment = alignment});
        });
        return canvas.inkBounds();
    };
    EXPECT_NEAR(inkOf(TextAlignment::Left).x, rect.x, 2);
    EXPECT_NEAR(inkOf(TextAlignment::Right).right(), rect.right(), 2);
    EXPECT_NEAR(inkOf(TextAlignment::Center).center().x, rect.center().x, 2);
    EXPECT_LT(inkOf(TextAlignment::Left).y, rect.y + SMALL.size);
}

TEST(CairoTextTest, EmojiAreOnePictureInColourOrNone) {
    const ui::FontEmojiCoverage coverage;
    const std::pair<const char*, bool> emoji[] = {
        {"😀", true},           {"🇻🇪", true},  {"👨‍👩‍👧", true},
        {"⚽\uFE0E", true},     {"❤", true},   {"❤️", true},
        {"✌️", true},      {"🇦🇦", false}, {"😀😀", false},
        {"\U0010FFFF", false}, {"ش", false},  {"", false}};
    for (const auto& [text, isPicture] : emoji) EXPECT_EQ(coverage.canDraw(text), isPicture) << text;
    const TextStyle style{.font = {30, FontWeight::Regular, ui::FontFace::Emoji}};
    for (const std::string text : {"😀", "🇻🇪", "⚽\uFE0E", "❤", "☝️"}) {
        CairoCanvas canvas;
        canvas.text(text, MIDDLE, style);
        const Rect ink = canvas.inkBounds();
        EXPECT_NEAR(ink.center().x, MIDDLE.center().x, 3) << text;
        EXPECT_NEAR(ink.center().y, MIDDLE.center().y, 3) << text;
        EXPECT_GT(ink.width, 22) << text;
        EXPECT_GT(canvas.colouredPixels(), text.starts_with("⚽") ? -1 : 100) << text;
    }
    // As text, a ball is a sign; and what has too little room is set smaller.
    EXPECT_EQ(CairoCanvas().text("⚽\uFE0E", MIDDLE, {.font = {30}}).colouredPixels(), 0);
    const TextStyle shrinking{.font = style.font, .minimumScale = 0.2};
    const Rect narrow{20, 20, 16, 60};
    const Rect ink = inkOf("😀", shrinking, narrow);
    EXPECT_GT(ink.width, 10);
    EXPECT_EQ(ink.intersection(narrow.insetBy(-1, 0)), ink);
}

}  // namespace
}  // namespace vorpel::testing
