// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/preference_keys.h"
#include "keyboard/session/vorpel_keyboard_view_controller.h"
#include "keyboard/settings/default_settings.h"
#include "keyboard/settings/default_settings_table_view_cell.h"
#include "keyboard/settings/settings_list.h"
#include "support/deterministic_platform.h"
#include "support/recording_painter.h"
#include "ui/window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel {
namespace {

using ui::Rect;
using ui::RowPath;

constexpr RowPath ARABIC_ROW{0, 0};
constexpr RowPath ENGLISH_ROW{0, 1};
constexpr RowPath SUGGESTIONS_ROW{1, 0};
constexpr RowPath CORRECTION_ROW{1, 1};

Rect inWindow(const ui::View& view) {
    return view.bounds().offsetBy(view.convertToWindow({0, 0}));
}

/// The settings screen in a window, alone or in its keyboard, and a finger.
class SettingsTest : public ::testing::Test {
protected:
    SettingsTest() { registerKeyboardDefaults(defaults); }

    /// High enough, unless told otherwise, to show all rows at once.
    void open(ui::Size size = {375, 800}) {
        alone = std::make_unique<DefaultSettings>(colors, false, false, defaults);
        alone->setFrame({0, 0, size.width, size.height});
        window.setRoot(alone.get());
        window.layoutIfNeeded();  // with nothing to measure with
        shown = alone.get();
        frame();
    }

    void openInKeyboard() {
        keyboard->view().setFrame({0, 0, 375, 261});
        window.setRoot(&keyboard->view());
        keyboard->viewDidLoad();
        keyboard->viewDidLayoutSubviews();
        keyboard->toggleSettings(false);
        platform.settle();
        shown = keyboard->settingsView();
        frame();
    }

    testing::RecordingPainter frame() {
        testing::RecordingPainter painter;
        window.paint(painter);
        return painter;
    }

    DefaultSettingsTableViewCell& cell(const RowPath& path) {
        return dynamic_cast<DefaultSettingsTableViewCell&>(*shown->table().cellForRow(path));
    }

    /// All switches from the top, as "01 10 101".
    std::string switches() {
        std::string all;
        for (std::size_t section = 0; section < settingsList.size(); ++section) {
            if (section > 0) all += ' ';
            for (std::size_t row = 0; row < settingsList[section].keys.size(); ++row) {
                all += cell({section, row}).settingSwitch().isOn() ? '1' : '0';
            }
        }
        return all;
    }

    void tap(ui::Point point) {
        window.touchDown(1, point);
        platform.advance(0.05);
        window.touchUp(1, point);
        platform.advance(0.5);
        frame();
    }
    void tapSwitch(const RowPath& path) { tap(inWindow(cell(path).settingSwitch()).center()); }
    void tapTitle(const RowPath& path) { tap(inWindow(cell(path).titleLabel()).center()); }

    testing::DeterministicPlatform platform;
    platform::UserDefaults& defaults = platform.userDefaults;
    GlobalColors colors;
    std::unique_ptr<VorpelKeyboardViewController> keyboard =
        VorpelKeyboardViewController::create(platform.platform);
    std::unique_ptr<DefaultSettings> alone;
    DefaultSettings* shown = nullptr;
    ui::Window window{platform.runLoop};
};

TEST_F(SettingsTest, SwitchesAndTheirRowsStoreWhatTheyAreTurnedTo) {
    defaults.setBool(preferences::kAutoCorrection, true);
    open();
    EXPECT_EQ(switches(), "01 11 101");
    for (const RowPath path :
         {RowPath{2, 2}, RowPath{2, 1}, RowPath{2, 0}, CORRECTION_ROW, SUGGESTIONS_ROW}) {
        const std::string key = settingsList[path.section].keys[path.row];
        SCOPED_TRACE(key);
        const bool before = defaults.boolForKey(key);
        tapSwitch(path);
        EXPECT_EQ(defaults.boolForKey(key), !before);
        EXPECT_EQ(cell(path).settingSwitch().knobPosition(), before ? 0 : 1);
        tapTitle(path);
        EXPECT_EQ(defaults.boolForKey(key), before);
        EXPECT_EQ(cell(path).settingSwitch().isOn(), before);
    }
}

TEST_F(SettingsTest, WithoutSuggestionsCorrectionIsOffOnShowAndStaysAsItIsStored) {
    for (const bool stored : {false, true}) {
        defaults.setBool(preferences::kAutoCorrection, stored);
        open();
        tapSwitch(SUGGESTIONS_ROW);
        tapSwitch(CORRECTION_ROW);
        tapTitle(CORRECTION_ROW);
        EXPECT_EQ(switches(), "01 00 101");
        EXPECT_EQ(defaults.boolForKey(preferences::kAutoCorrection), stored);
        tapSwitch(SUGGESTIONS_ROW);
        EXPECT_EQ(switches(), stored ? "01 11 101" : "01 10 101");
    }
}

TEST_F(SettingsTest, OneLanguageIsOnAndAChangeAsksForItsLoading) {
    struct Case {
        const char* what;
        std::optional<std::string> stored;
        std::vector<RowPath> taps;
        std::optional<std::string> language;
        bool needsReload;
    };
    const Case cases[]{
        {"an unknown one is English", "fr", {}, "fr", false},
        {"Arabic from nothing", {}, {ARABIC_ROW}, "ar", true},
        {"there and back", "en", {ARABIC_ROW, ENGLISH_ROW}, "en", true},
        {"English stays on", {}, {ENGLISH_ROW}, {}, false},
        {"a change in waiting is not forgotten", "en", {ARABIC_ROW, ARABIC_ROW}, "ar", true},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.what);
        for (const bool bySwitch : {true, false}) {
            defaults.removeObject(preferences::LANGUAGE);
            defaults.removeObject(preferences::NEED_TO_RELOAD_LANGUAGE);
            if (one.stored) defaults.setString(preferences::LANGUAGE, *one.stored);
            open();
            for (const RowPath& path : one.taps) bySwitch ? tapSwitch(path) : tapTitle(path);
            EXPECT_EQ(defaults.stringForKey(preferences::LANGUAGE), one.language);
            EXPECT_EQ(defaults.boolForKey(preferences::NEED_TO_RELOAD_LANGUAGE), one.needsReload);
            EXPECT_EQ(switches(), one.language == "ar" ? "10 10 101" : "01 10 101");
        }
    }
}

