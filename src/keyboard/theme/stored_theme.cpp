// SPDX-License-Identifier: Apache-2.0
#include "keyboard/theme/stored_theme.h"

#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/theme_color.h"

#include <utility>

namespace vorpel {

namespace {

constexpr std::pair<const char*, std::string KeyboardThemeModel::*> COLORS[] = {
    {preferences::KEYBOARD_BACKGROUND_COLOR, &KeyboardThemeModel::keyboardBackgroundColor},
    {preferences::KEY_COLOR, &KeyboardThemeModel::keyColor},
    {preferences::SUGGESTION_BAR_COLOR, &KeyboardThemeModel::suggestionBarColor},
    {preferences::SUGGESTION_DIVIDER_COLOR, &KeyboardThemeModel::suggestionDividerColor},
    {preferences::SUGGESTION_TEXT_COLOR, &KeyboardThemeModel::suggestionTextColor},
    {preferences::KEY_TEXT_COLOR, &KeyboardThemeModel::keyTextcolor},
    {preferences::KEY_BORDER_COLOR, &KeyboardThemeModel::keyBorderColor},
    {preferences::KEY_UNDER_LINE_COLOR, &KeyboardThemeModel::keyUnderLinecolor}};

}  // namespace

void storeTheme(platform::UserDefaults& defaults, const KeyboardThemeModel& theme) {
    for (const auto& [key, color] : COLORS) defaults.setString(key, theme.*color);
    defaults.setBool(preferences::IS_THEME_DARK_TYPE, theme.isThemeDarkType);
}

void clearTheme(platform::UserDefaults& defaults) {
    for (const auto& [key, color] : COLORS) defaults.removeObject(key);
    defaults.removeObject(preferences::IS_THEME_DARK_TYPE);
}

std::optional<KeyboardThemeModel> storedTheme(const platform::UserDefaults& defaults) {
    if (!isThemed(defaults)) return std::nullopt;
    KeyboardThemeModel theme("", "", "", "", "", "", "", "",
                             defaults.boolForKey(preferences::IS_THEME_DARK_TYPE));
    for (const auto& [key, color] : COLORS) {
        auto value = defaults.stringForKey(key);
        if (!value) return std::nullopt;
        theme.*color = std::move(*value);
    }
    return theme;
}

}  // namespace vorpel
