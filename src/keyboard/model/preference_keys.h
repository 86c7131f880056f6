// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::preferences {

// What is stored under these keys outlasts versions of the program: they keep their spelling.

constexpr const char* kAutoCapitalization = "kAutoCapitalization";
constexpr const char* kPeriodShortcut = "kPeriodShortcut";
constexpr const char* kKeyboardClicks = "kKeyboardClicks";
constexpr const char* kSmallLowercase = "kSmallLowercase";
constexpr const char* kWordSuggestions = "kWordSuggestions";
constexpr const char* kAutoCorrection = "kAutoCorrection";
constexpr const char* kIsNumberType = "kIsNumberType";
constexpr const char* LANGUAGE = "Language";
constexpr const char* NEED_TO_RELOAD_LANGUAGE = "needtoReloadLanguage";
constexpr const char* FAKE_TEXT_FIELD_ENABLED = "fakeTextFieldEnabled";
constexpr const char* IS_KEYBOARD_THEME = "iskeyboardTheme";
constexpr const char* KEYBOARD_BACKGROUND_COLOR = "keyboardBackgroundColor";
constexpr const char* KEY_COLOR = "keyColor";
constexpr const char* KEY_TEXT_COLOR = "keyTextcolor";
constexpr const char* KEY_BORDER_COLOR = "keyBorderColor";
constexpr const char* KEY_UNDER_LINE_COLOR = "keyUnderLinecolor";
constexpr const char* SUGGESTION_BAR_COLOR = "suggestionBarColor";
constexpr const char* SUGGESTION_DIVIDER_COLOR = "suggestionDividerColor";
constexpr const char* SUGGESTION_TEXT_COLOR = "suggestionTextColor";
constexpr const char* IS_THEME_DARK_TYPE = "isThemeDarkType";
constexpr const char* STRING_TO_SEND = "stringToSend";
constexpr const char* WORD_SUGGESTION_COUNT = "wordSuggestionCount";
constexpr const char* RECENT = "recent";

/// The texts of the language rows in the settings.
constexpr const char* kArabic = "Arabic";
constexpr const char* kEnglish = "English";

/// The values of LANGUAGE.
constexpr const char* ARABIC = "ar";
constexpr const char* ENGLISH = "en";

}  // namespace vorpel::preferences
