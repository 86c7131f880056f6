// SPDX-License-Identifier: Apache-2.0
#include "ui/animation.h"

#include "ui/switch.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <vector>

namespace vorpel::ui {
namespace {

class AnimationTest : public UiTest {
protected:
    Animation start(double seconds) {
        return animate(runLoop, seconds, AnimationCurve::Linear, recorder, counter);
    }

    std::vector<double> steps;
    int completions = 0;
    Animation::Step recorder = [this](double progress) { steps.push_back(progress); };
    Animation::Completion counter = [this] { ++completions; };
};

TEST_F(AnimationTest, StepsOnceAFrameAndEndsOnTimeAtOne) {
    Animation animation = start(0.25);
    advance(0.1);
    ASSERT_EQ(steps.size(), 6U);
    EXPECT_NEAR(steps.back(), 0.4, 1e-9);
    advance(0.15);
    EXPECT_EQ(steps.size(), 15U);
    EXPECT_EQ(steps.back(), 1);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(runLoop.timerCount(), 0U) << "the loop may sleep again";

    animation = start(0.25);
    clock.advanceTo(clock.now() + 10);
    runLoop.runDue();
    EXPECT_EQ(steps.size(), 16U) << "a loop that was held up skips frames, not time";
    EXPECT_EQ(completions, 2);
}

TEST_F(AnimationTest, CancelsFinishesAndDiesWithItsHandle) {
    Animation animation = start(1);
    advance(0.1);
    animation.cancel();
    const std::size_t made = steps.size();
    advance(2);
    EXPECT_EQ(steps.size(), made);
    EXPECT_EQ(completions, 0);
    animation = start(1);
    animation.finish();
    EXPECT_EQ(steps.back(), 1);
    EXPECT_EQ(completions, 1);
    animation = start(1);
    animation = {};
    EXPECT_EQ(runLoop.timerCount(), 0U);
    EXPECT_EQ(completions, 1);
}

TEST_F(AnimationTest, ASwitchTurnsAtOnceAndItsKnobFollows) {
    Switch flip({100, 100});
    root.addSubview(flip);
    std::vector<bool> values;
    flip.addTarget(this, "changed", ControlEvent::ValueChanged,
                   [&](Control&) { values.push_back(flip.isOn()); });
    tap({110, 110});
    EXPECT_EQ(flip.knobPosition(), 0);
    advance(0.1);
    EXPECT_NEAR(flip.knobPosition(), 0.5, 1e-6);
    flip.setOn(false);
    advance(1);
    EXPECT_EQ(flip.knobPosition(), 0);
    EXPECT_EQ(values, std::vector<bool>{true}) << "nobody is told of what the program does";
}

}  // namespace
}  // namespace vorpel::ui
