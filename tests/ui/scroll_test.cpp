// SPDX-License-Identifier: Apache-2.0
#include "ui/control.h"
#include "ui/scroll_motion.h"
#include "ui/scroll_view.h"
#include "ui/transaction.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::ui {
namespace {

constexpr double FRAME = 1.0 / 60;

TEST(ScrollMotion, GlidesSlowerAndSlowerToWhereFrictionEndsIt) {
    const auto motion = ScrollMotion::glide(100, 1000, {0, 10000, ScrollMotion::Edge::Bounces});
    EXPECT_EQ(motion.offsetAt(0), 100);
    double last = 100;
    double lastStep = 1e9;
    double time = 0;
    for (; !motion.isOverAt(time); time += FRAME) {
        const double offset = motion.offsetAt(time + FRAME);
        EXPECT_LE(offset - last, lastStep + 1e-9);
        EXPECT_GE(offset, last);
        lastStep = offset - last;
        last = offset;
    }
    EXPECT_NEAR(last, 100 + 1000 / 2.0, 5) << "all of the velocity over the friction";
    EXPECT_NEAR(time, 2.65, 0.1);
    EXPECT_EQ(motion.offsetAt(100), motion.offsetAt(time));
}

TEST(ScrollMotion, AtAnEdgeItStopsOrSwingsOverAndBackWithoutALeap) {
    const auto stops = ScrollMotion::glide(100, 1000, {0, 200, ScrollMotion::Edge::Stops});
    const auto bounces = ScrollMotion::glide(100, 1000, {0, 200, ScrollMotion::Edge::Bounces});
    double farthest = 0;
    double last = 100;
    for (double time = 0; time < 3; time += 0.001) {
        EXPECT_LE(stops.offsetAt(time), 200);
        const double offset = bounces.offsetAt(time);
        EXPECT_LT(std::abs(offset - last), 1.01) << "no faster than it was thrown";
        farthest = std::max(farthest, offset);
        last = offset;
    }
    EXPECT_GT(farthest, 210);
    EXPECT_EQ(stops.offsetAt(3), 200);
    EXPECT_EQ(bounces.offsetAt(3), 200);
    EXPECT_TRUE(bounces.isOverAt(1));
}

TEST(ScrollMotion, IsDrawnBackFromBeyondTheEdges) {
    for (const double start : {-80.0, 280.0}) {
        for (const double velocity : {-2000.0, 0.0, 2000.0}) {
            const auto motion = ScrollMotion::glide(start, velocity, {0, 200, ScrollMotion::Edge::Bounces});
            EXPECT_EQ(motion.offsetAt(0), start);
            EXPECT_FALSE(motion.isOverAt(0));
            EXPECT_EQ(motion.offsetAt(3), start < 0 ? 0 : 200);
        }
    }
    EXPECT_TRUE(ScrollMotion::glide(50, 0, {0, 200}).isOverAt(0));
    EXPECT_TRUE(ScrollMotion::glide(200, 900, {0, 200, ScrollMotion::Edge::Stops}).isOverAt(0));
}

class ScrollTest : public UiTest, protected ScrollDelegate {
protected:
    ScrollTest() {
        scroll.setContentSize({100, 1000});
        scroll.setDelegate(this);
        root.addSubview(scroll);
        scroll.contentView().addSubview(control);
        control.addTarget(this, "log", ControlEvent::TouchCancel, [this](Control&) { log += "cancel "; });
        control.addTarget(this, "log", ControlEvent::TouchUpInside, [this](Control&) { log += "up "; });
        frame();
    }

    void scrollViewDidScroll(ScrollView&) override { ++scrolls; }
    void scrollViewWillBeginDragging(ScrollView&) override { log += "drag "; }
    void scrollViewDidEndDragging(ScrollView&, bool will) override { log += will ? "thrown " : "let go "; }
    void scrollViewWillBeginDecelerating(ScrollView&) override { log += "glide "; }
    void scrollViewDidEndDecelerating(ScrollView&) override { log += "rest "; }
    void scrollViewDidEndScrollingAnimation(ScrollView&) override { log += "arrived "; }

    /// From one point to another with a steady hand, 10 milliseconds between moves; the finger stays down.
    void drag(Point from, Point to, int moves = 10) {
        window.touchDown(1, from);
        for (int i = 1; i <= moves; ++i) {
            advance(0.01);
            const double share = static_cast<double>(i) / moves;
            window.touchMoved(1, {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share});
        }
    }
    void flick(Point from, Point to) {
        drag(from, to);
        window.touchUp(1, to);
    }
    [[nodiscard]] double top() const { return scroll.contentOffset().y; }
    std::string takeLog() { return std::exchange(log, {}); }

