// SPDX-License-Identifier: Apache-2.0
#include "ui/button.h"
#include "ui/label.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <string>

namespace vorpel::ui {
namespace {

using vorpel::testing::Drawn;

/// Draws the view alone and returns what came of it.
vorpel::testing::RecordingPainter draw(View& view) {
    vorpel::testing::RecordingPainter painter;
    view.draw(painter);
    return painter;
}

TEST(Widgets, ALabelShrinksAndWrapsOnlyWhenItMay) {
    Label label(Rect{10, 10, 100, 20});
    label.setText("word");
    label.setMinimumScaleFactor(0.6);
    EXPECT_EQ(draw(label).find(Drawn::What::Text)->minimumScale, 1);
    label.setAdjustsFontSizeToFitWidth(true);
    EXPECT_EQ(draw(label).find(Drawn::What::Text)->minimumScale, 0.6);
    label.setWraps(true);
    EXPECT_NE(draw(label).find(Drawn::What::Paragraph), nullptr);
    EXPECT_EQ(label.hitTest({5, 5}), nullptr) << "touches go through";
}

TEST(Widgets, AStateWithoutValuesOfItsOwnShowsThoseOfNormal) {
    Button button(Rect{0, 0, 100, 40});
    button.setTitle("normal");
    button.setTitle("pressed", ControlState::Highlighted);
    button.setTitle("", ControlState::Disabled);
    button.setBackgroundColor(Color::black());
    button.setBackgroundColor(Color::rgb(0, 1, 0), ControlState::Selected);
    button.setSelected(true);
    EXPECT_EQ(draw(button).texts(), std::vector<std::string>{"normal"});
    EXPECT_EQ(draw(button).find(Drawn::What::Rect)->color, Color::rgb(0, 1, 0));
    button.setHighlighted(true);
    EXPECT_EQ(draw(button).texts(), std::vector<std::string>{"pressed"});
    EXPECT_EQ(draw(button).find(Drawn::What::Rect)->color, Color::black());
    button.setEnabled(false);
    EXPECT_TRUE(draw(button).texts().empty()) << "empty is a value too";
}

TEST(Widgets, AButtonDrawsGroundThenPictureThenTitleWithinTheirInsets) {
    Button button(Rect{0, 0, 100, 40});
    button.setBackgroundColor(Color::black());
    button.setCornerRadius(6);
    button.setImage("mark.svg");
    button.setImageInsets({5, 5, 5, 60});
    button.setTitle("a title that is wider than the button");
    button.setTitleInsets({1, 40, 3, 4});
    const auto drawn = draw(button).drawn;
    ASSERT_EQ(drawn.size(), 3U);
    EXPECT_EQ(drawn[0].what, Drawn::What::Path) << "rounded";
    EXPECT_EQ(drawn[1].rect, (Rect{5, 5, 35, 30}));
    EXPECT_EQ(drawn[2].rect, (Rect{40, 1, 56, 36}));
    button.setTitleInsets({0, 50, 0, 50});
    EXPECT_TRUE(draw(button).texts().empty()) << "no room";
}

}  // namespace
}  // namespace vorpel::ui
