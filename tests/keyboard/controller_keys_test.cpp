// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

#include <functional>

namespace vorpel {
namespace {

using platform::InterfaceOrientation;
using platform::UserInterfaceIdiom;
using testing::Kind;
using testing::Stage;

TEST(Backspace, RepeatsToTheTick) {
    Stage stage;
    stage.platform.userDefaults.setBool(preferences::kKeyboardClicks, true);
    stage.hostSets("0123456789");
    stage.down(1, "backspace");
    const std::pair<double, std::size_t> LEFT[] = {{0, 9},      {0.4999, 9}, {0.5, 8},  {0.5699, 8},
                                                   {0.57, 7},   {0.6399, 7}, {0.64, 6}, {0.71, 5},
                                                   {0.7799, 5}, {0.78, 4}};
    double passed = 0;
    for (const auto& [at, left] : LEFT) {
        stage.advance(at - passed);
        passed = at;
        EXPECT_EQ(stage.text().size(), left) << at;
    }
    stage.up(1);
    stage.advance(1);
    EXPECT_EQ(stage.text().size(), 4U);
    EXPECT_EQ(stage.timers(), 0U);
    stage.platform.settle();
    EXPECT_EQ(stage.platform.sound.played().size(), 6U) << "each deletion clicks";
}

TEST(Backspace, StopsHoweverItEnds) {
    ui::View custom;
    const std::pair<const char*, std::function<void(Stage&)>> ENDS[] = {
        {"up", [](Stage& s) { s.up(1); }},
        {"slid off", [](Stage& s) { s.move(1, "m"); }},
        {"up outside",
         [](Stage& s) {
             s.up(1, {100, -20});
         }},
        {"cancelled", [](Stage& s) { s.cancel(1); }},
        {"stolen and let go", [](Stage& s) { s.down(2, "backspace"), s.up(2); }},
        {"page", [](Stage& s) { s.tapAgain("123"); }},
        {"page by the field",
         [](Stage& s) {
             s.setTraits(platform::KeyboardType::Url, platform::ReturnKeyType::Go);
             s.controller->textDidChange();
         }},
        {"globe", [](Stage& s) { s.tapAgain("globe"); }},
        {"language", [](Stage& s) { s.controller->ArabicClicked(); }},
        {"host's view", [&](Stage& s) { s.controller->openCustom(custom); }},
        {"same language", [](Stage& s) { s.controller->changeKeyboardLanguage("en"); }},
        {"rotation", [](Stage& s) { s.rotate(InterfaceOrientation::Landscape); }},
        {"settings", [](Stage& s) { s.controller->toggleSettings(false); }},
        {"gone", [](Stage& s) { s.controller->viewWillDisappear(); }},
    };
    for (const auto& [name, end] : ENDS) {
        for (const double held : {0.45, 0.52}) {
            Stage stage;
            stage.hostSets("0123456789");
            stage.down(1, "backspace");
            stage.advance(held);
            end(stage);
            const std::string left = stage.text();
            stage.advance(1);
            EXPECT_EQ(stage.text(), left) << name << held;
            EXPECT_FALSE(stage.controller->backspaceActive()) << name;
            stage.up(1);
            stage.advance(0.06);
            EXPECT_EQ(stage.keys().ownedTouchCount(), 0U) << name;
            EXPECT_TRUE(stage.highlighted().empty()) << name;
            EXPECT_EQ(stage.timers() + stage.popups(), 0U) << name;
        }
    }
}

TEST(Backspace, IsNotStartedBySlidingOntoIt) {
    Stage stage;
    stage.hostSets("abc");
    stage.down(1, "m");
    stage.move(1, "backspace");
    stage.advance(1);
    stage.up(1);
    EXPECT_EQ(stage.text(), "abc");
}

TEST(Clicks, ComeOncePerPressOffTheMainThread) {
    Stage stage;
    stage.type("a");
    EXPECT_EQ(stage.platform.globalQueue.count(), 0U) << "off as long as nobody asks";
    stage.platform.userDefaults.setBool(preferences::kKeyboardClicks, true);
    for (const char* const key :
         {"q", "space", "shift", "backspace", "emoji", "globe", "return", "123", "ABC"}) {
        stage.touch(key);
    }
    stage.down(1, "q");
    stage.move(1, "w");
    stage.up(1);
    EXPECT_TRUE(stage.platform.sound.played().empty());
    stage.platform.settle();
    EXPECT_EQ(stage.platform.sound.played(), std::vector<int>(10, 1104));
}

TEST(Popups, StayAWhileBehindTheirFinger) {
    Stage stage;
    stage.down(1, "q");
    EXPECT_EQ(stage.popups(), 1U);
    stage.up(1);
    stage.advance(0.0499);
    EXPECT_TRUE(stage.face("q").hasPopup());
    stage.advance(0.0002);
    EXPECT_EQ(stage.popups(), 0U);
    EXPECT_EQ(stage.timers(), 0U);

    stage.tapAgain("q");
    stage.down(1, "w");
    EXPECT_EQ(stage.popups(), 2U);
    stage.up(1);
    EXPECT_FALSE(stage.face("q").hasPopup()) << "the next to go takes the last away";
    EXPECT_TRUE(stage.face("w").hasPopup());
    stage.down(1, "w");
    stage.advance(0.2);
    EXPECT_TRUE(stage.face("w").hasPopup()) << "down again, it is not hidden under the finger";
    stage.move(1, "e");
    EXPECT_FALSE(stage.face("w").hasPopup());
    EXPECT_TRUE(stage.face("e").hasPopup());
    stage.cancel(1);
    EXPECT_EQ(stage.popups(), 0U);
    stage.tapAgain("space");
    stage.down(1, "return");
    EXPECT_EQ(stage.popups(), 0U) << "only characters have one";
}

TEST(Popups, LeaveWithTheirPage) {
    for (const char* const language : {"en", "ar"}) {
        Stage stage({.language = language});
        for (const KeyRow& row : stage.page().rows) {
            for (const auto& key : row) {
                if (!key->isCharacter()) continue;
                stage.tapAgain(*key->lowercaseOutput);
                stage.controller->setCurrentMode(7);
                EXPECT_EQ(stage.popups() + stage.timers(), 0U) << *key->lowercaseOutput;
                stage.controller->setCurrentMode(0);
            }
        }
    }
}

TEST(Popups, LeaveWithTheirKeyboard) {
    const std::pair<const char*, std::function<void(Stage&)>> LEAVINGS[] = {
        {"language", [](Stage& s) { s.controller->changeKeyboardLanguage("ar"); }},
        {"back",
         [](Stage& s) { s.controller->changeKeyboardLanguage("ar"), s.controller->EnglishClicked(); }},
        {"rotation", [](Stage& s) { s.rotate(InterfaceOrientation::Landscape); }},
        {"gone", [](Stage& s) { s.controller->viewWillDisappear(); }},
    };
    for (const auto& [name, leave] : LEAVINGS) {
        for (const bool isHeld : {true, false}) {
            Stage stage;
            stage.down(1, "q");
            if (!isHeld) stage.up(1);
            leave(stage);
            EXPECT_EQ(stage.popups(), 0U) << name << isHeld;
            EXPECT_EQ(stage.timers(), 0U) << name << isHeld;
        }
    }
}

TEST(Popups, AreNotShownOnAPad) {
    Stage stage({.device = testing::deviceOf(768, 1024, UserInterfaceIdiom::Pad)});
    stage.down(1, "q");
    EXPECT_EQ(stage.popups(), 0U);
    EXPECT_EQ(stage.highlighted(), std::vector<std::string>{"q"});
}

TEST(ModeKeys, ActOnTheWayDownAndLetGoOfAllThatIsHeld) {
    Stage stage;
    stage.down(1, "q");
    stage.down(2, "123");
    EXPECT_EQ(stage.controller->currentMode(), 1);
    EXPECT_EQ(stage.controller->previousMode(), 0);
    EXPECT_EQ(stage.keys().ownedTouchCount(), 0U);
    stage.move(1, "1");
    stage.up(1);
    stage.up(2);
    EXPECT_EQ(stage.text(), "") << "fingers of the page before type nothing on this one";
    EXPECT_TRUE(stage.highlighted().empty());
    stage.tapAgain("ABC");
    EXPECT_EQ(stage.controller->currentMode(), 0);
    EXPECT_EQ(stage.controller->shiftState(), ShiftState::Disabled);
    stage.calls.clear();
    stage.controller->setCurrentMode(0);
    EXPECT_TRUE(stage.calls.empty()) << "the page on show is not laid out again";
    stage.touch("123");
    stage.touch("#+=");
    EXPECT_EQ(stage.controller->currentMode(), 2);
    EXPECT_EQ(stage.calls, std::vector<std::string>(2, "frames"));
}

TEST(KeysThatType, TellWhenACharacterWasLastTouched) {
    Stage stage;
    for (const char* const key : {"space", "q", "space", "return", "space"}) stage.touch(key);
    // A press takes 0.06 s, one follows the other after 0.62 s: the first has only its own release to tell
    // of, a character its press, return its release, and a blank what was before it.
    const double EXPECTED[] = {0.56, 1.12, 1.12, 2.42, 2.42};
    ASSERT_EQ(stage.dates.size(), std::size(EXPECTED));
    for (std::size_t i = 0; i < std::size(EXPECTED); ++i) EXPECT_NEAR(stage.dates[i], EXPECTED[i], 1e-9) << i;
}

TEST(OtherKeys, CallWhatTheyAreFor) {
    Stage stage;
    stage.rotate(InterfaceOrientation::Landscape);
    stage.hostSets("ab");
    stage.type("#");
    stage.touch("left");
    stage.touch("left");
    stage.touch("@");
    stage.touch("right");
    stage.touch("*");
    EXPECT_EQ(stage.text(), "a@b*#");
    stage.touch("dismiss");
    EXPECT_EQ(stage.platform.host.dismissals, 1);
    stage.touch("globe");
    EXPECT_EQ(stage.platform.host.advances, 1);
    stage.calls.clear();
    stage.touch("emoji");
    stage.down(1, "space");
    stage.cancel(1);
    stage.touch("q");
    stage.tapAgain("q");
    EXPECT_EQ(stage.calls, (std::vector<std::string>{"emoji", "space cancelled", "repeat"}));
    EXPECT_EQ(stage.text(), "a@b*qq#");
}

TEST(OtherKeys, HighlightWhileTheyAreHeld) {
    Stage stage;
    for (const char* const key : {"q", "space", "backspace", "return", "globe", "emoji"}) {
        stage.down(1, key);
        EXPECT_EQ(stage.highlighted(), std::vector<std::string>{key});
        stage.move(1, "v");
        EXPECT_EQ(stage.highlighted(), std::vector<std::string>{"v"});
        stage.cancel(1);
        EXPECT_TRUE(stage.highlighted().empty());
    }
}

}  // namespace
}  // namespace vorpel
