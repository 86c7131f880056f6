// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/emoticon_colors.h"
#include "keyboard/session_stage.h"
#include "keyboard/theme/contrast.h"

#include <gtest/gtest.h>

namespace vorpel {

namespace {

using testing::ALL_OPTIONS;
using testing::deviceOf;
using testing::SessionStage;

/// A keyboard and fingers on its emoji page.
class EmojiStage : public SessionStage {
public:
    explicit EmojiStage(testing::WordScript words = {}, const testing::Setting& setting = {})
        : SessionStage(std::move(words), &ALL_OPTIONS, setting) {}

    [[nodiscard]] VPEmoticonKeyboardView& emoji() const { return session().getSecondEmoction_Keyboardview(); }
    [[nodiscard]] bool isOpen() const { return session().emojiOnShow(); }

    void open() {
        touch("emoji");
        frame();
    }

    void tap(ui::View& view) {
        advance(0.5);
        down(0, view.convertToWindow(view.bounds().center()));
        advance(0.06);
        up(0);
        frame();
    }

    void tapIcon(int page) {
        tap(*emoji().categoryView().itemViewArray().at(static_cast<std::size_t>(page)));
        advance(0.5);
        frame();
    }

    [[nodiscard]] ui::CollectionView& grid() const {
        return emoji().currentPage()->collectionView().collectionView();
    }
    void tapEmoji(int item) { tap(*grid().cellForItem({0, item})); }

    /// A finger that draws the pages along for `seconds`, and lets go without a rest.
    void swipe(ui::Point way, double seconds) {
        const ui::Point middle = grid().convertToWindow(grid().bounds().center());
        const ui::Point start{middle.x - way.x / 2, middle.y - way.y / 2};
        constexpr double FRAME = 1.0 / 60;
        const int steps = static_cast<int>(seconds / FRAME);
        down(0, start);
        for (int step = 1; step <= steps; ++step) {
            advance(FRAME);
            move(0, ui::Point{start.x + way.x * step / steps, start.y + way.y * step / steps});
        }
        advance(FRAME);
        up(0);
        advance(2);
        frame();
    }

    /// What a frame does, but for painting.
    void frame() {
        window.layoutIfNeeded();
        platform.settle();
        window.layoutIfNeeded();
    }

