// SPDX-License-Identifier: Apache-2.0
#include "keyboard/settings/settings_colors.h"

#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/theme_color.h"

namespace vorpel {

namespace {

constexpr ui::Color LIGHT_GROUND = ui::Color::rgb(0.925, 0.933, 0.945);
constexpr ui::Color DARK_GROUND = ui::Color::black();

// Shares of the text's colour, so that they suit any card.
constexpr double QUIET_ALPHA = 0.6;
constexpr double THEME_QUIET_ALPHA = 0.75;  // no theme's text stands out as black or white does
constexpr double LINE_ALPHA = 0.15;
constexpr double OFF_TRACK_ALPHA = 0.2;
constexpr double THEME_ACCENT_ALPHA = 0.65;  // a white knob is to be seen on it, and it on the card

void applyTheme(SettingsColors& colors, const platform::UserDefaults& defaults) {
    colors.ground = themeColor(defaults, preferences::KEYBOARD_BACKGROUND_COLOR, colors.ground);
    colors.card = themeColor(defaults, preferences::KEY_COLOR, colors.card);
    colors.text = themeColor(defaults, preferences::KEY_TEXT_COLOR, colors.text);
    colors.accent = colors.text.withAlpha(THEME_ACCENT_ALPHA);
    colors.groundText = colors.button = themeTextOn(colors.ground, colors.text, defaults);
}

}  // namespace

SettingsColors SettingsColors::of(const GlobalColors& global, SettingsLook look,
                                  const platform::UserDefaults& defaults) {
    SettingsColors colors;
    colors.ground = look.darkMode ? DARK_GROUND : LIGHT_GROUND;
    // In the dark the faces of letters are too bright for so large an area.
    colors.card = look.darkMode ? global.specialKey(true, look.solidColorMode)
                                : global.regularKey(false, look.solidColorMode);
    colors.text = look.darkMode ? global.darkModeTextColor() : global.lightModeTextColor();
    colors.groundText = colors.text;
    colors.accent = colors.button = global.returnKeySolidBlueColor();
    if (isThemed(defaults)) applyTheme(colors, defaults);
    const double quiet = isThemed(defaults) ? THEME_QUIET_ALPHA : QUIET_ALPHA;
    colors.quietText = colors.text.withAlpha(colors.text.alpha * quiet);
    colors.quietGroundText = colors.groundText.withAlpha(colors.groundText.alpha * quiet);
    colors.line = colors.text.withAlpha(colors.text.alpha * LINE_ALPHA);
    colors.offTrack = colors.text.withAlpha(colors.text.alpha * OFF_TRACK_ALPHA);
    return colors;
}

}  // namespace vorpel
