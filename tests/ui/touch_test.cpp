// SPDX-License-Identifier: Apache-2.0
#include "ui/touch.h"

#include "ui/control.h"
#include "ui/tap_gesture.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vorpel::ui {
namespace {

using Names = std::vector<std::string>;

constexpr std::pair<ControlEvent, const char*> EVENT_NAMES[] = {
    {ControlEvent::TouchDown, "down"},       {ControlEvent::TouchDownRepeat, "repeat"},
    {ControlEvent::TouchDragInside, "drag"}, {ControlEvent::TouchDragOutside, "drag outside"},
    {ControlEvent::TouchDragEnter, "enter"}, {ControlEvent::TouchDragExit, "exit"},
    {ControlEvent::TouchUpInside, "up"},     {ControlEvent::TouchUpOutside, "up outside"},
    {ControlEvent::TouchCancel, "cancel"},
};

class TouchTest : public UiTest {
protected:
    TouchTest() {
        listen(*control, "");
        root.addSubview(*control);
    }

    void listen(Control& sender, const std::string& prefix) {
        for (const auto& [event, name] : EVENT_NAMES) {
            sender.addTarget(this, "log", event,
                             [this, text = prefix + name](Control&) { log.push_back(text); });
        }
    }

    Names takeLog() { return std::exchange(log, {}); }

    Names log;
    std::unique_ptr<Control> control = std::make_unique<Control>(Rect{100, 100, 40, 40});
};

TEST_F(TouchTest, AFingerGoesThroughTheEventsOfAControl) {
    struct Case {
        const char* what;
        std::vector<Point> points;
        Names events;
    };
    const std::vector<Case> cases{
        {"tap", {{120, 120}}, {"down", "up"}},
        {"slips a little off, which still counts", {{120, 120}, {160, 120}}, {"down", "drag", "up"}},
        {"leaves", {{120, 120}, {200, 120}}, {"down", "exit", "drag outside", "up outside"}},
        {"leaves and comes back",
         {{120, 120}, {200, 120}, {210, 120}, {120, 120}},
         {"down", "exit", "drag outside", "drag outside", "enter", "drag", "up"}},
    };
    for (const Case& one : cases) {
        advance(1);
        stroke(one.points);
        EXPECT_EQ(takeLog(), one.events) << one.what;
    }
}

TEST_F(TouchTest, EachFingerHoldsOneControlAndIsCancelledOnce) {
    window.touchDown(1, {120, 120});
    window.touchDown(3, {125, 125});  // on a control that is held already
    window.touchUp(1, {120, 120});
    window.touchUp(3, {125, 125});
    EXPECT_EQ(takeLog(), (Names{"down", "up"}));

    advance(1);
    window.touchDown(1, {120, 120});
    window.touchDown(1, {125, 125});  // the host lost the finger's end
    window.touchCancelled(1);
    window.touchMoved(1, {130, 120});
    window.touchUp(1, {120, 120});
    EXPECT_EQ(takeLog(), (Names{"down", "cancel", "down", "repeat", "cancel"}));
}

TEST_F(TouchTest, AControlThatIsDisabledOrLeavesMidTouchIsReadyForTheNextFinger) {
    window.touchDown(1, {120, 120});
    control->setEnabled(false);
    EXPECT_FALSE(control->isHighlighted());
    window.touchUp(1, {121, 120});
    tap({120, 120});
    EXPECT_EQ(takeLog(), (Names{"down", "cancel"}));

    advance(1);
    control->setEnabled(true);
    window.touchDown(1, {120, 120});
    control->removeFromSuperview();
    EXPECT_FALSE(control->isHighlighted());
    root.addSubview(*control);
    window.touchUp(1, {120, 120});
    advance(1);
    tap({120, 120});
    EXPECT_EQ(takeLog(), (Names{"down", "down", "up"}));
}

TEST_F(TouchTest, AnActionMayDestroyItsControlAtAnyEvent) {
    for (const auto& [event, name] : EVENT_NAMES) {
        advance(1);
        control = std::make_unique<Control>(Rect{100, 100, 40, 40});
        root.addSubview(*control);
        // The first of two: the one after it is gone with the control.
        control->addTarget(this, "destroy", event, [this](Control&) { control.reset(); });
        control->addTarget(this, "log", event, [this](Control&) { log.emplace_back("gone"); });
        tap({120, 120});
        stroke({{120, 120}, {200, 120}, {120, 120}, {200, 120}});
        window.touchDown(1, {120, 120});
        window.touchCancelled(1);
        EXPECT_EQ(control, nullptr) << name;
    }
    EXPECT_EQ(takeLog(), Names{});
}

TEST_F(TouchTest, ActionsThatAreAddedMeanwhileWaitForTheNextEvent) {
    control->addTarget(&log, "add", ControlEvent::TouchDown, [this](Control&) {
        control->addTarget(&log, "later", ControlEvent::TouchDown,
                           [this](Control&) { log.emplace_back("later"); });
    });
    tap({120, 120});
    EXPECT_EQ(takeLog(), (Names{"down", "up"}));
}

class TapGestureTest : public TouchTest {
protected:
    TapGestureTest() { gesture.attachTo(root); }
    TapGesture gesture{[this](const Touch& touch) {
        log.push_back(touch.view() == control.get() ? "tapped control" : "tapped");
    }};
};

TEST_F(TapGestureTest, AShortTouchThatHardlyMovedIsATap) {
    struct Case {
        const char* what;
        Point farthest;
        double seconds;
        Names log;
    };
    for (const Case& one : {Case{"tap", {20, 20}, 0.1, {"tapped"}}, Case{"shaky", {26, 26}, 0.1, {"tapped"}},
                            Case{"moved", {29, 29}, 0.1, {}}, Case{"held", {20, 20}, 0.8, {}}}) {
        window.touchDown(1, {20, 20});
        advance(one.seconds);
        window.touchMoved(1, one.farthest);
        window.touchUp(1, {20, 20});
        EXPECT_EQ(takeLog(), one.log) << one.what;
    }
    window.touchDown(1, {20, 20});
    window.touchDown(2, {60, 20});
    window.touchUp(1, {20, 20});
    window.touchUp(2, {60, 20});
    EXPECT_EQ(takeLog(), (Names{"tapped", "tapped"})) << "each of two fingers taps for itself";
    gesture.setMayRest();
    window.touchDown(1, {20, 20});
    advance(5);
    window.touchUp(1, {20, 20});
    EXPECT_EQ(takeLog(), Names{"tapped"}) << "held for long";
}

TEST_F(TapGestureTest, SeesTouchesOnControlsBeforeThemUnlessItRefuses) {
    tap({120, 120});
    EXPECT_EQ(takeLog(), (Names{"down", "tapped control", "up"}));
    gesture.setShouldReceive([&](const Touch& touch) { return touch.view() != control.get(); });
    advance(1);
    tap({120, 120});
    EXPECT_EQ(takeLog(), (Names{"down", "up"}));
}

}  // namespace
}  // namespace vorpel::ui
