// SPDX-License-Identifier: Apache-2.0
#include "keyboard/settings/default_settings.h"

#include "keyboard/model/preference_keys.h"
#include "keyboard/settings_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace vorpel {
namespace {

using testing::RecordingPainter;
using ui::Rect;
using ui::RowPath;

/// All sizes that the keys can have.
constexpr ui::Size SIZES[]{{320, 216}, {375, 216}, {414, 226}, {568, 162}, {667, 162},
                           {736, 162}, {768, 264}, {896, 162}, {1024, 352}};

TEST_F(DefaultSettingsTest, SaysAllOfTheListInItsOrder) {
    open({375, 800});
    EXPECT_EQ(frame().texts().size(), 0U);
    window.damageAll();
    const std::vector<std::string> expected{
        "LANGUAGES",
        "Arabic",
        "English",
        "DICTIONARY SETTINGS",
        "Word Suggestions",
        "Auto-Correction",
        "GENERAL SETTINGS",
        "Auto-Capitalization",
        "Keyboard Clicks",
        "Please note that keyboard clicks will work only if “Allow Full Access” is enabled in the keyboard "
        "settings. Unfortunately, this is a limitation of the operating system.",
        "Allow Lowercase Key Caps",
        "Changes your key caps to lowercase when Shift is off, making it easier to tell what mode you are "
        "in."};
    std::vector<testing::Drawn> drawn = frame().drawn;
    std::erase_if(drawn, [&](const testing::Drawn& one) {
        return one.text.empty() || one.rect.y < inWindow(settings->table()).y;
    });
    std::ranges::stable_sort(drawn, {}, [](const testing::Drawn& one) { return one.rect.y; });
    std::vector<std::string> said;
    for (const testing::Drawn& one : drawn) said.push_back(one.text);
    EXPECT_EQ(said, expected);
}

TEST_F(DefaultSettingsTest, SwitchesAndTheirRowsStoreWhatTheyAreTurnedTo) {
    defaults().setBool(preferences::kAutoCorrection, true);
    open();
    EXPECT_EQ(switches(), "01 11 101");
    for (const RowPath path :
         {RowPath{2, 2}, RowPath{2, 1}, RowPath{2, 0}, CORRECTION_ROW, SUGGESTIONS_ROW}) {
        const std::string key = settingsList[path.section].keys[path.row];
        SCOPED_TRACE(key);
        const bool before = defaults().boolForKey(key);
        ASSERT_EQ(isOn(path), before);
        tapSwitch(path);
        EXPECT_EQ(defaults().boolForKey(key), !before);
        EXPECT_EQ(isOn(path), !before);
        EXPECT_EQ(cell(path).settingSwitch().knobPosition(), before ? 0 : 1);
        tapTitle(path);
        EXPECT_EQ(defaults().boolForKey(key), before);
        EXPECT_EQ(isOn(path), before);
    }
    EXPECT_EQ(switches(), "01 11 101");
}

TEST_F(DefaultSettingsTest, AFingerThatScrollsTurnsNothing) {
    open();
    const ui::Point start = inWindow(cell(ENGLISH_ROW).settingSwitch()).center();
    window.touchDown(1, start);
    for (int step = 1; step <= 6; ++step) window.touchMoved(1, {start.x, start.y - 10 * step});
    window.touchUp(1, {start.x, start.y - 60});
    platform.advance(3);
    EXPECT_GT(settings->table().contentOffset().y, 20);
    EXPECT_EQ(switches(), "01 10 101");
    EXPECT_FALSE(defaults().stringForKey(preferences::LANGUAGE));
}

TEST_F(DefaultSettingsTest, WithoutSuggestionsCorrectionIsOffOnShowAndStaysAsItIsStored) {
    for (const bool stored : {false, true}) {
        SCOPED_TRACE(stored);
        const std::string shown = stored ? "01 11 101" : "01 10 101";
        defaults().setBool(preferences::kAutoCorrection, stored);
        open();
        tapSwitch(SUGGESTIONS_ROW);
        EXPECT_EQ(switches(), "01 00 101");
        EXPECT_FALSE(cell(CORRECTION_ROW).settingSwitch().isEnabled());
        tapSwitch(CORRECTION_ROW);
        tapTitle(CORRECTION_ROW);
        EXPECT_EQ(switches(), "01 00 101");
        EXPECT_EQ(defaults().boolForKey(preferences::kAutoCorrection), stored);

        tapSwitch(SUGGESTIONS_ROW);
        EXPECT_EQ(switches(), shown);
        EXPECT_TRUE(cell(CORRECTION_ROW).settingSwitch().isEnabled());
    }
}

TEST_F(DefaultSettingsTest, ExactlyOneLanguageIsOn) {
    struct Case {
        const char* what;
        std::optional<std::string> stored;
        std::vector<RowPath> taps;
        std::optional<std::string> language;
        std::optional<bool> needsReload;
    };
    const Case cases[]{
        {"absent is English", {}, {}, {}, {}},
        {"an unknown one is English", "fr", {}, "fr", {}},
        {"Arabic from nothing", {}, {ARABIC_ROW}, "ar", true},
        {"Arabic from English", "en", {ARABIC_ROW}, "ar", true},
        {"English from Arabic", "ar", {ENGLISH_ROW}, "en", true},
        {"there and back", "en", {ARABIC_ROW, ENGLISH_ROW}, "en", true},
        {"English stays on", {}, {ENGLISH_ROW}, {}, {}},
        {"Arabic stays on", "ar", {ARABIC_ROW, ARABIC_ROW}, "ar", {}},
        {"a change in waiting is not forgotten", "en", {ARABIC_ROW, ARABIC_ROW}, "ar", true},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.what);
        for (const bool bySwitch : {true, false}) {
            defaults().removeObject(preferences::LANGUAGE);
            defaults().removeObject(preferences::NEED_TO_RELOAD_LANGUAGE);
            if (one.stored) defaults().setString(preferences::LANGUAGE, *one.stored);
            open();
            for (const RowPath& path : one.taps) bySwitch ? tapSwitch(path) : tapTitle(path);
            const auto needsReload = defaults().objectForKey(preferences::NEED_TO_RELOAD_LANGUAGE);
            EXPECT_EQ(defaults().stringForKey(preferences::LANGUAGE), one.language);
            EXPECT_EQ(needsReload.has_value(), one.needsReload.has_value());
            EXPECT_EQ(defaults().boolForKey(preferences::NEED_TO_RELOAD_LANGUAGE),
                      one.needsReload.value_or(false));
            EXPECT_EQ(switches(), one.language == "ar" ? "10 10 101" : "01 10 101");
        }
    }
}

