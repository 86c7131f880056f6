// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo_canvas.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vorpel::testing {
namespace {

using ui::Color;
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

double inkAmount(const std::string& text, FontWeight weight) {
    return CairoCanvas(3).text(text, MIDDLE, {.font = {30, weight}}).ink();
}

TEST(CairoTextTest, TheSystemFontIsInstalled) {
    EXPECT_EQ(ui::TextLayouts(1).missingFamilies(), std::vector<std::string>());
}

TEST(CairoTextTest, TextLiesWithinItsRectangle) {
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
}

TEST(CairoTextTest, AlignmentMovesTextToItsSide) {
    const Rect left = inkOf("mm", {.font = {20}, .alignment = TextAlignment::Left});
    const Rect centre = inkOf("mm", {.font = {20}, .alignment = TextAlignment::Center});
    const Rect right = inkOf("mm", {.font = {20}, .alignment = TextAlignment::Right});
    EXPECT_NEAR(left.x, MIDDLE.x, 3);
    EXPECT_NEAR(centre.center().x, MIDDLE.center().x, 1.5);
    EXPECT_NEAR(right.right(), MIDDLE.right(), 3);
    // Also what is read from right to left: a side is a side.
    EXPECT_NEAR(inkOf("سلام", {.font = {20}, .alignment = TextAlignment::Left}).x, MIDDLE.x, 3);
}

TEST(CairoTextTest, CapitalsAreInTheMiddleAndAllLettersShareABaseline) {
    const TextStyle style{.font = {30}};
    const Rect capital = inkOf("H", style);
    EXPECT_NEAR(capital.center().y, MIDDLE.center().y, 1);
    for (const char* const letter : {"A", "x", "i", "l", "."}) {
        EXPECT_NEAR(inkOf(letter, style).bottom(), capital.bottom(), 1) << letter;
    }
    EXPECT_GT(inkOf("g", style).bottom(), capital.bottom() + 3);
    // Joining letters that stand on the line do so together.
    EXPECT_NEAR(inkOf("ا", style).bottom(), inkOf("د", style).bottom(), 1);
}

TEST(CairoTextTest, WidthDoesNotDependOnTheScale) {
    for (const std::string text : {"The quick brown fox", "سلام عليكم", "😀👍", "a😀ب"}) {
        const double width = widthOf(text, {17.3});
        for (const double scale : {1.5, 2.0, 3.0}) {
            EXPECT_NEAR(ui::TextLayouts(scale).line(text, {17.3}).width, width, width * 0.02)
                << text << scale;
        }
    }
}

TEST(CairoTextTest, WideTextIsSetSmallerAndThenShortened) {
    ui::TextLayouts texts(1);
    const std::string text = "congratulations";
    const double full = texts.line(text, {20}).width;

    const ui::TextLine& fitted = texts.fittedLine(text, {20}, full * 0.8, 0.5);
    EXPECT_NEAR(fitted.fontSize, 16, 0.1);
    EXPECT_NEAR(fitted.width, full * 0.8, 0.5);
    EXPECT_FALSE(pango_layout_is_ellipsized(fitted.layout.get()));

    const ui::TextLine& cut = texts.fittedLine(text, {20}, full * 0.3, 0.5);
    EXPECT_DOUBLE_EQ(cut.fontSize, 10);
    EXPECT_LE(cut.width, full * 0.3 + 0.1);
    EXPECT_TRUE(pango_layout_is_ellipsized(cut.layout.get()));

    const ui::TextLine& kept = texts.fittedLine(text, {20}, full * 0.8, 1);
    EXPECT_DOUBLE_EQ(kept.fontSize, 20);
    EXPECT_TRUE(pango_layout_is_ellipsized(kept.layout.get()));
    EXPECT_EQ(&texts.fittedLine(text, {20}, full, 0.5), &texts.line(text, {20})) << "what fits is left alone";
}

TEST(CairoTextTest, ArabicLettersJoin) {
    const std::string joined = "بيت";
    const double apart = widthOf("ب") + widthOf("ي") + widthOf("ت");
    EXPECT_LT(widthOf(joined), apart * 0.8);
    // Lam and alef become one sign, which is narrower than the two side by side.
    EXPECT_LT(widthOf("لا"), (widthOf("ل") + widthOf("ا")) * 0.9);
}

TEST(CairoTextTest, RightToLeftTextBeginsAtTheRight) {
    ui::TextLayouts texts(1);
    const auto xOf = [](const ui::TextLine& line, int index) {
        PangoRectangle place{};
        pango_layout_index_to_pos(line.layout.get(), index, &place);
        return place.x;
    };
    const ui::TextLine& arabic = texts.line("دار abc", {20});
    EXPECT_TRUE(arabic.rightToLeft);
    EXPECT_GT(xOf(arabic, 0), xOf(arabic, 2)) << "letters of two bytes";
    EXPECT_GT(xOf(arabic, 0), xOf(arabic, 7)) << "the Latin word comes after, so further left";
    EXPECT_LT(xOf(arabic, 7), xOf(arabic, 8)) << "and runs to the right in itself";
    EXPECT_FALSE(texts.line("abc دار", {20}).rightToLeft);
}

TEST(CairoTextTest, LightIsLighterThanRegularThanMedium) {
    const double light = inkAmount("hamburg", FontWeight::Light);
    const double regular = inkAmount("hamburg", FontWeight::Regular);
    EXPECT_LT(light, regular * 0.9);
    EXPECT_LT(regular, inkAmount("hamburg", FontWeight::Medium) * 0.95);
}

TEST(CairoTextTest, EmojiAreColouredAndSignsAreNot) {
    for (const std::string emoji : {"😀", "👍🏽", "🇪🇬", "❤️", "👩‍🚀"}) {
        CairoCanvas canvas;
        canvas.text(emoji, MIDDLE, {.font = {30}});
        EXPECT_GT(canvas.colouredPixels(), 50) << emoji;
        EXPECT_LT(canvas.inkBounds().width, 45) << emoji << " is one picture";
        EXPECT_NEAR(canvas.inkBounds().center().y, MIDDLE.center().y, 4) << emoji;
    }
    for (const std::string sign : {"❮", "❯", "➔", "↲", "×", "÷", "※", "•", "£", "€", "₹", "1", "#", "*"}) {
        CairoCanvas canvas;
        canvas.text(sign, MIDDLE, {.font = {30}});
        EXPECT_GT(canvas.ink(), 5) << sign;
        EXPECT_EQ(canvas.colouredPixels(), 0) << sign;
    }
}

TEST(CairoTextTest, DigitsAndTheNumberSignAreOfTheLettersFace) {
    // Emoji fonts have them too, twice as wide.
    EXPECT_LT(widthOf("1234567890"), 10 * widthOf("n") * 1.1);
    EXPECT_LT(widthOf("#"), 1.5 * widthOf("n"));
}

TEST(CairoTextTest, EverySignHasAGlyph) {
    ui::TextLayouts texts(1);
    for (const std::string text : {"❮❯➔↲×÷※•£€₹¥₩§¿¡…°«»“”‘’–—¬√π±≠≈∞",
                                   "ضصثقفغعهخحجدشسيبلاتنمكطئءؤرىةوزظإأآٱ،؛؟٪ـ٠١٢٣٤٥٦٧٨٩", "ًٌٍَُِّْ", "یکگچپژ"}) {
        const ui::TextLine& line = texts.line(text, {20});
        EXPECT_EQ(pango_layout_get_unknown_glyphs_count(line.layout.get()), 0) << text;
    }
}

TEST(CairoTextTest, DamagedTextIsDrawnAsFarAsItGoes) {
    const std::vector<std::string> texts{"\xff\xfe", "ok\xc3", std::string("a\0b", 3), "a\nb",
                                         "\xed\xa0\x80"};
    for (const std::string& text : texts) {
        CairoCanvas canvas;
        canvas.text(text, MIDDLE);
        EXPECT_GT(canvas.ink(), 1);
        EXPECT_LT(canvas.inkBounds().height, 40) << "one line";
    }
    EXPECT_EQ(CairoCanvas().text("", MIDDLE).ink(), 0);
    EXPECT_EQ(CairoCanvas().text("a", {20, 20, 0, 20}).ink(), 0);
    EXPECT_LE(widthOf("a", {-3}), 2);
}

TEST(CairoTextTest, LinesAreKeptAndTheirNumberIsBounded) {
    ui::TextLayouts texts(1);
    const ui::TextLine* const first = &texts.line("first", {20});
    EXPECT_EQ(&texts.line("first", {20}), first);
    EXPECT_NE(&texts.line("first", {21}), first);
    EXPECT_NE(&texts.line("first", {20, FontWeight::Regular}), first);

    ui::RecentCache<int, int> cache(10);
    for (int i = 0; i < 1000; ++i) {
        cache.add(i, i);
        ASSERT_NE(cache.find(0), nullptr) << "what is asked for again and again stays";
        ASSERT_NE(cache.find(std::max(0, i - 3)), nullptr);
        ASSERT_LE(cache.size(), 20U);
    }
    EXPECT_EQ(cache.find(500), nullptr);
}

}  // namespace
}  // namespace vorpel::testing
