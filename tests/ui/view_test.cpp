// SPDX-License-Identifier: Apache-2.0
#include "ui/view.h"

#include "ui/button.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <vector>

namespace vorpel::ui {
namespace {

using ViewTest = UiTest;

TEST_F(ViewTest, TheTopmostViewThatTakesTouchesIsHit) {
    View left(Rect{10, 10, 100, 100});
    View right(Rect{60, 20, 100, 100});  // over a part of the left one
    View inner(Rect{-20, 10, 40, 40});   // reaches out of the right one
    root.addSubview(left);
    root.addSubview(right);
    right.addSubview(inner);
    const auto hit = [&] { return root.hitTest({70, 40}); };
    EXPECT_EQ(hit(), &inner);
    EXPECT_EQ(root.hitTest({50, 40}), &left) << "what lies outside its superview is not hit";
    EXPECT_EQ(root.hitTest({320, 100}), nullptr) << "the right edge does not belong to it";
    right.setAlpha(0);
    EXPECT_EQ(hit(), &left) << "clear with all that is in it";
    right.setAlpha(0.01);
    inner.setUserInteractionEnabled(false);
    EXPECT_EQ(hit(), &right);

    root.setFrame({5, 7, 320, 240});
    EXPECT_EQ(inner.convertToWindow({1, 2}), (Point{5 + 60 - 20 + 1, 7 + 20 + 10 + 2}));
}

TEST(ButtonTest, AStateWithoutValuesOfItsOwnShowsThoseOfNormal) {
    const auto draw = [](View& view) {
        vorpel::testing::RecordingPainter painter;
        view.draw(painter);
        return painter;
    };
    Button button(Rect{0, 0, 100, 40});
    button.setTitle("normal");
    button.setTitle("pressed", ControlState::Highlighted);
    button.setBackgroundColor(Color::black());
    button.setBackgroundColor(Color::rgb(0, 1, 0), ControlState::Selected);
    button.setSelected(true);
    EXPECT_EQ(draw(button).texts(), std::vector<std::string>{"normal"});
    EXPECT_EQ(draw(button).find(vorpel::testing::Drawn::What::Rect)->color, Color::rgb(0, 1, 0));
    button.setHighlighted(true);
    EXPECT_EQ(draw(button).texts(), std::vector<std::string>{"pressed"});
    EXPECT_EQ(draw(button).find(vorpel::testing::Drawn::What::Rect)->color, Color::black());
}

}  // namespace
}  // namespace vorpel::ui
