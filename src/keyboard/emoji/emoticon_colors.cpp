// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/emoticon_colors.h"

#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/theme_color.h"

namespace vorpel {

namespace {

// The grounds are those of the keys, so that nothing but the page changes.
constexpr ui::Color darkTheme = ui::Color::black();
constexpr ui::Color lightTheme = ui::Color::rgb(0.8039, 0.8157, 0.8353);
constexpr ui::Color GREY = ui::Color::rgb(0.29, 0.3, 0.31);

// Shares of the text's colour, so that it suits any ground.
constexpr double HIGHLIGHT_ALPHA = 0.14;

ui::Color mixed(const ui::Color& ground, const ui::Color& other, double share) {
    const auto mix = [share](double one, double two) { return one + (two - one) * share; };
    return ui::Color::rgb(mix(ground.red, other.red), mix(ground.green, other.green),
                          mix(ground.blue, other.blue));
}

}  // namespace

EmoticonColors EmoticonColors::of(bool darkMode, const platform::UserDefaults& defaults) {
    EmoticonColors colors;
    colors.background =
        themeColor(defaults, preferences::KEYBOARD_BACKGROUND_COLOR, darkMode ? darkTheme : lightTheme);
    colors.text = darkMode ? ui::Color::white() : GREY;
    colors.buttonTitle = themeColor(defaults, preferences::KEY_TEXT_COLOR, colors.text);
    colors.buttonBackground = themeColor(defaults, preferences::KEY_COLOR, ui::Color::clear());
    if (isThemed(defaults)) colors.text = themeTextOn(colors.background, colors.buttonTitle, defaults);
    colors.highlight = colors.text.withAlpha(HIGHLIGHT_ALPHA);
    colors.indicator = colors.text;
    colors.heldButton = isThemed(defaults)
                            ? mixed(colors.buttonBackground, colors.buttonTitle, HIGHLIGHT_ALPHA)
                            : colors.highlight;
    return colors;
}

}  // namespace vorpel
