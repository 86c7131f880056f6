// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

#include <functional>

namespace vorpel {
namespace {

using platform::InterfaceOrientation;
using platform::UserInterfaceIdiom;
using testing::Kind;
using testing::Setting;
using testing::Stage;

TEST(Backspace, RepeatsToTheTick) {
    // With a word service the delay runs its whole length before the first tick is waited for.
    for (const auto& [kind, first] : {std::pair{Kind::Plain, 0.5}, std::pair{Kind::Embedded, 0.57}}) {
        Setting setting;
        setting.kind = kind;
        Stage stage(setting);
        stage.platform.userDefaults.setBool(preferences::kKeyboardClicks, true);
        stage.hostSets("0123456789");
        stage.down(1, "backspace");
        const std::pair<double, std::size_t> LEFT[] = {{0, 9},
                                                       {first - 0.0001, 9},
                                                       {first, 8},
                                                       {first + 0.0699, 8},
                                                       {first + 0.07, 7},
                                                       {first + 0.14, 6},
                                                       {first + 0.21, 5},
                                                       {first + 0.2799, 5},
                                                       {first + 0.28, 4}};
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
}

TEST(HeldKeys, AreLetGoOfByTheHost) {
    ui::View custom;
    const std::pair<const char*, std::function<void(Stage&)>> ENDS[] = {
        {"field",
         [](Stage& s) {
             s.setTraits(platform::KeyboardType::Url, platform::ReturnKeyType::Go);
             s.controller->textDidChange();
         }},
        {"page", [](Stage& s) { s.controller->setCurrentMode(7); }},
        {"language", [](Stage& s) { s.controller->ArabicClicked(); }},
        {"host's view", [&](Stage& s) { s.controller->openCustom(custom); }},
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
            stage.down(2, "w");
            end(stage);
            EXPECT_EQ(stage.timers() + stage.popups(), 0U) << name;
            EXPECT_EQ(stage.keys().ownedTouchCount(), 0U) << name;
            EXPECT_TRUE(stage.highlighted().empty()) << name;
            const std::string left = stage.text();
            stage.advance(1);
            stage.up(1);
            stage.up(2);
            EXPECT_EQ(stage.text(), left) << name << held;
        }
    }
}

TEST(Clicks, ComeOncePerPressOffTheMainThread) {
    Setting setting;
    setting.kind = Kind::Plain;  // the other hands sentences to the queue too
    Stage stage(setting);
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
    EXPECT_TRUE(stage.face("w").hasPopup()) << "not hidden under the finger";
    stage.move(1, "return");
    EXPECT_EQ(stage.popups(), 0U) << "only characters have one";
}

TEST(Popups, AreNotShownOnAPad) {
    Stage stage({.device = testing::deviceOf(768, 1024, UserInterfaceIdiom::Pad)});
    stage.down(1, "q");
    EXPECT_EQ(stage.popups(), 0U);
    EXPECT_EQ(stage.highlighted(), std::vector<std::string>{"q"});
}

TEST(KeysThatType, TellWhenACharacterWasLastTouched) {
    Stage stage;
    for (const char* const key : {"space", "q", "space", "return", "space"}) stage.touch(key);
    // The first has only its own release to tell of, a character its press, return its release, and a blank
    // what was before it.
    const double EXPECTED[] = {0.56, 1.12, 1.12, 2.42, 2.42};
    ASSERT_EQ(stage.dates.size(), std::size(EXPECTED));
    for (std::size_t i = 0; i < std::size(EXPECTED); ++i) EXPECT_NEAR(stage.dates[i], EXPECTED[i], 1e-9) << i;
}

TEST(OtherKeys, CallTheHooksOfSubclasses) {
    Stage stage;
    stage.calls.clear();
    stage.hostSets("");
    stage.touch("emoji");
    stage.down(1, "space");
    stage.cancel(1);
    stage.touch("q");
    stage.tapAgain("q");
    stage.controller->setCurrentMode(0);
    EXPECT_EQ(stage.calls, (std::vector<std::string>{"reset", "emoji", "space cancelled", "repeat"}))
        << "the page on show is not laid out again";
    stage.touch("123");
    EXPECT_EQ(stage.calls.back(), "frames");
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
