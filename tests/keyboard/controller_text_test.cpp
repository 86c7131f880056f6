// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

namespace vorpel {
namespace {

using platform::AutocapitalizationType;
using testing::Kind;
using testing::Setting;
using testing::Stage;

TEST(AutomaticPeriod, TwoBlanksBehindAWordBecomeAFullStop) {
    const struct {
        const char* before;
        const char* typed;
        const char* after;
    } CASES[] = {
        {"hi", "  ", "hi. "},              // a word
        {"a", "  ", "a. "},                // three characters are enough
        {"hi;", "  ", "hi;. "},            // other signs count as words do
        {"👍🏽", "  ", "👍🏽. "},  // a character of several code points is one
        {"hi.", "  ", "hi.  "},            // a sentence that has ended
        {"hi!", "  ", "hi!  "},            //
        {"hi?", "  ", "hi?  "},            //
        {"hi,", "  ", "hi,  "},            // one that goes on
        {"", "  ", "  "},                  // nothing to end
        {"hi\n", "  ", "hi\n  "},          // a new line
        {"hi\r\n", "  ", "hi\r\n  "},      //
        {"hi\t", "  ", "hi\t  "},          //
        {"hi ", "  ", "hi   "},            // a blank that was there before
        {"hi", "    ", "hi.   "},          // the next two stand behind the full stop
        {"hi", " a ", "hi a "},            // a letter between
        {"hi", " a  ", "hi a. "},          //
        {"hi", " \n ", "hi \n "},          // a new line between
        {"hi", " | ", "hi  "},             // the host's change between: the second blank is a first one
        {"hi", " | |", "hi  "},            //
        {"hi", " \b  ", "hi  "},  // backspace leaves the machine alone: the blank behind it is a second
        {"hi", " ^ ", "hi. "},    // and so does shift
    };
    for (const auto& test : CASES) {
        Stage stage;
        stage.hostSets(test.before);
        stage.type(test.typed);
        EXPECT_EQ(stage.text(), test.after) << test.before << test.typed;
    }
}

TEST(AutomaticPeriod, StaysAwayWhereItIsTurnedOff) {
    Stage stage;
    stage.hostSets("hi");
    stage.touch("space");
    stage.platform.userDefaults.setBool(preferences::kPeriodShortcut, false);
    stage.touch("space");
    EXPECT_EQ(stage.text(), "hi  ");
    EXPECT_EQ(stage.controller->autoPeriodState(), AutoPeriodState::FirstSpace) << "the machine stood still";
    stage.platform.userDefaults.setBool(preferences::kPeriodShortcut, true);
    stage.type("  ");
    EXPECT_EQ(stage.text(), "hi    ");
}

TEST(AutomaticPeriod, SurvivesAChangeOfPageAndComesInArabicToo) {
    Stage stage({.language = preferences::ARABIC});
    stage.hostSets("");
    stage.type("شس ");
    stage.touch("123");
    stage.type(" ٣");
    EXPECT_EQ(stage.text(), "شس. ٣");
}

TEST(Capitals, FollowTheFieldAndTheTextBeforeTheCursor) {
    const struct {
        const char* before;
        bool words;
        bool sentences;
    } CASES[] = {
        {"", true, true},       {"hi", false, false},  {"hi ", true, false},   {"hi  ", true, false},
        {"hi   ", true, true},  {"hi.", false, false}, {"hi. ", true, true},   {"hi.  ", true, true},
        {"hi! ", true, true},   {"hi? ", true, true},  {"hi, ", true, false},  {"hi: ", true, false},
        {"hi.a", false, false}, {"hi\n", true, true},  {"hi\r\n", true, true}, {"hi\r", true, true},
        {"hi\n ", true, true},  {"hi\t", true, false}, {"hi.\t", true, true},  {".", false, false},
        {"?!", false, false},   {" ", true, true},     {"hi .", false, false}, {"hi..", false, false},
    };
    using enum AutocapitalizationType;
    for (const AutocapitalizationType type : {None, Words, Sentences, AllCharacters}) {
        Stage stage({.capitals = type});
        for (const auto& test : CASES) {
            const bool isText = type == Words ? test.words : test.sentences;
            const bool expected = type == AllCharacters || (type != None && isText);
            stage.platform.userDefaults.setBool(preferences::kAutoCapitalization, true);
            stage.hostSets(test.before);
            EXPECT_EQ(stage.controller->shouldAutoCapitalize(), expected)
                << '"' << test.before << "\" " << static_cast<int>(type);
            EXPECT_EQ(stage.controller->shiftState() == ShiftState::Enabled, expected);
            stage.platform.userDefaults.setBool(preferences::kAutoCapitalization, false);
            EXPECT_FALSE(stage.controller->shouldAutoCapitalize());
        }
    }
    Stage silent;
    silent.field().setTraits({});
    EXPECT_FALSE(silent.controller->shouldAutoCapitalize());
}

TEST(Capitals, MoveShiftUnlessItIsLocked) {
    using enum ShiftState;
    for (const bool wanted : {false, true}) {
        Stage stage(
            {.capitals = wanted ? AutocapitalizationType::AllCharacters : AutocapitalizationType::None});
        for (const ShiftState start : {Disabled, Enabled, Locked}) {
            stage.controller->setShiftState(start);
            EXPECT_EQ(stage.controller->setCapsIfNeeded(), wanted);
            const ShiftState moved = wanted ? Enabled : Disabled;
            EXPECT_EQ(stage.controller->shiftState(), start == Locked ? Locked : moved);
        }
    }
}

TEST(Capitals, ComeAndGoWhileOneTypes) {
    Stage stage({.capitals = AutocapitalizationType::Sentences});
    stage.hostSets("");
    stage.type("hi  you\bu\nok^k");
    EXPECT_EQ(stage.text(), "Hi. You\nOkK");
    stage.type("\b\b\b");
    EXPECT_EQ(stage.controller->shiftState(), ShiftState::Enabled) << "backspace, too, may reach a beginning";
}

TEST(Capitals, AreMovedEvenByAViewThatIsNoKey) {
    Stage stage;
    stage.controller->setShiftState(ShiftState::Enabled);
    KeyboardKey stranger;
    stage.controller->keyPressedHelper(stranger);
    EXPECT_EQ(stage.controller->shiftState(), ShiftState::Disabled);
    EXPECT_EQ(stage.text(), "");
}

TEST(Typing, TakesWhatTheKeySaysInTheCaseOnShow) {
    Stage stage;
    stage.setTraits(platform::KeyboardType::Url, platform::ReturnKeyType::Go);
    stage.hostSets("");
    stage.type("^a/^");
    stage.touch(".com");
    stage.touch("return");
    EXPECT_EQ(stage.text(), "A/.com\n");
}

TEST(TextChange, ThatSaysLessDoesLess) {
    Stage stage;
    stage.hostSets("hi");
    EXPECT_TRUE(stage.calls.empty() || stage.calls.back() != "reset");
    stage.hostSets("");
    EXPECT_EQ(stage.calls.back(), "reset") << "an empty field begins anew";
    stage.hostSets("hi");
    stage.platform.userDefaults.setBool(preferences::kIsNumberType, true);
    platform::TextInputTraits parts[2];
    parts[0].keyboardType = platform::KeyboardType::Url;
    parts[1].returnKeyType = platform::ReturnKeyType::Send;
    for (const platform::TextInputTraits& traits : parts) {
        stage.field().setTraits(traits);
        stage.touch("space");
        stage.controller->textDidChange();
        EXPECT_EQ(stage.controller->currentMode(), 0);
        EXPECT_TRUE(stage.platform.userDefaults.boolForKey(preferences::kIsNumberType));
        EXPECT_EQ(stage.controller->autoPeriodState(), AutoPeriodState::FirstSpace);
        stage.touch("a");
    }
    stage.setTraits(platform::KeyboardType::Url, platform::ReturnKeyType::Send);
    stage.controller->selectionWillChange();
    stage.controller->selectionDidChange();
    EXPECT_EQ(stage.controller->currentMode(), 0) << "a selection alone changes nothing";
    stage.controller->textDidChange();
    EXPECT_EQ(stage.controller->currentMode(), 56);
    EXPECT_FALSE(stage.platform.userDefaults.boolForKey(preferences::kIsNumberType));
}

}  // namespace
}  // namespace vorpel
