// SPDX-License-Identifier: Apache-2.0
#include "typeset_text.h"

#include "platform/characters.h"
#include "ui/cairo/text_layouts.h"

#include <gtest/gtest.h>

#include <string>

namespace vorpel::playground {

namespace {

constexpr ui::Font FONT{18, ui::FontWeight::Regular};

class TypesetTextTest : public ::testing::Test {
protected:
    TypesetText typeset(const std::string& text, double width) { return {text, FONT, width, layouts}; }

    ui::TextLayouts layouts{1};
};

TEST_F(TypesetTextTest, ATouchOnTheCursorMeansWhereItStands) {
    const std::string texts[] = {"",
                                 "a",
                                 "The quick brown fox jumps over the lazy dog, again and again",
                                 "one\n\ntwo\nthree\n",
                                 "unbreakablyLongWordThatFillsMoreThanOneLine",
                                 "e\u0301te\u0301 in\nParis",
                                 "صباح الخير يا صديقي العزيز\nكيف حالك اليوم",
                                 "هذا سطر\n\n"};
    for (const std::string& text : texts) {
        for (const double width : {60.0, 131.0, 400.0}) {
            const TypesetText lines = typeset(text, width);
            for (std::size_t offset = 0;; offset = platform::characterBoundaryFrom(text, offset + 1)) {
                const ui::Rect cursor = lines.cursorAt(offset);
                EXPECT_EQ(lines.offsetAt(cursor.center()), offset) << text << " in " << width;
                EXPECT_LE(cursor.bottom(), lines.height() + 0.01);
                if (offset == text.size()) break;
            }
        }
    }
}

TEST_F(TypesetTextTest, TheCursorGoesTheWayTheTextRuns) {
    const TypesetText latin = typeset("abc\nd", 200);
    EXPECT_EQ(latin.alignment(), ui::TextAlignment::Left);
    EXPECT_EQ(latin.cursorAt(0).x, 0);
    EXPECT_LT(latin.cursorAt(1).x, latin.cursorAt(2).x);
    EXPECT_EQ(latin.cursorAt(4).x, 0);
    EXPECT_GT(latin.cursorAt(4).y, latin.cursorAt(3).y);

    const TypesetText arabic = typeset("اب\nت", 200);
    EXPECT_EQ(arabic.alignment(), ui::TextAlignment::Right);
    EXPECT_EQ(arabic.cursorAt(0).x, 200);
    EXPECT_GT(arabic.cursorAt(0).x, arabic.cursorAt(2).x);
    EXPECT_EQ(arabic.cursorAt(5).x, 200);
}

TEST_F(TypesetTextTest, ALineFeedAtTheEndHasALineBehindIt) {
    EXPECT_GT(typeset("a\n", 200).height(), 1.5 * typeset("a", 200).height());
    EXPECT_GT(typeset("a\n", 200).cursorAt(2).y, typeset("a\n", 200).cursorAt(1).y);
}

TEST_F(TypesetTextTest, ATouchBesideTheTextMeansTheNearestPlace) {
    const std::string text = "first line\nsecond";
    const TypesetText lines = typeset(text, 300);
    EXPECT_EQ(lines.offsetAt({-50, -50}), 0U);
    EXPECT_EQ(lines.offsetAt({290, 5}), 10U);  // not on the next line
    EXPECT_EQ(lines.offsetAt({290, 1000}), text.size());
    EXPECT_EQ(lines.offsetAt({-5, 1000}), 11U);
}

}  // namespace

}  // namespace vorpel::playground
