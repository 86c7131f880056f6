// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vorpel {
namespace {

using testing::Stage;
using ui::ControlEvent;
using ui::Point;
using Log = std::vector<std::string>;

/// Keeps the control events of all keys of the first page.
class Touches : public ::testing::Test, protected Stage {
protected:
    Touches() {
        const std::pair<ControlEvent, const char*> EVENTS[] = {
            {ControlEvent::TouchDown, " down"},       {ControlEvent::TouchDownRepeat, " repeat"},
            {ControlEvent::TouchDragInside, " drag"}, {ControlEvent::TouchDragEnter, " enter"},
            {ControlEvent::TouchDragExit, " exit"},   {ControlEvent::TouchUpInside, " up"},
            {ControlEvent::TouchCancel, " cancel"}};
        for (const char* const name : {"q", "w", "e", "a", "s", "shift", "z", "backspace", "return"}) {
            for (const auto& [event, suffix] : EVENTS) {
                face(name).addTarget(
                    this, "log", event,
                    [this, text = std::string(name) + suffix](ui::Control&) { log_.push_back(text); });
            }
        }
    }

    /// What came since it was last asked.
    Log log() { return std::exchange(log_, {}); }

    [[nodiscard]] bool earlier(const ui::View& one, const ui::View& other) const {
        const auto views = keys().subviews();
        return std::ranges::find(views, &one) < std::ranges::find(views, &other);
    }

