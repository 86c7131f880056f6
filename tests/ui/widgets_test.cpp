// SPDX-License-Identifier: Apache-2.0
#include "ui/button.h"
#include "ui/image_view.h"
#include "ui/label.h"
#include "ui/switch.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <string>

namespace vorpel::ui {
namespace {

using vorpel::testing::Drawn;

class WidgetsTest : public UiTest {
protected:
    /// Draws the view alone and returns what came of it.
    static vorpel::testing::RecordingPainter draw(View& view) {
        vorpel::testing::RecordingPainter painter;
        view.draw(painter);
        return painter;
    }

    /// Paths are made of sums that rounding may touch.
    static void expectNear(const Rect& rect, const Rect& wanted) {
        EXPECT_NEAR(rect.x, wanted.x, 1e-9);
        EXPECT_NEAR(rect.y, wanted.y, 1e-9);
        EXPECT_NEAR(rect.width, wanted.width, 1e-9);
        EXPECT_NEAR(rect.height, wanted.height, 1e-9);
    }
};

TEST_F(WidgetsTest, ALabelShowsItsTextAsItIsTold) {
    Label label(Rect{10, 10, 100, 20});
    EXPECT_EQ(draw(label).find(Drawn::What::Text), nullptr) << "no text";
    label.setText("word");
    label.setFont({20, FontWeight::Medium});
    label.setTextColor(Color::white());
    label.setMinimumScaleFactor(0.6);
    const auto plain = draw(label);
    const Drawn* text = plain.find(Drawn::What::Text);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->rect, label.bounds());
    EXPECT_EQ(text->font, (Font{20, FontWeight::Medium}));
    EXPECT_EQ(text->color, Color::white());
    EXPECT_EQ(text->minimumScale, 1) << "keeps its size until it may shrink";
    label.setAdjustsFontSizeToFitWidth(true);
    EXPECT_EQ(draw(label).find(Drawn::What::Text)->minimumScale, 0.6);
    label.setWraps(true);
    EXPECT_EQ(draw(label).find(Drawn::What::Text), nullptr);
    EXPECT_NE(draw(label).find(Drawn::What::Paragraph), nullptr);
}

TEST_F(WidgetsTest, LabelsAndPicturesLetTouchesThrough) {
    Label label(root.bounds());
    ImageView image(root.bounds());
    root.addSubview(label);
    root.addSubview(image);
    EXPECT_EQ(root.hitTest({10, 10}), &root);
}

TEST_F(WidgetsTest, APictureIsFittedAndTinted) {
    ImageView image(Rect{10, 10, 30, 20});
    image.setTintColor(Color::black());
    EXPECT_TRUE(draw(image).drawn.empty());
    image.setImage("globe.svg");
    const auto painter = draw(image);
    ASSERT_EQ(painter.drawn.size(), 1U);
    EXPECT_EQ(painter.drawn[0].text, "globe.svg");
    EXPECT_EQ(painter.drawn[0].rect, image.bounds());
    EXPECT_EQ(painter.drawn[0].color, Color::black());
}

TEST_F(WidgetsTest, AStateWithoutValuesOfItsOwnShowsThoseOfNormal) {
    Button button(Rect{0, 0, 100, 40});
    EXPECT_EQ(button.currentTitle(), "");
    button.setTitle("normal");
    button.setTitle("pressed", ControlState::Highlighted);
    button.setTitle("", ControlState::Disabled);
    button.setTitleColor(Color::white());
    button.setTitleColor(Color::rgb(1, 0, 0), ControlState::Disabled);
    button.setBackgroundColor(Color::black());
    button.setBackgroundColor(Color::rgb(0, 1, 0), ControlState::Selected);

    EXPECT_EQ(button.titleForState(ControlState::Selected), "normal");
    EXPECT_EQ(button.titleForState(ControlState::Highlighted), "pressed");
    EXPECT_EQ(button.titleForState(ControlState::Disabled), "") << "empty is a value too";
    EXPECT_EQ(button.titleColorForState(ControlState::Highlighted), Color::white());
    EXPECT_EQ(button.backgroundColorForState(ControlState::Normal), Color::black());

    button.setSelected(true);
    EXPECT_EQ(draw(button).find(Drawn::What::Rect)->color, Color::rgb(0, 1, 0));
    button.setHighlighted(true);
    EXPECT_EQ(button.currentTitle(), "pressed");
    EXPECT_EQ(draw(button).texts(), std::vector<std::string>{"pressed"});
    button.setEnabled(false);
    EXPECT_TRUE(draw(button).texts().empty());
    EXPECT_EQ(button.currentTitle(), "");
}

TEST_F(WidgetsTest, AButtonDrawsGroundThenPictureThenTitleWithinTheirInsets) {
    Button button(Rect{0, 0, 100, 40});
    button.setBackgroundColor(Color::black(), ControlState::Normal);
    button.setCornerRadius(6);
    button.setImage("mark.svg");
    button.setImageTint(Color::white());
    button.setImageInsets({5, 5, 5, 60});
    button.setTitle("a title that is wider than the button");
    button.setTitleInsets({1, 40, 3, 4});
    button.setMinimumScaleFactor(0.4);
    const auto painter = draw(button);
    ASSERT_EQ(painter.drawn.size(), 3U);
    EXPECT_EQ(painter.drawn[0].what, Drawn::What::Path) << "rounded";
    expectNear(painter.drawn[0].rect, button.bounds());
    EXPECT_EQ(painter.drawn[1].what, Drawn::What::Image);
    EXPECT_EQ(painter.drawn[1].rect, (Rect{5, 5, 35, 30}));
    EXPECT_EQ(painter.drawn[2].rect, (Rect{40, 1, 56, 36}));
    EXPECT_EQ(painter.drawn[2].minimumScale, 0.4);
    button.setTitleInsets({0, 50, 0, 50});
    EXPECT_TRUE(draw(button).texts().empty()) << "no room";
}

TEST_F(WidgetsTest, ASwitchDrawsItsKnobInsideTheTrackOnTheSideItStands) {
    Switch flip;
    const auto knobOf = [&] { return draw(flip).drawn.back().rect; };
    const Rect off = knobOf();
    expectNear(draw(flip).drawn.front().rect, flip.bounds());
    flip.setOn(true);
    const Rect on = knobOf();
    EXPECT_NEAR(off.x, flip.bounds().width - on.right(), 1e-9) << "as far from one end as from the other";
    EXPECT_GT(on.x, off.right() - off.width / 2);
    const Color onTrack = draw(flip).drawn.front().color;
    flip.setOnTintColor(Color::rgb(1, 0, 0));
    EXPECT_NE(draw(flip).drawn.front().color, onTrack);
    flip.setFrame({0, 0, 91, 51});
    expectNear(draw(flip).drawn.front().rect, {20, 10, 51, 31});
}

}  // namespace
}  // namespace vorpel::ui
