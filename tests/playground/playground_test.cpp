// SPDX-License-Identifier: Apache-2.0
#include "playground.h"

#include "platform/characters.h"
#include "support/deterministic_platform.h"
#include "support/recording_painter.h"
#include "text/diagnostics.h"
#include "typeset_text.h"
#include "ui/cairo/text_layouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel::playground {

namespace {

KeyboardThemeModel themeOf(const char* color) {
    return {color, color, color, color, color, color, color, color, true};
}

/// A playground without a window, on a clock that only the test moves, with one finger.
class PlaygroundTest : public ::testing::Test {
protected:
    PlaygroundTest() {
        wordengine::Diagnostics::setStream(nullptr);
        resize({375, 656});
    }

    void resize(ui::Size size) {
        playground.resize(size, 2);
        frame();
    }

    testing::RecordingPainter frame() {
        testing::RecordingPainter painter;
        playground.refresh();
        playground.window().paint(painter);
        return painter;
    }

    /// The time that passes shows what it does.
    void advance(double seconds) {
        platform.advance(seconds);
        frame();
    }

    void tap(ui::Point point) {
        playground.window().touchDown(1, point);
        advance(0.06);
        playground.window().touchUp(1, point);
        advance(0.5);
    }

    void choose(Choice choice) {
        const Toolbar& toolbar = playground.toolbar();
        tap(toolbar.frame().origin() + toolbar.frameOf(choice).center());
    }

    /// Taps the key that shows the cap when shift is off, or does what it is named for.
    void tapKey(const std::function<bool(const Key&)>& isWanted) {
        const auto& keys = playground.keyboard().plane().layout->modelToView();
        const auto found =
            std::ranges::find_if(keys, [&](const auto& entry) { return isWanted(*entry.first); });
        if (found == keys.end()) throw std::runtime_error("no such key on show");
        tap(found->second->convertToWindow(found->second->bounds().center()));
    }

    void type(const std::string& letters) {
        for (const char letter : letters) {
            tapKey([&](const Key& key) { return key.lowercaseOutput == std::string(1, letter); });
        }
    }

    [[nodiscard]] std::string text() const { return playground.field().text(); }

