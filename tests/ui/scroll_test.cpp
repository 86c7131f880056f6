// SPDX-License-Identifier: Apache-2.0
#include "ui/control.h"
#include "ui/scroll_motion.h"
#include "ui/scroll_view.h"
#include "ui/transaction.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace vorpel::ui {
namespace {

TEST(ScrollMotion, ComesToRestInsideWithoutALeapAndStopsOrSwingsAtTheEdges) {
    using Edge = ScrollMotion::Edge;
    const auto isInside = [](double offset) { return offset >= 0 && offset <= 200; };
    for (const double start : {-80.0, 0.0, 100.0, 280.0}) {
        for (const double velocity : {-2000.0, 0.0, 50.0, 1000.0}) {
            for (const Edge edge : {Edge::Stops, Edge::Bounces}) {
                SCOPED_TRACE(::testing::Message() << start << ' ' << velocity << ' ' << int(edge));
                const auto motion = ScrollMotion::glide(start, velocity, {0, 200, edge});
                const double fastest = std::max(std::abs(velocity), 500.0);  // or as it is drawn back
                const bool mayLeave = edge == Edge::Bounces || !isInside(start);
                double last = start;
                for (double time = 0; time < 4; time += 0.001) {
                    const double offset = motion.offsetAt(time);
                    EXPECT_LE(std::abs(offset - last), 0.001 * fastest + 0.01) << time;
                    EXPECT_TRUE(mayLeave || isInside(offset)) << offset;
                    last = offset;
                }
                EXPECT_TRUE(motion.isOverAt(4) && isInside(last));
            }
        }
    }
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

    void scrollViewWillBeginDragging(ScrollView&) override { log += "drag "; }
    void scrollViewDidEndDragging(ScrollView&, bool will) override { log += will ? "thrown " : "let go "; }
    void scrollViewWillBeginDecelerating(ScrollView&) override { log += "glide "; }
    void scrollViewDidEndDecelerating(ScrollView&) override { log += "rest "; }
    void scrollViewDidEndScrollingAnimation(ScrollView&) override { log += "arrived "; }

    /// From one point to another with a steady hand, 10 milliseconds between moves; the finger stays down.
    void drag(Point from, Point to) {
        constexpr int MOVES = 10;
        window.touchDown(1, from);
        for (int i = 1; i <= MOVES; ++i) {
            advance(0.01);
            const double share = static_cast<double>(i) / MOVES;
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
    ScrollView scroll{Rect{0, 0, 100, 200}};
    Control control{Rect{0, 0, 100, 400}};
};

TEST_F(ScrollTest, AFingerDrawsTheContentAlongAndTakesTheTouchFromTheControl) {
    window.touchDown(1, {50, 150});
    window.touchMoved(1, {50, 141});
    EXPECT_TRUE(control.isHighlighted()) << "not far enough yet";
    window.touchMoved(1, {50, 138});
    EXPECT_FALSE(control.isHighlighted());
    EXPECT_EQ(top(), 0) << "does not leap by what it took to begin";
    window.touchMoved(1, {50, 98});
    EXPECT_EQ(top(), 40);
    advance(0.5);
    window.touchUp(1, {50, 98});
    EXPECT_EQ(top(), 40) << "a finger that stood still before throws nothing";
    EXPECT_EQ(takeLog(), "cancel drag let go ");
}

TEST_F(ScrollTest, AThrownContentGlidesOnAndRestsOrIsHeld) {
    flick({50, 180}, {50, 80});  // 1000 points a second
    EXPECT_EQ(top(), 80) << "it took 20 points to begin";
    EXPECT_EQ(takeLog(), "cancel drag thrown glide ");
    advance(0.5);
    EXPECT_NEAR(top(), 80 + 500 * (1 - std::exp(-1.0)), 5) << "whatever the frame";
    advance(5);
    EXPECT_NEAR(top(), 80 + 500, 5);
    EXPECT_EQ(takeLog(), "rest ");
    EXPECT_EQ(runLoop.timerCount(), 0U);

    scroll.setContentOffset({0, 0});
    flick({50, 180}, {50, 80});
    advance(0.1);
    const double held = top();
    window.touchDown(1, {50, 60});
    EXPECT_FALSE(control.isHighlighted()) << "a finger holds what glides and presses nothing";
    window.touchMoved(1, {50, 58});
    EXPECT_EQ(top(), held + 2) << "held already: no way to begin with";
    window.touchUp(1, {50, 58});
    flick({50, 180}, {50, 80});
    scroll.removeFromSuperview();
    EXPECT_EQ(runLoop.timerCount(), 0U) << "gone from the window nothing moves on";
}

TEST_F(ScrollTest, BeyondTheEndsItStretchesAndSwingsBack) {
    drag({50, 20}, {50, 190});
    EXPECT_NEAR(top(), -70, 30) << "less than the finger moved";
    window.touchUp(1, {50, 190});
    advance(0.05);
    const double caught = top();
    EXPECT_LT(caught, 0);
    window.touchDown(1, {50, 100});
    window.touchMoved(1, {50, 100.001});
    EXPECT_NEAR(top(), caught, 0.01) << "caught in its swing it does not leap";
    window.touchUp(1, {50, 100.001});
    advance(2);
    EXPECT_EQ(top(), 0);
    EXPECT_EQ(takeLog(), "cancel drag thrown glide drag thrown glide rest ");
}

TEST_F(ScrollTest, TheProgramMovesItWithinTheContent) {
    scroll.setContentOffset({30, 5000});
    EXPECT_EQ(scroll.contentOffset(), (Point{0, 800}));
    scroll.setContentOffset({0, 0}, Animated::Yes);
    advance(0.3);
    EXPECT_EQ(top(), 0);
    EXPECT_EQ(takeLog(), "arrived ");
    const Transaction transaction(&window, Actions::Disabled);
    scroll.setContentOffset({0, 800}, Animated::Yes);
    EXPECT_EQ(top(), 800);
    scroll.setContentSize({100, 500});
    frame();
    EXPECT_EQ(top(), 300) << "content that becomes shorter still fills the view";
}

TEST_F(ScrollTest, TheIndicatorShowsWhileItMovesAndFades) {
    const View& bar = *scroll.subviews().back();
    drag({50, 180}, {50, 80});
    EXPECT_EQ(scroll.bounds().intersection(bar.frame()), bar.frame());
    advance(1);
    EXPECT_EQ(bar.alpha(), 1);
    window.touchUp(1, {50, 80});
    advance(0.45);
    EXPECT_GT(bar.alpha(), 0);
    EXPECT_LT(bar.alpha(), 1);
    advance(1);
    EXPECT_EQ(bar.alpha(), 0);
}

TEST_F(ScrollTest, APagerRestsOnWholePagesTurnsOneAtATime) {
    scroll.setContentSize({500, 200});
    scroll.setPagingEnabled(true);
    const auto pageAfter = [&](Point from, Point to, double holdSeconds) {
        drag(from, to);
        advance(holdSeconds);
        window.touchUp(1, to);
        advance(3);
        return scroll.contentOffset().x / 100;
    };
    EXPECT_EQ(pageAfter({90, 100}, {20, 100}, 1), 1) << "more than half";
    EXPECT_EQ(pageAfter({90, 100}, {50, 100}, 1), 1) << "less than half";
    EXPECT_EQ(pageAfter({90, 100}, {50, 100}, 0), 2) << "a short flick";
    EXPECT_EQ(pageAfter({95, 100}, {-60, 100}, 0), 3) << "a wild one turns one page too";
    scroll.setContentSize({450, 200});
    scroll.setContentOffset({350, 0});
    EXPECT_EQ(pageAfter({50, 100}, {70, 100}, 1), 3.5) << "the last page, though it is half a one";
    EXPECT_EQ(pageAfter({20, 100}, {50, 100}, 0), 3);
}

}  // namespace
}  // namespace vorpel::ui
