// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorpel {
namespace {

using testing::Stage;
using ui::ControlEvent;
using ui::Point;

/// Keeps the control events of some keys of the first page.
class Touches : public ::testing::Test, protected Stage {
protected:
    Touches() {
        const std::pair<ControlEvent, const char*> EVENTS[] = {
            {ControlEvent::TouchDown, " down "},       {ControlEvent::TouchDownRepeat, " repeat "},
            {ControlEvent::TouchDragInside, " drag "}, {ControlEvent::TouchDragEnter, " enter "},
            {ControlEvent::TouchDragExit, " exit "},   {ControlEvent::TouchUpInside, " up "},
            {ControlEvent::TouchCancel, " cancel "}};
        for (const char* const name : {"q", "w", "e", "a"}) {
            for (const auto& [event, suffix] : EVENTS) {
                face(name).addTarget(this, "log", event,
                                     [this, text = std::string(name) + suffix](auto&) { log_ += text; });
            }
        }
    }

    /// What came since it was last asked.
    std::string log() { return std::exchange(log_, {}); }

private:
    std::string log_;
};

TEST_F(Touches, TellTheKeysOfEachEventInOrder) {
    const Point outside = {100, keys().frame().y - 1};
    tapAgain("q");
    tapAgain("q");
    EXPECT_EQ(log(), "q down q up q down q repeat q up ");
    advance(1);
    down(1, "q");
    move(1, center("q") + Point{1, 0});
    move(1, "w");
    move(1, outside);
    move(1, "e");
    up(1);
    EXPECT_EQ(log(), "q down q drag q exit w enter w exit e enter e up ");
    down(1, "a");
    up(1, outside);
    EXPECT_EQ(log(), "a down a cancel ");
    down(1, "w");
    down(2, "w");
    move(1, "e");
    up(1);
    up(2);
    EXPECT_EQ(log(), "w down w up ") << "a second finger takes the key silently";
}

TEST_F(Touches, MoveTheCursorByTheSquareOfTheWay) {
    const ForwardingView& view = keys();
    EXPECT_EQ(view.getVelocity({3, 4}, {0, 0}, 0.5), 50);
    EXPECT_EQ(view.getDirectionWithHorizontal({3, 0}, {2.9, 0}), SwipeDirection::Left);
    EXPECT_EQ(view.getDirectionWithHorizontal({3, 0}, {3, 9}), SwipeDirection::Right);
    const std::pair<double, int> OFFSETS[] = {{0, 1},        {12427038, 1},
                                              {12427039, 2}, {12427039.0 * 18.5, 19},
                                              {1e300, 20},   {std::numeric_limits<double>::quiet_NaN(), 20}};
    for (const auto& [velocity, offset] : OFFSETS) {
        EXPECT_EQ(view.getOffsetForVelocity(velocity), offset) << velocity;
    }
}

}  // namespace
}  // namespace vorpel