    testing::DeterministicPlatform platform;
    Playground playground{{.runLoop = platform.runLoop,
                           .userDefaults = platform.userDefaults,
                           .bundle = platform.bundle,
                           .globalQueue = platform.globalQueue,
                           .makeOperationQueue = [this] { return platform.operations.makeOperationQueue(); },
                           .textChecker = &platform.textChecker,
                           .systemSound = &platform.sound,
                           .themes = {{"Ink", themeOf("#101018")}, {"Snow", themeOf("#FAFAFF")}}}};
};

bool holds(const ui::Rect& outer, const ui::Rect& inner) {
    return outer.unionWith(inner) == outer;
}

TEST_F(PlaygroundTest, FingersOnTheKeysWriteAndWhatTheyWroteIsShown) {
    type("so");
    EXPECT_EQ(text(), "So");  // a sentence begins
    playground.typeText(". ");
    EXPECT_EQ(playground.keyboard().shiftState(), ShiftState::Enabled) << "it hears of a desk's keyboard";
    playground.window().damageAll();
    const std::vector<std::string> shown = frame().texts();
    EXPECT_TRUE(std::ranges::any_of(shown, [](const std::string& one) { return one.starts_with("So"); }));
}

TEST_F(PlaygroundTest, EditingKeysDoWhatTheyDoElsewhere) {
    using enum EditingKey;
    const struct {
        std::vector<EditingStroke> keys;
        std::string text;  // with the cursor as a bar
    } rows[] = {{{}, "ab\nc👍🏽|"},
                {{Backspace}, "ab\nc|"},
                {{Left, Backspace}, "ab\n|👍🏽"},
                {{Left, Delete}, "ab\nc|"},
                {{Home, Right, Return}, "a\n|b\nc👍🏽"},
                {{Home, Down}, "ab\n|c👍🏽"},
                {{Left, Up}, "a|b\nc👍🏽"},
                {{Home, {Right, true}, Backspace}, "|b\nc👍🏽"},
                {{{Left, true}, {Left, true}, Delete}, "ab\n|"},
                {{SelectAll, Return}, "\n|"}};
    for (const auto& row : rows) {
        playground.press(End);
        while (playground.field().hasText()) playground.press(Backspace);
        playground.typeText("ab\nc👍🏽");
        for (const EditingStroke& key : row.keys) {
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
    for (int taps = 0; taps < 2; ++taps) {
        playground.window().touchDown(1, playground.textArea().frame().origin() + ui::Point{4, 15});
        playground.window().touchUp(1, playground.textArea().frame().origin() + ui::Point{4, 15});
        advance(0.1);
    }
    EXPECT_EQ(playground.field().selectedText(), "one") << "two taps in a row";
}

TEST_F(PlaygroundTest, TheCursorIsInSightHoweverLongTheText) {
    for (int line = 0; line < 60; ++line) {
        playground.typeText("line\n");
        frame();
        ASSERT_TRUE(holds(playground.textArea().bounds(), playground.textArea().cursorRect())) << line;
    }
}

constexpr double BAR = 45;  // the words above the keys

TEST_F(PlaygroundTest, EverythingHasItsPlaceAtAnySize) {
    for (double width = 320; width <= 1100; width += 60) {
        for (const double height : {Playground::LEAST_SIZE.height, 1400.0}) {
            SCOPED_TRACE(::testing::Message() << width << " x " << height);
            resize({width, height});
            const ui::Rect keys = playground.keyboard().view().frame();
            EXPECT_EQ(keys.width, std::min(width, Playground::GREATEST_WIDTH));
            EXPECT_EQ(keys.bottom(), height);
            EXPECT_EQ(keys.height, BAR + (width > height ? 162 : width < 400 ? 216 : 226));
            EXPECT_FALSE(playground.toolbar().frame().intersects(keys));
            EXPECT_FALSE(playground.textArea().frame().intersects(keys));
            for (int index = 0; index < 7; ++index) {
                EXPECT_TRUE(holds(playground.toolbar().bounds(),
                                  playground.toolbar().frameOf(static_cast<Choice>(index))));
            }
        }
    }
}

TEST_F(PlaygroundTest, ChoicesReachTheKeyboard) {
    choose(Choice::Field);  // an email
    type("a");
    EXPECT_EQ(text(), "a") << "no capital begins an address";
    choose(Choice::Look);
    EXPECT_TRUE(playground.keyboard().darkMode());
    choose(Choice::Settings);
    EXPECT_TRUE(playground.keyboard().settingsOnShow());
    choose(Choice::Settings);
    choose(Choice::Language);
    EXPECT_TRUE(playground.keyboard().isArabicModeOn());
}

TEST_F(PlaygroundTest, ThemesGoRoundAndOneThatIsNoneOfThemEnds) {
    const auto shows = [this](const char* name) {
        playground.window().damageAll();
        return std::ranges::count(frame().texts(), name) == 1;
    };
    EXPECT_TRUE(shows("Built-in"));
    for (const char* const name : {"Ink", "Snow", "Built-in"}) {
        choose(Choice::Theme);
        EXPECT_TRUE(shows(name)) << name;
    }
    playground.keyboard().themeChangeAccordingly(themeOf("#123456"));
    EXPECT_TRUE(shows("Your own"));
    choose(Choice::Theme);
    EXPECT_TRUE(shows("Built-in"));
}

TEST_F(PlaygroundTest, AKeyboardThatWasPutAwayComesBackWithATapOnTheText) {
    resize({656, 375});
    const double height = playground.textArea().frame().height;
    tapKey([](const Key& key) { return key.type == Key::KeyType::dismiss_Self; });
    EXPECT_TRUE(playground.keyboard().view().isHidden());
    EXPECT_EQ(playground.textArea().frame().height, height + BAR + 162);
    tap(playground.textArea().frame().center());
    EXPECT_FALSE(playground.keyboard().view().isHidden());
    EXPECT_EQ(playground.textArea().frame().height, height);
}

constexpr ui::Font FONT{18, ui::FontWeight::Regular};

TEST(TypesetText, ATouchOnTheCursorMeansWhereItStands) {
    ui::TextLayouts layouts(1);
    const std::string texts[] = {"",
                                 "The quick brown fox jumps over the lazy dog, again and again",
                                 "one\n\ntwo\nthree\n",
                                 "unbreakablyLongWordThatFillsMoreThanOneLine",
                                 "e\u0301te\u0301 in\nParis",
                                 "صباح الخير يا صديقي العزيز\nكيف حالك اليوم",
                                 "هذا سطر\n\n"};
    for (const std::string& text : texts) {
        for (const double width : {60.0, 131.0, 400.0}) {
            const TypesetText lines(text, FONT, width, layouts);
            for (std::size_t offset = 0;; offset = platform::characterBoundaryFrom(text, offset + 1)) {
                const ui::Rect cursor = lines.cursorAt(offset);
                EXPECT_EQ(lines.offsetAt(cursor.center()), offset) << text << " in " << width;
                EXPECT_LE(cursor.bottom(), lines.height() + 0.01);
                if (offset == text.size()) break;
            }
        }
    }
}

}  // namespace

}  // namespace vorpel::playground