    [[nodiscard]] Point outside() const { return {100, keys().frame().y - 1}; }

private:
    Log log_;
};

TEST_F(Touches, GoToTheirKeyAndOfATapThatFollowsItIsToldTwice) {
    down(1, "q");
    up(1);
    EXPECT_EQ(log(), (Log{"q down", "q up"}));
    EXPECT_EQ(face("q").touchedAtPosition, center("q") - keys().frame().origin());
    advance(0.3);
    down(1, "q");
    up(1);
    EXPECT_EQ(log(), (Log{"q down", "q repeat", "q up"}));
}

TEST_F(Touches, RollFromKeyToKey) {
    down(1, "q");
    move(1, center("q") + Point{1, 0});
    move(1, "w");
    move(1, outside());
    move(1, "e");
    up(1);
    EXPECT_EQ(log(), (Log{"q down", "q drag", "q exit", "w enter", "w exit", "e enter", "e up"}));
    EXPECT_EQ(text(), "e");
}

TEST_F(Touches, LetGoOutsideOrCancelledTypeNothing) {
    down(1, "q");
    up(1, outside());
    down(1, "w");
    cancel(1);
    down(1, Point{center("a").x, keys().frame().bottom()});
    up(1);
    down(1, outside());
    move(1, "a");
    up(1);
    EXPECT_EQ(log(), (Log{"q down", "q cancel", "w down", "w cancel"}));
    EXPECT_EQ(keys().ownedTouchCount(), 0U);
    EXPECT_EQ(text(), "");
    down(1, "q");
    up(1, {374.9, keys().frame().bottom() - 0.1});
    EXPECT_EQ(text(), "q") << "a release acts on the key that is held, wherever inside it happens";
}

TEST_F(Touches, OfSeveralFingersTypeInTheOrderOfTheReleases) {
    down(1, "q");
    down(2, "w");
    down(3, "e");
    up(2);
    up(1);
    up(3);
    EXPECT_EQ(text(), "wqe");
}

TEST_F(Touches, ASecondFingerTakesTheKeySilently) {
    down(1, "q");
    down(2, "q");
    move(1, "w");
    up(1);
    up(2);
    EXPECT_EQ(log(), (Log{"q down", "q up"}));
    EXPECT_EQ(text(), "q");
    advance(1);
    down(1, "a");
    down(2, "s");
    move(2, "a");  // takes it by sliding
    move(2, "s");
    up(1);
    up(2);
    EXPECT_EQ(log(), (Log{"a down", "s down", "s exit", "a drag", "a exit", "s enter", "s up"}));
    EXPECT_EQ(popups(), 1U);
    advance(0.06);
    EXPECT_EQ(popups(), 0U);
    EXPECT_TRUE(highlighted().empty());
}

TEST_F(Touches, InGapsHitTheNearestKeyTheEarlierViewOfTwo) {
    const ui::Rect q = frameOf("q");
    const ui::Rect w = frameOf("w");
    const ui::Rect a = frameOf("a");
    const ui::Rect z = frameOf("z");
    const double middle = (q.right() + w.x) / 2;
    const std::pair<Point, const char*> HITS[] = {
        {{middle, q.center().y}, earlier(face("q"), face("w")) ? "q" : "w"},
        {{middle - 0.1, q.center().y}, "q"},
        {{middle + 0.1, q.center().y}, "w"},
        {{0, keys().frame().y}, "q"},
        {{0, a.center().y}, "a"},
        {{0, keys().frame().bottom() - 0.1}, "123"},
        {{374.9, keys().frame().bottom() - 0.1}, "return"},
        {{q.center().x, (q.bottom() + a.y) / 2 - 0.1}, "q"},
        {{a.x, (a.bottom() + z.y) / 2 + 0.5}, "shift"},
    };
    for (const auto& [point, name] : HITS) {
        const auto* const view = keys().findNearestView(point - keys().frame().origin());
        EXPECT_EQ(view, &face(name)) << point.x << ", " << point.y << " is to be " << name;
    }
    face("q").setAlpha(0.3);
    touch("w");
    EXPECT_EQ(face("q").alpha(), 1) << "faded keys come back";
}

TEST_F(Touches, PassOverKeysThatAreNotOnShowOrHaveNoRoom) {
    const ui::Rect q = face("q").frame();
    face("q").setHidden(true);
    EXPECT_EQ(keys().findNearestView({q.x + 1, q.y + 1}), &face("w"));
    face("q").setHidden(false);
    face("q").setFrame({q.x, q.y, -4, q.height});
    EXPECT_EQ(keys().findNearestView({q.x, q.y + 1}), &face("w"));
    ForwardingView empty(platform.runLoop, platform.notificationCenter);
    empty.setFrame({0, 0, 10, 10});
    EXPECT_EQ(empty.findNearestView({5, 5}), nullptr);
}

TEST_F(Touches, AreLetGoOfAllAtOnce) {
    field().setText("0123456789");
    down(1, "backspace");
    down(2, "q");
    advance(0.52);
    const std::string left = text();
    log();
    keys().resetTrackedViews();
    Log told = log();
    std::ranges::sort(told);
    EXPECT_EQ(told, (Log{"backspace cancel", "q cancel"}));
    advance(1);
    up(1);
    up(2);
    EXPECT_EQ(text(), left);
    EXPECT_TRUE(log().empty());
}

TEST_F(Touches, LetGoOfByTheirOwnKeyAreToldNoMoreOfIt) {
    const auto letGo = [this](ui::Control&) { keys().resetTrackedViews(); };
    face("q").addTarget(this, "let go", ControlEvent::TouchDown, letGo);
    face("a").addTarget(this, "let go", ControlEvent::TouchDragExit, letGo);
    for (int tap = 0; tap < 2; ++tap) {
        down(1, "q");
        move(1, "w");
        up(1);
        EXPECT_EQ(log(), (Log{"q down", "q cancel"})) << "tap " << tap;
    }
    down(1, "a");
    move(1, "s");
    up(1);
    EXPECT_EQ(log(), (Log{"a down", "a exit", "a cancel"}));
}

TEST_F(Touches, AreTakenByTheWholeViewOrNotAtAll) {
    ForwardingView& view = keys();
    EXPECT_EQ(view.hitTest({0, 0}), &view);
    EXPECT_EQ(view.hitTest({view.frame().width, 0}), nullptr);
    view.setAlpha(0);
    EXPECT_EQ(view.hitTest({0, 0}), nullptr);
    view.setAlpha(1);
    view.setUserInteractionEnabled(false);
    EXPECT_EQ(view.hitTest({0, 0}), nullptr);
    view.setUserInteractionEnabled(true);
    view.setHidden(true);
    EXPECT_EQ(view.hitTest({0, 0}), nullptr);
    view.handleControl(nullptr, ControlEvent::TouchDown);
    view.handleControl(&view, ControlEvent::TouchDown);
    EXPECT_TRUE(view.isSpaceButton(&face("space")));
    EXPECT_FALSE(view.isSpaceButton(&face("q")));
    EXPECT_FALSE(view.isBackspaceButton(&face("backspace")));
}

/// As a subclass would that opens the emoji keyboard by a press.
class TimedView final : public ForwardingView {
public:
    using ForwardingView::ForwardingView;
    using ForwardingView::startTime;
    using ForwardingView::timerOn;
    using ForwardingView::velocityArray;
};

TEST_F(Touches, TimedPressesOpenTheEmojiKeyboardWhenTheyAreShort) {
    int opened = 0;
    const auto observation = platform.notificationCenter.addObserver(
        "open Emoji Keyboard", [&](const platform::Notification&) { ++opened; });
    TimedView view(platform.runLoop, platform.notificationCenter);
    KeyboardKey keysOfIt[2];
    int cancelled = 0;
    for (KeyboardKey& key : keysOfIt) {
        key.setFrame({&key == keysOfIt ? 0.0 : 50.0, 0, 40, 40});
        key.addTarget(this, "count", ControlEvent::TouchCancel, [&](ui::Control&) { ++cancelled; });
        view.addSubview(key);
    }
    view.setFrame({0, 0, 100, 40});
    window.setRoot(&view);
    const auto press = [&](double seconds, bool moves) {
        down(1, Point{5, 5});
        view.timerOn = true;
        view.startTime = platform.runLoop.now();
        advance(seconds);
        if (moves) move(1, Point{60, 5});
        up(1);
        EXPECT_FALSE(view.timerOn);
        EXPECT_EQ(view.startTime, std::nullopt);
        return std::exchange(opened, 0);
    };
    EXPECT_EQ(press(0.59, false), 1);
    EXPECT_EQ(press(0.61, false), 0);
    EXPECT_EQ(press(0.1, true), 0);
    EXPECT_EQ(cancelled, 3);
}

TEST_F(Touches, MoveTheCursorByTheSquareOfTheWay) {
    TimedView view(platform.runLoop, platform.notificationCenter);
    EXPECT_EQ(view.getVelocity({3, 4}, {0, 0}, 0.5), 50);
    EXPECT_EQ(view.getDirectionWithHorizontal({3, 0}, {2.9, 0}), SwipeDirection::Left);
    EXPECT_EQ(view.getDirectionWithHorizontal({3, 0}, {3, 9}), SwipeDirection::Right);
    const std::pair<double, int> OFFSETS[] = {{0, 1},
                                              {12427038, 1},
                                              {12427039, 2},
                                              {12427039.0 * 18.5, 19},
                                              {12427039.0 * 19, 20},
                                              {1e300, 20},
                                              {std::numeric_limits<double>::quiet_NaN(), 20}};
    for (const auto& [velocity, offset] : OFFSETS) {
        EXPECT_EQ(view.getOffsetForVelocity(velocity), offset) << velocity;
    }
    view.performCursorMovement(1, {0, 0});
    view.performCursorMovement(1.5, {3, 4});
    view.performCursorMovement(2, {3, 4});
    EXPECT_EQ(view.velocityArray, (std::vector<double>{50, 0}));
}

}  // namespace
}  // namespace vorpel