    std::string log;
    int scrolls = 0;
    ScrollView scroll{Rect{0, 0, 100, 200}};
    Control control{Rect{0, 0, 100, 400}};
};

TEST_F(ScrollTest, AFingerDrawsTheContentAlongAndTakesTheTouchFromTheControl) {
    window.touchDown(1, {50, 150});
    EXPECT_TRUE(control.isHighlighted());
    window.touchMoved(1, {50, 141});
    EXPECT_TRUE(control.isHighlighted()) << "not far enough yet";
    window.touchMoved(1, {50, 138});
    EXPECT_FALSE(control.isHighlighted());
    EXPECT_EQ(top(), 0) << "does not leap by what it took to begin";
    window.touchMoved(1, {50, 98});
    EXPECT_EQ(top(), 40);
    EXPECT_TRUE(scroll.isDragging());
    advance(0.5);
    window.touchUp(1, {50, 98});
    EXPECT_EQ(top(), 40) << "a finger that stood still before throws nothing";
    EXPECT_EQ(takeLog(), "cancel drag let go ");
    EXPECT_EQ(control.convertToWindow({0, 40}), (Point{0, 0}));
}

TEST_F(ScrollTest, AThrownContentGlidesOnAndRests) {
    flick({50, 180}, {50, 80});  // 1000 points a second
    EXPECT_EQ(top(), 80) << "it took 20 points to begin";
    EXPECT_EQ(takeLog(), "cancel drag thrown glide ");
    EXPECT_TRUE(scroll.isDecelerating());
    advance(0.5);
    EXPECT_NEAR(top(), 80 + 500 * (1 - std::exp(-1.0)), 5) << "whatever the frame";
    advance(5);
    EXPECT_NEAR(top(), 80 + 500, 5);
    EXPECT_EQ(takeLog(), "rest ");
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(ScrollTest, AFingerHoldsWhatGlidesAndPressesNothing) {
    flick({50, 180}, {50, 80});
    advance(0.1);
    takeLog();
    const double held = top();
    window.touchDown(1, {50, 60});
    EXPECT_FALSE(control.isHighlighted());
    advance(1);
    EXPECT_EQ(top(), held);
    window.touchMoved(1, {50, 58});
    EXPECT_EQ(top(), held + 2) << "held already: no way to begin with";
    advance(1);
    window.touchUp(1, {50, 58});
    EXPECT_EQ(takeLog(), "drag let go ");
}

TEST_F(ScrollTest, BeyondTheEndsItStretchesAndSwingsBack) {
    drag({50, 20}, {50, 190});
    EXPECT_LT(top(), -40);
    EXPECT_GT(top(), -100) << "less than the finger moved";
    window.touchUp(1, {50, 190});
    EXPECT_EQ(takeLog(), "cancel drag thrown glide ");
    advance(2);
    EXPECT_EQ(top(), 0);
    EXPECT_EQ(takeLog(), "rest ");

    scroll.setBounces(false);
    drag({50, 20}, {50, 190});
    EXPECT_EQ(top(), 0);
    window.touchUp(1, {50, 190});
    EXPECT_EQ(takeLog(), "cancel drag let go ") << "nothing to glide for";
    scroll.setContentOffset({0, 790});
    flick({50, 180}, {50, 80});
    for (int i = 0; i < 60; ++i) {
        EXPECT_LE(top(), 800);
        advance(FRAME);
    }
    EXPECT_EQ(top(), 800);
}

TEST_F(ScrollTest, TheStretchedContentCaughtInItsSwingDoesNotLeap) {
    flick({50, 20}, {50, 190});
    advance(0.05);
    const double held = top();
    EXPECT_LT(held, 0);
    window.touchDown(1, {50, 100});
    window.touchMoved(1, {50, 100.001});
    EXPECT_NEAR(top(), held, 0.01);
}

TEST_F(ScrollTest, OnlyAlongAnAxisThatScrolls) {
    window.touchDown(1, {20, 100});
    window.touchMoved(1, {90, 110});
    EXPECT_FALSE(scroll.isDragging()) << "across";
    window.touchUp(1, {90, 110});
    EXPECT_EQ(takeLog(), "up ");
    scroll.setAlwaysBounceHorizontal(true);
    flick({20, 100}, {90, 100});
    EXPECT_LT(scroll.contentOffset().x, 0);
    advance(2);
    EXPECT_EQ(scroll.contentOffset(), (Point{0, 0}));
    takeLog();
    scroll.setScrollEnabled(false);
    flick({50, 180}, {50, 80});
    EXPECT_EQ(takeLog(), "up ");
    EXPECT_EQ(top(), 0);
}

TEST_F(ScrollTest, TheProgramMovesItWithinTheContent) {
    scroll.setContentOffset({30, 5000});
    EXPECT_EQ(scroll.contentOffset(), (Point{0, 800}));
    EXPECT_EQ(scrolls, 1);
    scroll.setContentOffset({0, 800});
    EXPECT_EQ(scrolls, 1) << "nothing changed";
    scroll.setContentOffset({0, 0}, Animated::Yes);
    advance(0.15);
    EXPECT_NEAR(top(), 400, 1e-6);
    advance(0.15);
    EXPECT_EQ(top(), 0);
    EXPECT_EQ(takeLog(), "arrived ");
    const Transaction transaction(&window, Actions::Disabled);
    scroll.setContentOffset({0, 200}, Animated::Yes);
    EXPECT_EQ(top(), 200);
}

TEST_F(ScrollTest, ContentThatBecomesShorterStillFillsTheView) {
    scroll.setContentOffset({0, 800});
    scroll.setContentSize({100, 500});
    frame();
    EXPECT_EQ(top(), 300);
    scroll.setFrame({0, 0, 100, 600});
    frame();
    EXPECT_EQ(top(), 0);
}

TEST_F(ScrollTest, TheIndicatorShowsWhileItMovesAndFades) {
    const auto alpha = [&] { return scroll.subviews().back()->alpha(); };
    EXPECT_EQ(alpha(), 0);
    drag({50, 180}, {50, 80});
    EXPECT_EQ(alpha(), 1);
    const Rect bar = scroll.subviews().back()->frame();
    EXPECT_TRUE(scroll.bounds().contains(bar.origin()) && bar.bottom() < 200 && bar.height > 20);
    advance(1);
    window.touchUp(1, {50, 80});
    advance(0.2);
    EXPECT_EQ(alpha(), 1);
    advance(0.25);
    EXPECT_GT(alpha(), 0);
    EXPECT_LT(alpha(), 1);
    advance(1);
    EXPECT_EQ(alpha(), 0);
    frame();
    EXPECT_FALSE(window.needsPaint());
}

TEST_F(ScrollTest, LeavingTheWindowEndsWhatMoves) {
    flick({50, 180}, {50, 80});
    scroll.removeFromSuperview();
    EXPECT_FALSE(scroll.isDecelerating());
    EXPECT_EQ(runLoop.timerCount(), 0U);
    root.addSubview(scroll);
    drag({50, 180}, {50, 80});
    scroll.removeFromSuperview();
    EXPECT_FALSE(scroll.isDragging());
    window.touchMoved(1, {50, 20});
    window.touchUp(1, {50, 20});
    advance(1);
}

TEST_F(ScrollTest, ItsDelegateMayDestroyIt) {
    struct Destroyer : ScrollDelegate {
        std::unique_ptr<ScrollView> view;
        std::string when;
        void destroyAt(const char* event) {
            if (when == event) view.reset();
        }
        void scrollViewDidScroll(ScrollView&) override { destroyAt("scroll"); }
        void scrollViewWillBeginDragging(ScrollView&) override { destroyAt("drag"); }
        void scrollViewDidEndDragging(ScrollView&, bool) override { destroyAt("thrown"); }
        void scrollViewWillBeginDecelerating(ScrollView&) override { destroyAt("glide"); }
        void scrollViewDidEndDecelerating(ScrollView&) override { destroyAt("rest"); }
    };
    for (const char* const when : {"scroll", "drag", "thrown", "glide", "rest"}) {
        Destroyer destroyer;
        destroyer.when = when;
        destroyer.view = std::make_unique<ScrollView>(Rect{100, 0, 100, 200});
        destroyer.view->setContentSize({100, 1000});
        destroyer.view->setDelegate(&destroyer);
        root.addSubview(*destroyer.view);
        flick({150, 180}, {150, 80});
        advance(5);
        EXPECT_EQ(destroyer.view, nullptr) << when;
    }
}

class PagingTest : public ScrollTest {
protected:
    PagingTest() {
        scroll.setContentSize({400, 200});
        scroll.setPagingEnabled(true);
    }
    double pageAfter(Point from, Point to, double holdSeconds) {
        drag(from, to);
        advance(holdSeconds);
        window.touchUp(1, to);
        advance(2);
        return scroll.contentOffset().x / 100;
    }
};

TEST_F(PagingTest, RestsOnWholePagesAndTurnsOneAtATime) {
    EXPECT_EQ(pageAfter({90, 100}, {20, 100}, 1), 1) << "more than half";
    EXPECT_EQ(pageAfter({90, 100}, {50, 100}, 1), 1) << "less than half";
    EXPECT_EQ(pageAfter({90, 100}, {50, 100}, 0), 2) << "a short flick";
    EXPECT_EQ(pageAfter({95, 100}, {-60, 100}, 0), 3) << "a wild one turns one page too";
    EXPECT_EQ(pageAfter({90, 100}, {20, 100}, 0), 3) << "the last";
    EXPECT_EQ(pageAfter({20, 100}, {60, 100}, 0), 2);
    EXPECT_EQ(scroll.contentOffset().y, 0);
}

TEST_F(PagingTest, AListInAPagerScrollsDownwardsAndThePagerAcross) {
    ScrollView list(Rect{0, 0, 100, 200});
    list.setContentSize({100, 1000});
    scroll.contentView().addSubview(list);
    flick({50, 180}, {55, 80});
    advance(5);
    EXPECT_GT(list.contentOffset().y, 90);
    EXPECT_EQ(scroll.contentOffset(), (Point{0, 0}));
    const Point before = list.contentOffset();
    flick({90, 100}, {20, 110});
    advance(5);
    EXPECT_EQ(scroll.contentOffset(), (Point{100, 0}));
    EXPECT_EQ(list.contentOffset(), before);
}

}  // namespace
}  // namespace vorpel::ui