    [[nodiscard]] std::vector<std::string> recent() const {
        return platform.userDefaults.stringArrayForKey(preferences::RECENT)
            .value_or(std::vector<std::string>());
    }
};

TEST(EmojiPage, OpensInPlaceOfTheKeysTypesAndLeadsBack) {
    EmojiStage stage;
    EXPECT_FALSE(stage.isOpen());
    stage.write("a ");
    stage.touch("123");
    stage.open();
    ASSERT_TRUE(stage.isOpen());
    EXPECT_TRUE(stage.keys().isHidden());
    EXPECT_EQ(stage.emoji().frame(), stage.keys().frame());
    EXPECT_EQ(stage.emoji().currentIndex(), FACES_AND_PEOPLE);
    stage.tapEmoji(2);
    stage.tapEmoji(0);
    EXPECT_EQ(stage.text(), "a 😂😀");
    EXPECT_EQ(stage.recent(), (std::vector<std::string>{"😀", "😂"}));
    stage.tap(stage.emoji().modeChangeButton());
    EXPECT_FALSE(stage.isOpen());
    EXPECT_FALSE(stage.keys().isHidden());
    stage.write("b");
    EXPECT_EQ(stage.text(), "a 😂😀b");
}

TEST(EmojiPage, PagesTurnByDragByFlingAndByIcon) {
    EmojiStage stage;
    stage.open();
    const auto page = [&] { return stage.emoji().currentIndex(); };
    stage.swipe({-250, 10}, 0.8);
    EXPECT_EQ(page(), ANIMALS_AND_NATURE);
    stage.swipe({-60, 0}, 0.05);
    EXPECT_EQ(page(), FOOD_AND_DRINK);
    stage.swipe({60, 0}, 0.05);
    EXPECT_EQ(page(), ANIMALS_AND_NATURE);
    EXPECT_EQ(stage.emoji().categoryView().selectedItemView()->currentTitle(), "🐌");
    EXPECT_EQ(stage.emoji().currentArray().front(), "🐌");
    stage.tapEmoji(1);
    EXPECT_EQ(stage.text(), "🐍");
    stage.tapIcon(FLAGS);
    EXPECT_EQ(page(), FLAGS);
    const double before = stage.grid().contentOffset().y;
    stage.swipe({5, -90}, 0.4);
    EXPECT_EQ(page(), FLAGS) << "a finger that draws the emoji up turns no page";
    EXPECT_GT(stage.grid().contentOffset().y, before + 60);
    // At the last page there is nothing beyond.
    stage.swipe({-250, 0}, 0.2);
    EXPECT_EQ(page(), FLAGS);
    EXPECT_EQ(stage.text(), "🐍") << "no drag is a tap";
}

TEST(EmojiPage, RecentOnesComeToTheFrontButNotUnderTheFinger) {
    EmojiStage stage;
    stage.open();
    for (const int item : {0, 1, 2}) stage.tapEmoji(item);
    const auto shown = [&] { return stage.emoji().currentPage()->collectionView().emojis(); };
    using Emoji = std::vector<std::string>;
    stage.tapIcon(RECENT_EMOJI);
    EXPECT_EQ(shown(), (Emoji{"😂", "😁", "😀"}));
    stage.tapEmoji(2);
    EXPECT_EQ(shown(), (Emoji{"😂", "😁", "😀"}));
    EXPECT_EQ(stage.recent(), (Emoji{"😀", "😂", "😁"}));
    EXPECT_EQ(stage.emoji().currentArray(), stage.recent());
    stage.tap(stage.emoji().modeChangeButton());
    stage.open();
    EXPECT_EQ(stage.emoji().currentIndex(), RECENT_EMOJI);
    EXPECT_EQ(shown(), stage.recent());
    // By the way of another page.
    stage.tapEmoji(2);
    stage.tapIcon(ANIMALS_AND_NATURE);
    stage.swipe({250, 0}, 0.3);
    stage.swipe({250, 0}, 0.3);
    ASSERT_EQ(stage.emoji().currentIndex(), RECENT_EMOJI);
    EXPECT_EQ(shown(), (Emoji{"😁", "😀", "😂"}));
    stage.tapIcon(FLAGS);
    for (int flag = 0; flag < 24; ++flag) stage.tapEmoji(flag);
    stage.tapIcon(TRAVEL_AND_PLACES);
    for (int place = 0; place < 24; ++place) stage.tapEmoji(place);
    EXPECT_EQ(stage.recent().size(), 32U);
    EXPECT_EQ(stage.recent().back().size(), 8U) << "a flag";
}

TEST(EmojiPage, SaysWhenThereAreNoRecentOnes) {
    EmojiStage stage;
    stage.open();
    stage.tapIcon(RECENT_EMOJI);
    EmojiPageView* const page = stage.emoji().currentPage();
    EXPECT_EQ(page->note().text(), "You have no recent emojis");
    EXPECT_FALSE(page->note().isHidden());
    EXPECT_TRUE(page->collectionView().isHidden());
}

TEST(EmojiPage, BackspaceDeletesWholeEmojiAndGoesOnWhileHeld) {
    EmojiStage stage;
    stage.open();
    stage.tapIcon(FLAGS);
    for (int flag = 0; flag < 12; ++flag) stage.tapEmoji(flag);
    ui::Button& backspace = stage.emoji().backSpaceButton();
    stage.tap(backspace);
    EXPECT_EQ(platform::characterCount(stage.text()), 11U);
    const ui::Point place = backspace.convertToWindow(backspace.bounds().center());
    stage.advance(0.5);
    stage.down(0, place);
    stage.advance(0.95);
    const std::size_t left = platform::characterCount(stage.text());
    EXPECT_LT(left, 8U);
    stage.up(0);
    stage.advance(2);
    EXPECT_EQ(platform::characterCount(stage.text()), left);
    // A keyboard that goes away lets go.
    stage.down(0, place);
    stage.controller->viewWillDisappear();
    const std::size_t last = platform::characterCount(stage.text());
    stage.advance(2);
    EXPECT_EQ(platform::characterCount(stage.text()), last);
    EXPECT_FALSE(stage.isOpen());
}

TEST(EmojiPage, EndsTheWordAndItsCorrection) {
    testing::WordScript words;
    words.suggestions["teh"] = {{"the", "ten"}, true};
    EmojiStage stage(words);
    stage.correct(true);
    stage.write("teh");
    ASSERT_TRUE(stage.session().correctionPending());
    stage.open();
    stage.tapEmoji(0);
    stage.tap(stage.emoji().modeChangeButton());
    stage.write(" ");
    EXPECT_EQ(stage.text(), "teh😀 ");
    EXPECT_EQ(stage.committed.words, std::vector<std::string>{"teh"});
}

TEST(EmojiPage, RemembersNothingOfASecret) {
    EmojiStage stage;
    platform::TextInputTraits traits;
    stage.field().setTraits(traits);
    stage.open();
    traits.isSecureTextEntry = true;
    stage.field().setTraits(traits);
    stage.controller->textDidChange();
    stage.tapEmoji(0);
    EXPECT_EQ(stage.recent(), std::vector<std::string>());
}

TEST(EmojiPage, FillsItsWidthAndFollowsIt) {
    const std::pair<double, int> widths[] = {{320, 7}, {375, 8}, {414, 9}, {1024, 22}};
    for (const auto& [width, count] : widths) {
        testing::Setting setting;
        setting.device = deviceOf(width, width * 1.7);
        EmojiStage stage({}, setting);
        stage.open();
        const auto firstLine = [&] {
            const auto cells = stage.grid().visibleCells();
            return std::ranges::count_if(cells, [](const ui::View* cell) { return cell->frame().y < 1; });
        };
        EXPECT_EQ(firstLine(), count) << width;
        const ui::View* const last = stage.grid().cellForItem({0, count - 1});
        EXPECT_NEAR(last->frame().right(), width - 5, 0.01);
        if (width > 414) continue;
        stage.rotate(platform::InterfaceOrientation::Landscape);
        stage.frame();
        EXPECT_EQ(stage.emoji().frame(), stage.keys().frame());
        EXPECT_EQ(firstLine(), emojiPerLine(stage.platform.screen.boundsWidth())) << width;
        EXPECT_EQ(stage.emoji().currentIndex(), FACES_AND_PEOPLE);
    }
}

TEST(EmojiPage, TakesEveryTapThatPeopleMake) {
    EmojiStage stage;
    stage.open();
    const auto place = [&](int item) {
        ui::View& cell = *stage.grid().cellForItem({0, item});
        return cell.convertToWindow(cell.bounds().center());
    };
    // Two thumbs, the second down before the first is up.
    stage.down(0, place(0));
    stage.advance(0.05);
    stage.down(1, place(3));
    stage.advance(0.05);
    stage.up(0);
    stage.up(1);
    EXPECT_EQ(stage.text(), "😀😃");
    // Beside an emoji, and with a finger that takes its time.
    stage.advance(1);
    stage.down(0, ui::Point{place(0).x + 22, place(0).y});
    stage.advance(2);
    stage.up(0);
    EXPECT_EQ(stage.text(), "😀😃😀");
    // While the page still moves by a few points; a finger on one that moves fast only holds it.
    for (const auto& [wait, typed] : {std::pair(0.2, false), std::pair(1.8, true)}) {
        stage.tapIcon(FLAGS);
        const std::string before = stage.text();
        const ui::Point middle = stage.grid().convertToWindow(stage.grid().bounds().center());
        stage.down(0, middle);
        for (int step = 1; step <= 4; ++step) {
            stage.advance(1.0 / 60);
            stage.move(0, ui::Point{middle.x, middle.y - 12.0 * step});
        }
        stage.up(0);
        stage.advance(wait);
        stage.frame();
        ASSERT_TRUE(stage.grid().isDecelerating());
        stage.down(0, middle);
        stage.advance(0.06);
        stage.up(0);
        EXPECT_EQ(stage.text() != before, typed) << wait;
        stage.advance(3);
    }
    // A swipe on a page that glides up turns it all the same.
    stage.swipe({0, -60}, 0.06);
    stage.tapIcon(FACES_AND_PEOPLE);
    const ui::Point middle = stage.grid().convertToWindow(stage.grid().bounds().center());
    stage.down(0, middle);
    for (int step = 1; step <= 4; ++step) {
        stage.advance(1.0 / 60);
        stage.move(0, ui::Point{middle.x, middle.y - 12.0 * step});
    }
    stage.up(0);
    stage.advance(0.3);
    stage.swipe({-200, 0}, 0.2);
    EXPECT_EQ(stage.emoji().currentIndex(), ANIMALS_AND_NATURE);
}

TEST(EmojiPage, AWordBehindAnEmojiIsAWordOfItsOwn) {
    testing::WordScript words;
    words.suggestions["hel"] = {{"help", "hell"}, false};
    EmojiStage stage(words);
    stage.open();
    stage.tapEmoji(0);
    stage.tap(stage.emoji().modeChangeButton());
    stage.write("hel");
    stage.tapLabel(2);
    EXPECT_EQ(stage.text(), "😀hell ");
    stage.open();
    stage.tapEmoji(0);
    stage.tap(stage.emoji().modeChangeButton());
    stage.write("  ");
    EXPECT_EQ(stage.text(), "😀hell 😀. ");
}

TEST(EmojiPage, KeepsItsPlaceThroughWhatHostsDo) {
    EmojiStage stage;
    stage.open();
    stage.tapEmoji(0);
    stage.tapIcon(RECENT_EMOJI);
    stage.tap(stage.emoji().modeChangeButton());
    stage.platform.userDefaults.setStringArray(preferences::RECENT, {"🐌"});
    stage.open();
    EXPECT_EQ(stage.emoji().currentPage()->collectionView().emojis(), std::vector<std::string>{"🐌"});
    stage.tap(stage.emoji().modeChangeButton());
    ui::View custom({0, 0, 375, 200});
    stage.controller->openCustom(custom);
    stage.platform.notificationCenter.post({"open Emoji Keyboard", {}});
    EXPECT_FALSE(stage.isOpen());
    stage.controller->dismissCustom();
    EXPECT_FALSE(stage.keys().isHidden());
    // A page that is drawn beyond its end, and closed at that moment, is whole when it opens again.
    stage.open();
    stage.tapIcon(FOOD_AND_DRINK);
    const ui::Point middle = stage.grid().convertToWindow(stage.grid().bounds().center());
    stage.down(0, middle);
    stage.advance(0.02);
    stage.move(0, ui::Point{middle.x, middle.y + 60});
    stage.up(0);
    stage.controller->viewWillDisappear();
    stage.controller->viewWillAppear();
    stage.open();
    EXPECT_EQ(stage.grid().contentOffset().y, 0);
}

TEST(EmojiPage, GivesWayToSettings) {
    EmojiStage stage;
    stage.open();
    stage.controller->toggleSettings(false);
    EXPECT_FALSE(stage.isOpen());
    stage.controller->toggleSettings(true);
    EXPECT_FALSE(stage.keys().isHidden());
    stage.open();
    EXPECT_TRUE(stage.isOpen());
    EXPECT_FALSE(stage.controller->settingsOnShow());
}

TEST(EmojiPage, CanBeReadInEveryLookAndTakesTheThemeInForce) {
    EmojiStage stage;
    stage.open();
    for (const bool dark : {false, true}) {
        stage.emoji().setDark_mode(dark);
        const ui::Color title = stage.emoji().modeChangeButton().titleColorForState(ui::ControlState::Normal);
        EXPECT_GE(contrast(title, stage.emoji().backgroundColor()), 4.5);
        EXPECT_GE(contrast(EmoticonColors::of(dark, stage.platform.userDefaults).text,
                           stage.emoji().backgroundColor()),
                  4.5);
    }
    const KeyboardThemeModel theme("#102030", "#FFD400", "#101010", "#777777", "#FFE14D", "#000000",
                                   "#000000", "#000000", true);
    stage.controller->themeChangeAccordingly(theme);
    const ui::Button& button = stage.emoji().modeChangeButton();
    const auto isColor = [](const ui::Color& color, double red, double green, double blue) {
        return color == ui::Color::rgb(red / 255, green / 255, blue / 255);
    };
    EXPECT_TRUE(isColor(stage.emoji().backgroundColor(), 0x10, 0x20, 0x30));
    EXPECT_TRUE(isColor(button.titleColorForState(ui::ControlState::Normal), 0, 0, 0));
    EXPECT_TRUE(isColor(button.backgroundColorForState(ui::ControlState::Normal), 0xFF, 0xD4, 0));
    EXPECT_GE(
        contrast(EmoticonColors::of(true, stage.platform.userDefaults).text, stage.emoji().backgroundColor()),
        4.5);
}

}  // namespace

}  // namespace vorpel
