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
    Animation::Step recorder() {
        return [this](double progress) { steps.push_back(progress); };
    }

    std::vector<double> steps;
    int completions = 0;
    Animation::Completion counter = [this] { ++completions; };
};

TEST(AnimationCurve, RunsFromZeroToOneWithoutTurningBack) {
    for (const auto curve : {AnimationCurve::Linear, AnimationCurve::EaseIn, AnimationCurve::EaseOut,
                             AnimationCurve::EaseInOut}) {
        EXPECT_EQ(valueOf(curve, 0), 0);
        EXPECT_EQ(valueOf(curve, 1), 1);
        for (double time = 0; time < 1; time += 0.01) {
            EXPECT_LE(valueOf(curve, time), valueOf(curve, time + 0.01));
        }
    }
    EXPECT_LT(valueOf(AnimationCurve::EaseIn, 0.5), 0.5);
    EXPECT_GT(valueOf(AnimationCurve::EaseOut, 0.5), 0.5);
    EXPECT_DOUBLE_EQ(valueOf(AnimationCurve::EaseInOut, 0.5), 0.5);
}

TEST_F(AnimationTest, StepsOnceAFrameAndEndsOnTimeAtOne) {
    Animation animation = animate(runLoop, 0.25, AnimationCurve::Linear, recorder(), counter);
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
}

TEST_F(AnimationTest, ALoopThatWasHeldUpSkipsFramesNotTime) {
    const Animation animation = animate(runLoop, 0.25, AnimationCurve::Linear, recorder(), counter);
    clock.advanceTo(clock.now() + 10);
    runLoop.runDue();
    EXPECT_EQ(steps, std::vector<double>{1});
    EXPECT_EQ(completions, 1);
}

TEST_F(AnimationTest, CancelsFinishesAndDiesWithItsHandle) {
    Animation animation = animate(runLoop, 1, AnimationCurve::Linear, recorder(), counter);
    advance(0.1);
    animation.cancel();
    const std::size_t made = steps.size();
    advance(2);
    EXPECT_EQ(steps.size(), made);
    EXPECT_EQ(completions, 0);

    animation = animate(runLoop, 1, AnimationCurve::Linear, recorder(), counter);
    animation.finish();
    animation.finish();
    EXPECT_EQ(steps.back(), 1);
    EXPECT_EQ(completions, 1);

    { const Animation shortLived = animate(runLoop, 1, AnimationCurve::Linear, recorder(), counter); }
    advance(2);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(AnimationTest, AStepMayDestroyItsHandle) {
    for (const double duration : {0.01, 1.0}) {  // in the last step, and in one before it
        std::optional<Animation> animation;
        int calls = 0;
        animation = animate(
            runLoop, duration, AnimationCurve::Linear,
            [&](double) {
                ++calls;
                animation.reset();
            },
            counter);
        advance(2);
        EXPECT_EQ(calls, 1);
    }
    EXPECT_EQ(completions, 0);
}

TEST_F(AnimationTest, AnAnimationMayStartTheNextInItsPlace) {
    Animation animation;
    const auto again = [&] {
        animation = animate(runLoop, 0.1, AnimationCurve::Linear, recorder(), counter);
    };
    animation = animate(runLoop, 0.1, AnimationCurve::Linear, recorder(), again);
    advance(0.3);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(steps.size(), 12U);
}

TEST_F(AnimationTest, TransactionsThatDisableActionsApplyTheEndAtOnce) {
    const auto startsRunning = [&](Window* where) {
        return animate(where, 1, AnimationCurve::Linear, recorder(), counter).isRunning();
    };
    EXPECT_TRUE(startsRunning(&window));
    {
        const Transaction plain(&window);
        EXPECT_TRUE(startsRunning(&window));
        Transaction outer(&window, Actions::Disabled);
        EXPECT_FALSE(startsRunning(&window));
        {
            const Transaction inner(&window, Actions::Enabled);
            EXPECT_FALSE(startsRunning(&window)) << "the outer one holds";
            const Transaction second(&window, Actions::Disabled);
        }
        EXPECT_FALSE(startsRunning(&window));
        outer.commit();
        outer.commit();
        EXPECT_TRUE(startsRunning(&window));
    }
    EXPECT_TRUE(startsRunning(&window));
    EXPECT_FALSE(startsRunning(nullptr)) << "without a window nobody looks";
    EXPECT_EQ(completions, 4);
    EXPECT_EQ(steps, (std::vector<double>{1, 1, 1, 1}));
}

TEST_F(AnimationTest, ADisplayLinkTicksUntilItIsPausedOrDestroyed) {
    int ticks = 0;
    auto link = std::make_unique<DisplayLink>(runLoop, [&](double time) {
        EXPECT_DOUBLE_EQ(time, clock.now());
        ++ticks;
    });
    advance(0.5);
    EXPECT_EQ(ticks, 30);
    link->setPaused(true);
    EXPECT_FALSE(runLoop.nextDeadline());
    advance(0.5);
    link->setPaused(false);
    advance(0.5);
    EXPECT_EQ(ticks, 60);
    link = std::make_unique<DisplayLink>(runLoop, [&](double) { link.reset(); });
    advance(0.5);
    EXPECT_EQ(link, nullptr);
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

class SwitchTest : public AnimationTest {
protected:
    SwitchTest() {
        root.addSubview(*flip);
        flip->addTarget(this, "changed", ControlEvent::ValueChanged,
                        [this](Control& sender) { values.push_back(static_cast<Switch&>(sender).isOn()); });
    }

    std::unique_ptr<Switch> flip = std::make_unique<Switch>(Point{100, 100});
    std::vector<bool> values;
};

TEST_F(SwitchTest, ATapTurnsItOverAtOnceAndTheKnobFollows) {
    tap({110, 110});
    EXPECT_EQ(values, std::vector<bool>{true});
    EXPECT_TRUE(flip->isOn());
    EXPECT_EQ(flip->knobPosition(), 0);
    advance(0.1);
    EXPECT_NEAR(flip->knobPosition(), 0.5, 1e-6);
    tap({110, 110});
    EXPECT_FALSE(flip->isOn());
    advance(1);
    EXPECT_EQ(flip->knobPosition(), 0);
    EXPECT_EQ(values, (std::vector<bool>{true, false}));
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(SwitchTest, TheProgramTurnsItWithoutAnEvent) {
    flip->setOn(true);
    EXPECT_EQ(flip->knobPosition(), 1);
    flip->setOn(false, Animated::Yes);
    EXPECT_EQ(flip->knobPosition(), 1);
    advance(0.2);
    EXPECT_EQ(flip->knobPosition(), 0);
    EXPECT_TRUE(values.empty());
    flip->setEnabled(false);
    tap({110, 110});
    EXPECT_FALSE(flip->isOn());
}

TEST_F(SwitchTest, MayBeDestroyedWhileTheKnobSlidesOrByItsOwnAction) {
    tap({110, 110});
    flip->addTarget(this, "destroy", ControlEvent::ValueChanged, [this](Control&) { flip.reset(); });
    tap({110, 110});
    EXPECT_EQ(flip, nullptr);
    advance(1);
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

}  // namespace
}  // namespace vorpel::ui
