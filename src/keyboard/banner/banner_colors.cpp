// SPDX-License-Identifier: Apache-2.0
#include "keyboard/banner/vp_suggestions_banner.h"
#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/contrast.h"
#include "keyboard/theme/theme_color.h"

namespace vorpel {

namespace {

constexpr double PRESSED_ALPHA = 0.4;
constexpr double BORDER_ALPHA = 0.7;
constexpr double THEME_BUTTON_ALPHA = 0.12;
constexpr double THEME_SELECTED_ALPHA = 0.3;

constexpr ui::Color DARK_MARK_TITLE = ui::Color::rgb(0.7294, 0.7019, 1.0);
constexpr ui::Color DARK_MARK = ui::Color::white(0.2);
constexpr ui::Color LIGHT_MARK = ui::Color::rgb(0.9216, 0.9294, 0.9373);

constexpr double DARK_THEME_MARK_ALPHA = 0.3;
constexpr ui::Color LIGHT_THEME_MARK = ui::Color::black(0.55);
constexpr double READABLE = 4.5;

/// For a white title, out of the colour of the other words, which in a light theme is dark as a rule.
ui::Color themedMark(const platform::UserDefaults& defaults) {
    const ui::Color words = themeColor(defaults, preferences::SUGGESTION_TEXT_COLOR, ui::Color::black());
    if (defaults.boolForKey(preferences::IS_THEME_DARK_TYPE)) return words.withAlpha(DARK_THEME_MARK_ALPHA);
    return contrast(words, ui::Color::white()) >= READABLE ? words : LIGHT_THEME_MARK;
}

}  // namespace

void VPSuggestionsBanner::markCorrection(bool pending) {
    correctionPending_ = pending && !wordLabel_2.titleForState(ui::ControlState::Normal).empty();
    applyColors();
}

void VPSuggestionsBanner::updateAppearance(bool dark) {
    ExtraView::updateAppearance(dark);
    applyColors();
}

void VPSuggestionsBanner::applyColors() {
    const platform::UserDefaults& defaults = parts_.userDefaults;
    const ui::Color builtInText = darkMode() ? ui::Color::white() : ui::Color::black();
    const ui::Color text = themeColor(defaults, preferences::SUGGESTION_TEXT_COLOR, builtInText);
    for (ui::Button* const label : wordLabels()) {
        label->setTitleColor(text);
        label->setTitleColor(text.withAlpha(PRESSED_ALPHA), ui::ControlState::Highlighted);
        label->setBackgroundColor(ui::Color::clear());
    }
    setBackgroundColor(themeColor(defaults, preferences::SUGGESTION_BAR_COLOR, ui::Color::clear()));
    const ui::Color builtInBorder =
        darkMode() ? ui::Color::white(0.2) : ui::Color::rgb(0.6, 0.62, 0.65, BORDER_ALPHA);
    const ui::Color border = themeColor(defaults, preferences::SUGGESTION_DIVIDER_COLOR, builtInBorder);
    border12.setBackgroundColor(border);
    border23.setBackgroundColor(border);
    for (ui::Button* const button : {&settingsButton, &keyboardButton}) button->setImageTint(text);
    buttonBackgroundColor = buttonBackgroundColor.withAlpha(darkMode() ? 0.2 : BORDER_ALPHA);
    settingsButton.setBackgroundColor(settingsButton.isSelected() ? selectedGround() : restingGround());
    keyboardButton.setBackgroundColor(restingGround());
    if (correctionPending_) applyMark();
}

ui::Color VPSuggestionsBanner::restingGround() const {
    return buttonGround(THEME_BUTTON_ALPHA, buttonBackgroundColor);
}

ui::Color VPSuggestionsBanner::selectedGround() const {
    return buttonGround(THEME_SELECTED_ALPHA, KSelectedColor);
}

/// In a theme a share of the colour of the sign, which suits any bar.
ui::Color VPSuggestionsBanner::buttonGround(double share, const ui::Color& builtIn) const {
    if (!isThemed(parts_.userDefaults)) return builtIn;
    return themeColor(parts_.userDefaults, preferences::SUGGESTION_TEXT_COLOR, builtIn).withAlpha(share);
}

void VPSuggestionsBanner::applyMark() {
    const platform::UserDefaults& defaults = parts_.userDefaults;
    if (isThemed(defaults)) {
        wordLabel_2.setTitleColor(ui::Color::white());
        wordLabel_2.setBackgroundColor(themedMark(defaults));
    } else if (darkMode()) {
        wordLabel_2.setTitleColor(DARK_MARK_TITLE);
        wordLabel_2.setBackgroundColor(DARK_MARK);
    } else {
        wordLabel_2.setBackgroundColor(LIGHT_MARK);
    }
}

}  // namespace vorpel
