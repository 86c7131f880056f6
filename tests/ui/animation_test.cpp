// SPDX-License-Identifier: Apache-2.0
#include "ui/animation.h"

#include "ui/display_link.h"
#include "ui/switch.h"
#include "ui/transaction.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
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
    EXPECT_TRUE(steps.empty());
    advance(0.1);
    ASSERT_EQ(steps.size(), 6U);
    EXPECT_NEAR(steps.back(), 0.4, 1e-9);
    advance(0.15);
    EXPECT_EQ(steps.size(), 15U);
    EXPECT_EQ(steps.back(), 1);
    EXPECT_EQ(completions, 1);
    EXPECT_FALSE(animation.isRunning());
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
    animation.finish();
    EXPECT_EQ(steps.back(), 1);
    EXPECT_EQ(completions, 1);

    { const Animation shortLived = start(1); }
    advance(2);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(AnimationTest, AStepMayDestroyItsHandle) {
    for (const double duration : {0.01, 1.0}) {  // in the last step, and in one before it
        std::optional<Animation> animation;
        int calls = 0;
        const auto destroy = [&](double) {
            ++calls;
            animation.reset();
        };
        animation = animate(runLoop, duration, AnimationCurve::Linear, destroy, counter);
        advance(2);
        EXPECT_EQ(calls, 1);
    }
    EXPECT_EQ(completions, 0);
}

TEST_F(AnimationTest, TransactionsThatDisableActionsApplyTheEndAtOnce) {
    const auto startsRunning = [&](Window* where) {
        return animate(where, 1, AnimationCurve::Linear, recorder, counter).isRunning();
    };
    Transaction outer(&window, Actions::Disabled);
    {
        const Transaction inner(&window, Actions::Enabled);
        EXPECT_FALSE(startsRunning(&window)) << "the outer one holds";
        const Transaction second(&window, Actions::Disabled);
    }
    EXPECT_FALSE(startsRunning(&window));
    outer.commit();
    outer.commit();
    EXPECT_TRUE(startsRunning(&window));
    const Transaction later(&window, Actions::Disabled);
    EXPECT_FALSE(startsRunning(&window));
    EXPECT_FALSE(startsRunning(nullptr)) << "without a window nobody looks";
    EXPECT_EQ(completions, 4);
    EXPECT_EQ(steps, (std::vector<double>{1, 1, 1, 1}));
}

TEST_F(AnimationTest, ADisplayLinkTicksUntilItIsPausedOrDestroyed) {
    int ticks = 0;
    auto link = std::make_unique<DisplayLink>(runLoop, [&](double) { ++ticks; });
    advance(0.5);
    link->setPaused(true);
    advance(0.5);
    EXPECT_EQ(ticks, 30);
    link = std::make_unique<DisplayLink>(runLoop, [&](double) { link.reset(); });
    advance(0.5);
    EXPECT_EQ(link, nullptr);
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(AnimationTest, ASwitchTurnsAtOnceItsKnobFollowsAndItMayBeDestroyedMeanwhile) {
    auto flip = std::make_unique<Switch>(Point{100, 100});
    root.addSubview(*flip);
    std::vector<bool> values;
    flip->addTarget(this, "changed", ControlEvent::ValueChanged,
                    [&](Control&) { values.push_back(flip->isOn()); });
    tap({110, 110});
    EXPECT_EQ(flip->knobPosition(), 0);
    advance(0.1);
    EXPECT_NEAR(flip->knobPosition(), 0.5, 1e-6);
    flip->setOn(false);
    EXPECT_EQ(flip->knobPosition(), 0);
    advance(1);
    EXPECT_EQ(flip->knobPosition(), 0);
    EXPECT_EQ(values, std::vector<bool>{true}) << "nobody is told of what the program does";
    tap({110, 110});
    flip->addTarget(this, "destroy", ControlEvent::ValueChanged, [&](Control&) { flip.reset(); });
    tap({110, 110});
    EXPECT_EQ(flip, nullptr);
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

}  // namespace
}  // namespace vorpel::ui
