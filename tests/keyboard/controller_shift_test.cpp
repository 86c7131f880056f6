// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

namespace vorpel {
namespace {

using testing::Kind;
using testing::OpenKeyboard;
using testing::Stage;

/// The state as one letter: off, on, locked.
char letterOf(const Stage& stage) {
    return "dEL"[static_cast<int>(stage.controller->shiftState())];
}

void startFrom(Stage& stage, char state) {
    if (state != 'd') stage.tapAgain("shift");
    if (state == 'L') stage.tapAgain("shift");
    stage.advance(0.5);
    ASSERT_EQ(letterOf(stage), state);
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
    const struct {
        char start;
        const char* slow;     // two single taps
        const char* doubled;  // a double tap
    } CASES[] = {{'d', "EEEd", "EELL"}, {'E', "EdEE", "EdLL"}, {'L', "LdEE", "LdLL"}};
    for (const Kind kind : {Kind::Plain, Kind::Embedded}) {
        for (const auto& test : CASES) {
            for (const bool isDouble : {false, true}) {
                Stage stage({.kind = kind});
                startFrom(stage, test.start);
                EXPECT_EQ(twoTaps(stage, isDouble ? 0.1 : 0.4), isDouble ? test.doubled : test.slow)
                    << test.start;
            }
        }
    }
}

TEST(Shift, HeldForALetterEndsInTheEmbeddedClassAsOneExpects) {
    const struct {
        char start;
        Kind kind;
        char end;
    } CASES[] = {{'d', Kind::Plain, 'd'},    {'E', Kind::Plain, 'E'},    {'L', Kind::Plain, 'd'},
                 {'d', Kind::Embedded, 'd'}, {'E', Kind::Embedded, 'd'}, {'L', Kind::Embedded, 'L'}};
    for (const auto& test : CASES) {
        Stage stage({.kind = test.kind});
        startFrom(stage, test.start);
        stage.down(1, "shift");
        stage.down(2, "a");
        stage.up(2);
        EXPECT_EQ(stage.text(), "A");
        stage.up(1);
        EXPECT_EQ(letterOf(stage), test.end) << test.start;
    }
}

TEST(Shift, SlidFromToALetterGivesACapital) {
    Stage stage;
    stage.down(1, "shift");
    stage.move(1, "a");
    stage.up(1);
    stage.down(1, "b");
    stage.move(1, "shift");
    stage.up(1);
    EXPECT_EQ(stage.text(), "A");
    EXPECT_EQ(letterOf(stage), 'd') << "sliding onto shift is no press of it";
}

TEST(Shift, LetGoOutsideAfterADoubleTapEatsATapInThePlainClassOnly) {
    for (const auto& [kind, end] : {std::pair(Kind::Plain, 'L'), std::pair(Kind::Embedded, 'd')}) {
        Stage stage({.kind = kind});
        stage.tapAgain("shift");
        stage.down(1, "shift");
        stage.up(1, {-5, 500});
        EXPECT_EQ(letterOf(stage), 'L');
        stage.touch("shift");
        EXPECT_EQ(letterOf(stage), end);
        stage.touch("shift");
        EXPECT_EQ(letterOf(stage), end == 'L' ? 'd' : 'E');
    }
}

TEST(Shift, IsLeftAloneByADoubleTapDuringASwipe) {
    Stage stage;
    auto& open = static_cast<OpenKeyboard<VorpelKeyboardViewController>&>(*stage.controller);
    open.swipeKeyMode = true;
    EXPECT_EQ(twoTaps(stage, 0.1), "EEEd");
}

TEST(Shift, HalfMadeIsForgottenWithThePageOrTheKeyboard) {
    for (const char* const key : {"123", "globe"}) {
        Stage stage;
        stage.touch("shift");
        stage.advance(0.5);
        stage.down(1, "shift");
        stage.touch(key);
        stage.up(1);
        EXPECT_EQ(letterOf(stage), 'E') << key;
        EXPECT_EQ(stage.keys().ownedTouchCount(), 0U);
    }
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
    stage.touch("123");
    stage.touch("ABC");
    EXPECT_EQ(look(), "Q-");
}

}  // namespace
}  // namespace vorpel
