// SPDX-License-Identifier: Apache-2.0
#include "keyboard/settings/default_settings.h"
#include "keyboard/settings/settings_colors.h"
#include "keyboard/theme/contrast.h"
#include "keyboard/theme/hex_color.h"
#include "keyboard/theme/stored_theme.h"
#include "keyboard_fixture.h"
#include "support/recording_painter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace vorpel {

namespace {

using testing::Stage;

// In the order of the fields, but for the last.
using Colors = std::array<const char*, 8>;
constexpr Colors KEYS{
    "keyboardBackgroundColor", "keyColor",     "suggestionBarColor", "suggestionDividerColor",
    "suggestionTextColor",     "keyTextcolor", "keyBorderColor",     "keyUnderLinecolor"};
constexpr Colors DARK{"#010203", "#112233", "#040506", "#778899", "#EEDDCC", "#FFEEDD", "#334455", "#556677"};
constexpr Colors LIGHT{"#FFFFF0", "#FAFAFA", "#F0F0E0", "#A0A090",
                       "#202010", "#101010", "#C0C0B0", "#909080"};
// Its key caps cannot be read on its background.
constexpr Colors ODD{"#000000", "#FFD400", "#101010", "#777777", "#FFE14D", "#000000", "#000000", "#000000"};

KeyboardThemeModel themeOf(const Colors& of) {
    return {of[0], of[1], of[2], of[3], of[4], of[5], of[6], of[7], of != LIGHT};
}

VPSuggestionsBanner& bannerOf(const Stage& stage) {
    return dynamic_cast<VPSuggestionsBanner&>(*stage.controller->bannerView());
}

/// What one sees, in the order of the theme's fields.
std::vector<ui::Color> colorsOf(const Stage& stage) {
    VPSuggestionsBanner& banner = bannerOf(stage);
    const KeyColors& key = stage.face("e").colors();
    const ui::Color words = banner.wordLabel_1.titleColorForState(ui::ControlState::Normal);
    EXPECT_EQ(stage.keys().backgroundColor(), stage.controller->view().backgroundColor());
    EXPECT_EQ(banner.border12.backgroundColor(), banner.border23.backgroundColor());
    EXPECT_EQ(banner.wordLabel_3.titleColorForState(ui::ControlState::Normal), words);
    return {stage.keys().backgroundColor(),
            key.face,
            banner.backgroundColor(),
            banner.border12.backgroundColor(),
            words,
            key.text,
            key.border,
            key.under};
}

std::vector<ui::Color> colorsOf(const Colors& theme) {
    std::vector<ui::Color> colors;
    std::ranges::transform(theme, std::back_inserter(colors), hexStringToUIColor);
    return colors;
}

TEST(Theme, ColoursWhateverIsOnShowAndOutlastsTheKeyboardUntilItIsTakenBack) {
    Stage stage;
    const std::vector<ui::Color> builtIn = colorsOf(stage);
    std::vector<std::optional<KeyboardThemeModel>> posted;
    const auto observation = stage.platform.notificationCenter.addObserver(
        "theameChange", [&](const platform::Notification& notification) {
            const auto* const theme = std::any_cast<KeyboardThemeModel>(&notification.object);
            posted.push_back(theme ? std::optional(*theme) : std::nullopt);
        });
    auto& defaults = stage.platform.userDefaults;
    for (const Colors& theme : {DARK, LIGHT}) {
        stage.controller->themeChangeAccordingly(themeOf(theme));
        EXPECT_EQ(colorsOf(stage), colorsOf(theme));
        EXPECT_NE(stage.face("shift").colors().face, stage.face("e").colors().face);
        EXPECT_EQ(posted.back(), themeOf(theme));
        EXPECT_EQ(storedTheme(defaults), themeOf(theme));
        for (std::size_t at = 0; at < KEYS.size(); ++at)
            EXPECT_EQ(defaults.stringForKey(KEYS[at]), theme[at]);
        EXPECT_EQ(defaults.boolForKey("isThemeDarkType"), theme == DARK);
    }
    const auto next = VorpelKeyboardViewController::create(stage.platform.platform);
    EXPECT_EQ(next->view().backgroundColor(), colorsOf(LIGHT)[0]);
    EXPECT_EQ(next->bannerView()->backgroundColor(), colorsOf(LIGHT)[2]);

    stage.controller->themeChangeAccordingly(std::nullopt);
    EXPECT_EQ(colorsOf(stage), builtIn);
    EXPECT_EQ(next->bannerView()->backgroundColor(), builtIn[2]) << "every keyboard hears of it";
    EXPECT_EQ(posted.back(), std::nullopt);
    for (const char* const key : KEYS) EXPECT_FALSE(defaults.objectForKey(key)) << key;
    EXPECT_FALSE(defaults.objectForKey("isThemeDarkType"));
    EXPECT_EQ(defaults.objectForKey("iskeyboardTheme"), platform::UserDefaults::Value(false));
    stage.touch("e");
    EXPECT_EQ(stage.text(), "e") << "the keys are back";
}

TEST(Theme, ReachesTheOtherLanguageTheSettingsAndAKeyThatIsHeld) {
    Stage stage;
    stage.controller->changeKeyboardLanguage("ar");
    stage.layOut();
    const KeyColors builtIn = stage.face("ا").colors();
    stage.controller->changeKeyboardLanguage("en");
    stage.layOut();
    stage.down(1, "e");
    ASSERT_EQ(stage.popups(), 1U);
    stage.controller->themeChangeAccordingly(themeOf(DARK));
    const ui::Color key = hexStringToUIColor("#112233");
    testing::RecordingPainter painter;
    stage.controller->plane().popupLayer->subviews()[0]->draw(painter);
    EXPECT_TRUE(std::ranges::any_of(painter.drawn, [&](const auto& one) { return one.color == key; }));
    stage.controller->toggleSettings(false);
    stage.controller->themeChangeAccordingly(themeOf(LIGHT));
    EXPECT_EQ(stage.controller->settingsView()->backgroundColor(), hexStringToUIColor("#FFFFF0"));
    stage.controller->themeChangeAccordingly(themeOf(DARK));
    stage.controller->changeKeyboardLanguage("ar");
    stage.layOut();
    EXPECT_EQ(stage.face("ا").colors().face, key);

    // A language that was chosen in the settings, which are still on show, comes with the built-in look.
    stage.platform.userDefaults.setString(preferences::LANGUAGE, "en");
    stage.controller->themeChangeAccordingly(std::nullopt);
    EXPECT_FALSE(stage.controller->isArabicModeOn());
    EXPECT_EQ(stage.keys().superview(), &stage.controller->view());
    EXPECT_EQ(stage.controller->ArabicforwardingView()->superview(), nullptr);
    stage.controller->changeKeyboardLanguage("ar");
    stage.layOut();
    EXPECT_EQ(stage.face("ا").colors(), builtIn);
    EXPECT_EQ(stage.text(), "") << "what was held types nothing";
}

/// The colour as it comes out over an opaque ground.
ui::Color over(const ui::Color& ground, const ui::Color& top) {
    const auto mix = [&](double below, double above) { return below + (above - below) * top.alpha; };
    return ui::Color::rgb(mix(ground.red, top.red), mix(ground.green, top.green), mix(ground.blue, top.blue));
}

double seenContrast(const ui::Color& ground, const ui::Color& top) {
    return contrast(ground, over(ground, top));
}

TEST(Theme, TheCorrectionAndTheSettingsCanBeReadWhateverTheTheme) {
    for (const Colors& theme : {DARK, LIGHT, ODD}) {
        Stage stage;
        stage.controller->themeChangeAccordingly(themeOf(theme));
        VPSuggestionsBanner& banner = bannerOf(stage);
        banner.wordLabel_2.setTitle("word");
        banner.markCorrection(true);
        const ui::Color bar = hexStringToUIColor(theme[2]);
        const ui::Color mark = over(bar, banner.wordLabel_2.backgroundColor());
        EXPECT_GT(contrast(mark, banner.wordLabel_2.titleColorForState(ui::ControlState::Normal)), 4.5);
        EXPECT_GT(contrast(mark, bar), 1.5) << "the mark is to be seen";
        const auto settings =
            SettingsColors::of(stage.controller->globalColors(), {}, stage.platform.userDefaults);
        EXPECT_GT(seenContrast(settings.ground, settings.quietGroundText), 4.5);
        EXPECT_GT(contrast(settings.button, settings.ground), 4.5);
        EXPECT_GT(seenContrast(settings.card, settings.accent), 3);
    }
}

}  // namespace
}  // namespace vorpel
