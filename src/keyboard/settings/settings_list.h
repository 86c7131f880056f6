// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/model/preference_keys.h"

#include <array>
#include <span>
#include <string_view>

namespace vorpel {

/// Rows of the settings screen under one title, each by its key.
struct SettingsSection {
    const char* title;
    std::span<const char* const> keys;
};

/// What a row says, by its key.
struct SettingsText {
    std::string_view key;
    const char* text;
};

inline constexpr std::array LANGUAGE_SETTINGS{preferences::kArabic, preferences::kEnglish};
inline constexpr std::array DICTIONARY_SETTINGS{preferences::kWordSuggestions, preferences::kAutoCorrection};
inline constexpr std::array GENERAL_SETTINGS{preferences::kAutoCapitalization, preferences::kKeyboardClicks,
                                             preferences::kSmallLowercase};

inline constexpr std::array settingsList{SettingsSection{"LANGUAGES", LANGUAGE_SETTINGS},
                                         SettingsSection{"DICTIONARY SETTINGS", DICTIONARY_SETTINGS},
                                         SettingsSection{"GENERAL SETTINGS", GENERAL_SETTINGS}};

inline constexpr std::array settingsNames{
    SettingsText{preferences::kArabic, "Arabic"},
    SettingsText{preferences::kEnglish, "English"},
    SettingsText{preferences::kWordSuggestions, "Word Suggestions"},
    SettingsText{preferences::kAutoCorrection, "Auto-Correction"},
    SettingsText{preferences::kAutoCapitalization, "Auto-Capitalization"},
    SettingsText{preferences::kKeyboardClicks, "Keyboard Clicks"},
    SettingsText{preferences::kSmallLowercase, "Allow Lowercase Key Caps"},
};

inline constexpr std::array settingsNotes{
    SettingsText{preferences::kKeyboardClicks,
                 "Please note that keyboard clicks will work only if “Allow Full Access” is enabled in the "
                 "keyboard settings. Unfortunately, this is a limitation of the operating system."},
    SettingsText{preferences::kSmallLowercase,
                 "Changes your key caps to lowercase when Shift is off, making it easier to tell what mode "
                 "you are in."},
};

}  // namespace vorpel