TEST_F(DefaultSettingsTest, ALanguageThatIsStoredAlreadyNeedsNoReload) {
    open();
    defaults().setString(preferences::LANGUAGE, preferences::ARABIC);
    tapSwitch(ARABIC_ROW);
    EXPECT_EQ(switches(), "10 10 101");
    EXPECT_EQ(defaults().objectForKey(preferences::NEED_TO_RELOAD_LANGUAGE),
              platform::UserDefaults::Value(false));
}

TEST_F(DefaultSettingsTest, ReloadingShowsWhatOthersHaveStoredFromTheTop) {
    open();
    scrollBy(80);
    ASSERT_GT(settings->table().contentOffset().y, 0);
    defaults().setString(preferences::LANGUAGE, preferences::ARABIC);
    defaults().setBool(preferences::kWordSuggestions, false);
    defaults().setBool(preferences::kKeyboardClicks, true);
    settings->reload();
    EXPECT_EQ(switches(), "10 00 111");
    EXPECT_EQ(settings->table().contentOffset(), ui::Point());
}

TEST_F(DefaultSettingsTest, AtEverySizeAllRowsAreReachedAndNothingOverlaps) {
    for (const ui::Size size : SIZES) {
        SCOPED_TRACE(::testing::Message() << size.width << " x " << size.height);
        open(size);
        const ui::TableView& table = settings->table();
        const Rect whole = settings->bounds();
        EXPECT_TRUE(holds(whole, inWindow(table)));
        EXPECT_GT(table.bounds().height, size.height / 2);
        EXPECT_TRUE(holds(whole, inWindow(settings->doneButton())));
        EXPECT_FALSE(inWindow(settings->doneButton()).intersects(inWindow(table)));

        double bottom = 0;
        for (std::size_t section = 0; section < settingsList.size(); ++section) {
            for (std::size_t row = 0; row < settingsList[section].keys.size(); ++row) {
                DefaultSettingsTableViewCell& one = cell({section, row});
                const Rect place = one.frame();
                EXPECT_GE(place.y, bottom);
                bottom = place.bottom();
                EXPECT_LE(place.width, 560);
                EXPECT_NEAR(place.x, size.width - place.right(), 1);
                std::vector<Rect> parts{one.titleLabel().frame(), one.settingSwitch().frame()};
                if (!one.noteLabel().text().empty()) {
                    const Rect note = one.noteLabel().frame();
                    RecordingPainter painter;
                    EXPECT_GE(
                        note.height,
                        painter.measureParagraph(one.noteLabel().text(), note.width, one.noteLabel().font())
                            .height);
                    parts.push_back(note);
                }
                for (std::size_t i = 0; i < parts.size(); ++i) {
                    EXPECT_TRUE(holds(one.bounds(), parts[i]));
                    for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(parts[i].intersects(parts[j]));
                }
                EXPECT_TRUE(bringOnShow(one.settingSwitch())) << section << ", " << row;
            }
        }
        EXPECT_LE(bottom, table.contentSize().height);
    }
}