TEST_F(SettingsTest, AtEverySizeAllRowsHaveTheirPlaceAndNothingOverlaps) {
    for (const ui::Size size : {ui::Size{320, 216}, ui::Size{568, 162}, ui::Size{1024, 352}}) {
        SCOPED_TRACE(size.width);
        open(size);
        std::vector<Rect> parts;
        for (std::size_t section = 0; section < settingsList.size(); ++section) {
            for (std::size_t row = 0; row < settingsList[section].keys.size(); ++row) {
                DefaultSettingsTableViewCell& one = cell({section, row});
                EXPECT_LE(one.frame().width, 560) << "a switch too far away seems to belong to nothing";
                const ui::Label& note = one.noteLabel();
                testing::RecordingPainter painter;
                EXPECT_GE(note.frame().height,
                          painter.measureParagraph(note.text(), note.frame().width, note.font()).height);
                parts.push_back(inWindow(one.titleLabel()));
                parts.push_back(inWindow(one.settingSwitch()));
                if (!note.text().empty()) parts.push_back(inWindow(note));
            }
        }
        ASSERT_EQ(parts.size(), 7 * 2 + 2U) << "two rows have notes";
        for (std::size_t i = 0; i < parts.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(parts[i].intersects(parts[j])) << i << ' ' << j;
        }
        const Rect table = inWindow(shown->table());
        EXPECT_FALSE(inWindow(shown->doneButton()).intersects(table));
        EXPECT_EQ(shown->bounds().unionWith(table), shown->bounds());
        EXPECT_LE(parts.back().bottom(), table.y + shown->table().contentSize().height);
    }
}

TEST_F(SettingsTest, AThemeColorsItUntilItIsTakenBack) {
    open();
    const auto colorOf = [&](const std::string& text) {
        shown->updateAppearance(true);
        window.damageAll();
        const auto drawn = frame().drawn;
        return std::ranges::find(drawn, text, &testing::Drawn::text)->color;
    };
    defaults.setString(preferences::KEYBOARD_BACKGROUND_COLOR, "#003366");
    defaults.setString(preferences::KEY_TEXT_COLOR, "#FFCC00");
    defaults.setBool(preferences::IS_KEYBOARD_THEME, true);
    for (const char* const text : {"Arabic", "Settings", "Done"}) {
        EXPECT_EQ(colorOf(text), ui::Color::rgb(1, 0.8, 0)) << text;
    }
    EXPECT_EQ(shown->backgroundColor(), ui::Color::rgb(0, 0.2, 0.4));
    defaults.setBool(preferences::IS_KEYBOARD_THEME, false);
    EXPECT_EQ(colorOf("Arabic"), ui::Color::white());
}

TEST_F(SettingsTest, CoversTheKeysUntilItIsDone) {
    openInKeyboard();
    const Rect keys = inWindow(*keyboard->forwardingView());
    ASSERT_EQ(inWindow(*shown), keys);
    for (double y = keys.y + 50; y < keys.bottom(); y += 9) tap({6, y});
    EXPECT_EQ(platform.field().text(), "") << "no key is felt through the screen";
    const ui::Point done = inWindow(shown->doneButton()).center();
    window.touchDown(1, done);
    EXPECT_TRUE(keyboard->settingsOnShow());
    window.touchUp(1, done);
    EXPECT_FALSE(keyboard->settingsOnShow());
    tap({keys.center().x, keys.y + 30});
    EXPECT_NE(platform.field().text(), "");
}

TEST_F(SettingsTest, ALanguageIsLoadedWhenTheScreenIsDoneAndShownAnewFromTheTop) {
    openInKeyboard();
    tapSwitch(ARABIC_ROW);
    EXPECT_FALSE(keyboard->isArabicModeOn());
    const ui::Point start = inWindow(cell(ENGLISH_ROW).titleLabel()).center();
    window.touchDown(1, start);
    for (const double way : {20.0, 60.0}) window.touchMoved(1, {start.x, start.y - way});
    window.touchUp(1, {start.x, start.y - 60});
    platform.advance(3);
    ASSERT_GT(shown->table().contentOffset().y, 20);
    tap(inWindow(shown->doneButton()).center());
    platform.settle();
    EXPECT_TRUE(keyboard->isArabicModeOn()) << "a finger that scrolls turns nothing";
    EXPECT_EQ(platform.host.primaryLanguage, "ar");
    EXPECT_FALSE(defaults.boolForKey(preferences::NEED_TO_RELOAD_LANGUAGE));

    keyboard->changeKeyboardSetting(VorpelIMESettings::WORD_SUGGESTION, false);
    keyboard->changeKeyboardLanguage("en");
    openInKeyboard();
    EXPECT_EQ(switches(), "01 00 101");
    EXPECT_EQ(shown->table().contentOffset(), ui::Point());
}

}  // namespace
}  // namespace vorpel
