// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

namespace vorpel {
namespace {

using testing::OpenKeyboard;
using testing::Stage;

/// The state as one letter: off, on, locked.
char letterOf(const Stage& stage) {
    return "dEL"[static_cast<int>(stage.controller->shiftState())];
}

/// Two taps, and the state after each down and up.
std::string twoTaps(Stage& stage, double pause) {
    std::string states;
    for (const double wait : {0.0, pause}) {
        stage.advance(wait);
        stage.down(1, "shift");
        states += letterOf(stage);
        stage.advance(0.05);
        stage.up(1);
        states += letterOf(stage);
    }
    return states;
}

TEST(Shift, GoesThroughItsStatesByTaps) {
    using enum ShiftState;
    const struct {
        ShiftState start;
        const char* slow;     // two single taps
        const char* doubled;  // a double tap
    } CASES[] = {{Disabled, "EEEd", "EELL"}, {Enabled, "EdEE", "EdLL"}, {Locked, "LdEE", "LdLL"}};
    for (const auto& test : CASES) {
        for (const bool isDouble : {false, true}) {
            Stage stage;
            stage.controller->setShiftState(test.start);
            EXPECT_EQ(twoTaps(stage, isDouble ? 0.29 : 0.31), isDouble ? test.doubled : test.slow);
        }
    }
}

TEST(Shift, IsLeftAloneByADoubleTapDuringASwipe) {
    Stage stage;
    auto& open = static_cast<OpenKeyboard<VorpelKeyboardViewController>&>(*stage.controller);
    open.swipeKeyMode = true;
    EXPECT_EQ(twoTaps(stage, 0.1), "EEEd");
}

TEST(Shift, ShowsOnTheFacesAtOnce) {
    Stage stage;
    const auto look = [&] {
        const auto& shift = stage.face("shift");
        const bool lock = static_cast<const ShiftShape*>(shift.shape())->withLock();
        return stage.face("q").text() + (shift.isHighlighted() ? "+" : "-") + (lock ? "lock" : "");
    };
    EXPECT_EQ(look(), "q-");
    stage.down(1, "shift");
    EXPECT_EQ(look(), "Q+");
    stage.up(1);
    stage.down(1, "shift");
    stage.up(1);
    EXPECT_EQ(look(), "Q+lock");
    stage.touch("shift");
    EXPECT_EQ(look(), "q-");
    stage.controller->changeKeyboardSetting(VorpelIMESettings::LOWERCASE_KEY_CAPS, false);
    EXPECT_EQ(look(), "Q-") << "as a desk's keyboard shows them";
    stage.type("q");
    EXPECT_EQ(stage.text(), "q");
}

}  // namespace
}  // namespace vorpel