TEST_F(DefaultSettingsTest, ATurnedDeviceHasTheRowsLaidOutAnew) {
    open({320, 216});
    scrollBy(150);
    const double upright = cell(CLICKS_ROW).frame().height;
    settings->setFrame({0, 0, 568, 162});
    frame();
    EXPECT_LT(cell(CLICKS_ROW).frame().height, upright) << "the note takes fewer lines";
    EXPECT_LE(settings->table().contentOffset().y, settings->table().largestOffset().y);
}

double luminance(const ui::Color& color) {
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

ui::Color over(const ui::Color& ground, const ui::Color& top) {
    const auto mix = [&](double below, double above) { return below + (above - below) * top.alpha; };
    return ui::Color::rgb(mix(ground.red, top.red), mix(ground.green, top.green), mix(ground.blue, top.blue));
}

double contrast(const ui::Color& ground, const ui::Color& top) {
    const double a = luminance(ground);
    const double b = luminance(over(ground, top));
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST_F(DefaultSettingsTest, ItCanBeReadInTheLightAndInTheDark) {
    for (const bool dark : {false, true}) {
        for (const bool solid : {false, true}) {
            SCOPED_TRACE(::testing::Message() << dark << solid);
            const auto look = SettingsColors::of(colors, {dark, solid}, defaults());
            const ui::Color card = over(look.ground, look.card);
            EXPECT_EQ(look.ground.alpha, 1) << "the keys would shine through";
            EXPECT_GT(contrast(card, look.text), 12);
            EXPECT_GT(contrast(card, look.quietText), 4.5);
            EXPECT_GT(contrast(look.ground, look.quietText), 4.5);
            EXPECT_GT(contrast(look.ground, look.button), 3);
            EXPECT_GT(contrast(card, look.accent), 3);
            EXPECT_GT(contrast(card, look.offTrack), 1.4);
        }
    }
}

TEST_F(DefaultSettingsTest, AThemeColorsItUntilItIsTakenBack) {
    open();
    const auto drawnText = [&](const std::string& text) {
        settings->updateAppearance(true);
        window.damageAll();
        const auto drawn = frame().drawn;
        return std::ranges::find(drawn, text, &testing::Drawn::text)->color;
    };
    EXPECT_EQ(drawnText("Arabic"), ui::Color::white());
    defaults().setString(preferences::KEYBOARD_BACKGROUND_COLOR, "#003366");
    defaults().setString(preferences::KEY_TEXT_COLOR, "#FFCC00");
    EXPECT_EQ(drawnText("Arabic"), ui::Color::white()) << "stored colours alone are no theme";
    defaults().setBool(preferences::IS_KEYBOARD_THEME, true);
    for (const char* const text : {"Arabic", "Settings", "Done"}) {
        EXPECT_EQ(drawnText(text), ui::Color::rgb(1, 0.8, 0)) << text;
    }
    EXPECT_EQ(settings->backgroundColor(), ui::Color::rgb(0, 0.2, 0.4));
    defaults().setBool(preferences::IS_KEYBOARD_THEME, false);
    EXPECT_EQ(drawnText("Arabic"), ui::Color::white());
}

}  // namespace
}  // namespace vorpel
