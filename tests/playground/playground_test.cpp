// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/preference_keys.h"
#include "playground_fixture.h"

#include <vector>

namespace vorpel::playground {

namespace {

bool holds(const ui::Rect& outer, const ui::Rect& inner) {
    return outer.unionWith(inner) == outer;
}

TEST_F(PlaygroundTest, FingersOnTheKeysWriteAndWhatTheyWroteIsShown) {
    type("so");
    EXPECT_EQ(text(), "So");  // a sentence begins
    playground.window().damageAll();
    const std::vector<std::string> shown = frame().texts();
    EXPECT_TRUE(std::ranges::any_of(shown, [](const std::string& one) { return one.starts_with("So"); }));
}

TEST_F(PlaygroundTest, TheKeyboardHearsOfADesksKeyboard) {
    playground.typeText("End. ");
    EXPECT_EQ(playground.keyboard().shiftState(), ShiftState::Enabled);
    playground.typeText("of");
    EXPECT_EQ(playground.keyboard().shiftState(), ShiftState::Disabled);
    type("f");
    EXPECT_EQ(text(), "End. off");
}

TEST_F(PlaygroundTest, EditingKeysDoWhatTheyDoElsewhere) {
    using enum EditingKey;
    const struct {
        std::vector<EditingKey> keys;
        std::string text;  // with the cursor as a bar
    } rows[] = {{{}, "ab\nc👍🏽|"},
                {{Backspace}, "ab\nc|"},
                {{Left, Backspace}, "ab\n|👍🏽"},
                {{Left, Delete}, "ab\nc|"},
                {{Delete}, "ab\nc👍🏽|"},
                {{Home, Right, Return}, "a\n|b\nc👍🏽"},
                {{Home, Backspace}, "|ab\nc👍🏽"},
                {{Home, Down}, "ab\n|c👍🏽"},
                {{Home, End}, "ab\nc👍🏽|"},
                {{Left, Up}, "a|b\nc👍🏽"}};
    for (const auto& row : rows) {
        playground.press(End);
        while (playground.field().hasText()) playground.press(Backspace);
        playground.typeText("ab\nc👍🏽");
        for (const EditingKey key : row.keys) {
            frame();
            playground.press(key);
        }
        const std::string before = playground.field().documentContextBeforeInput().value_or("");
        EXPECT_EQ(before + "|" + text().substr(before.size()), row.text);
    }
}

TEST_F(PlaygroundTest, ATapPlacesTheCursor) {
    playground.typeText("one two");
    frame();
    const ui::Point end =
        playground.textArea().frame().origin() + playground.textArea().cursorRect().center();
    playground.press(EditingKey::Home);
    frame();
    tap(end);
    EXPECT_EQ(playground.field().cursor(), 7U);
    tap(playground.textArea().frame().origin() + ui::Point{4, 15});
    EXPECT_EQ(playground.field().cursor(), 0U);
    // The cursor is where a sentence begins now.
    EXPECT_EQ(playground.keyboard().shiftState(), ShiftState::Enabled);
}

TEST_F(PlaygroundTest, TheCursorIsInSightHoweverLongTheText) {
    for (int line = 0; line < 60; ++line) {
        playground.typeText("line\n");
        frame();
        ASSERT_TRUE(holds(playground.textArea().bounds(), playground.textArea().cursorRect())) << line;
    }
    playground.press(EditingKey::Home);
    frame();
    EXPECT_TRUE(holds(playground.textArea().bounds(), playground.textArea().cursorRect()));
}

TEST_F(PlaygroundTest, ABlinkPaintsTheCursorAndNothingElse) {
    playground.typeText("word");
    advance(0.5);
    const auto isCursor = [this](const testing::Drawn& one) {
        const ui::Rect cursor = playground.textArea().cursorRect();
        return one.what == testing::Drawn::What::Rect &&
               one.rect == cursor.offsetBy(playground.textArea().frame().origin());
    };
    for (const bool shown : {false, true, false}) {
        platform.advance(0.53);
        playground.refresh();
        ASSERT_EQ(playground.window().damage().size(), 1U);
        EXPECT_EQ(playground.window().damage()[0].width, 2);
        EXPECT_EQ(std::ranges::any_of(frame().drawn, isCursor), shown);
    }
}

TEST_F(PlaygroundTest, EverythingHasItsPlaceAtAnySize) {
    for (const char* const language : {preferences::ENGLISH, preferences::ARABIC}) {
        playground.keyboard().changeKeyboardLanguage(language);
        for (double width = 320; width <= 1100; width += 60) {
            for (const double height : {300.0, 480.0, 1400.0}) {
                SCOPED_TRACE(::testing::Message() << language << ' ' << width << " x " << height);
                resize({width, height});
                const ui::Rect keys = playground.keyboard().view().frame();
                EXPECT_EQ(keys.width, std::min(width, Playground::GREATEST_WIDTH));
                EXPECT_EQ(keys.bottom(), height);
                EXPECT_EQ(keys.height, playground.keyboard().keyboardHeight());
                EXPECT_EQ(keys.height, width > height ? 162 : width < 400 ? 216 : 226);
                EXPECT_FALSE(playground.toolbar().frame().intersects(keys));
                EXPECT_FALSE(playground.textArea().frame().intersects(keys));
                for (int index = 0; index < 6; ++index) {
                    EXPECT_TRUE(holds(playground.toolbar().bounds(),
                                      playground.toolbar().frameOf(static_cast<Choice>(index))));
                }
            }
        }
    }
}

TEST_F(PlaygroundTest, ChoicesReachTheKeyboard) {
    choose(Choice::Field);  // an email
    type("a");
    EXPECT_EQ(text(), "a") << "no capital begins an address";
    EXPECT_NO_THROW(tapKey([](const Key& key) { return key.lowercaseOutput == "@"; }));
    choose(Choice::Field);
    choose(Choice::Field);  // a number
    EXPECT_TRUE(platform.userDefaults.boolForKey(preferences::kIsNumberType));

    choose(Choice::Look);
    EXPECT_TRUE(playground.keyboard().darkMode());
    choose(Choice::Settings);
    EXPECT_TRUE(playground.keyboard().settingsOnShow());
    choose(Choice::Settings);
    EXPECT_FALSE(playground.keyboard().settingsOnShow());
    choose(Choice::Language);
    EXPECT_TRUE(playground.keyboard().isArabicModeOn());
    EXPECT_EQ(platform.userDefaults.stringForKey(preferences::LANGUAGE), preferences::ARABIC);
}

TEST_F(PlaygroundTest, TurningIsAskedOfTheWindow) {
    const int upright = playground.keyboard().currentMode();
    ui::Size asked;
    playground.setSizeHandler([&](ui::Size size) { asked = size; });
    choose(Choice::Held);
    EXPECT_EQ(asked, (ui::Size{656, 375}));
    resize(asked);
    EXPECT_NE(playground.keyboard().currentMode(), upright);  // the wide set
    choose(Choice::Held);
    resize(asked);
    EXPECT_EQ(playground.keyboard().currentMode(), upright);
}

TEST_F(PlaygroundTest, AKeyboardThatWasPutAwayComesBackWithATapOnTheText) {
    resize({656, 375});
    const double height = playground.textArea().frame().height;
    tapKey([](const Key& key) { return key.type == Key::KeyType::dismiss_Self; });
    EXPECT_TRUE(playground.keyboard().view().isHidden());
    EXPECT_EQ(playground.textArea().frame().height, height + 162);
    tap(playground.textArea().frame().center());
    EXPECT_FALSE(playground.keyboard().view().isHidden());
    EXPECT_EQ(playground.textArea().frame().height, height);
    type("a");
    EXPECT_EQ(text(), "A");
}

}  // namespace

}  // namespace vorpel::playground
