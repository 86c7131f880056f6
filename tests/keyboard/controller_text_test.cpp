// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

namespace vorpel {
namespace {

using platform::AutocapitalizationType;
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
        {"hi,", "  ", "hi,  "},            // one that goes on
        {"", "  ", "  "},                  // nothing to end
        {"hi\n", "  ", "hi\n  "},          // a new line
        {"hi ", "  ", "hi   "},            // a blank that was there before
        {"hi", "    ", "hi.   "},          // the next two stand behind the full stop
        {"hi", " a  ", "hi a. "},          // a letter between
        {"hi", " \n ", "hi \n "},          // a new line between
        {"hi", " | ", "hi  "},             // the host's change between: the second blank is a first one
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
            stage.hostSets(test.before);
            EXPECT_EQ(stage.controller->shouldAutoCapitalize(), expected)
                << '"' << test.before << "\" " << static_cast<int>(type);
            EXPECT_EQ(stage.controller->shiftState() == ShiftState::Enabled, expected);
        }
    }
}

TEST(TextChange, ThatSaysLessDoesLess) {
    Stage stage;
    stage.setTraits(platform::KeyboardType::Url, platform::ReturnKeyType::Send);
    stage.controller->selectionDidChange();
    EXPECT_EQ(stage.controller->currentMode(), 0) << "a selection alone changes nothing";
    platform::TextInputTraits withoutReturn;
    withoutReturn.keyboardType = platform::KeyboardType::Url;
    stage.field().setTraits(withoutReturn);
    stage.controller->textDidChange();
    EXPECT_EQ(stage.controller->currentMode(), 0) << "nor does half of what there is to know";
}

}  // namespace
}  // namespace vorpel
