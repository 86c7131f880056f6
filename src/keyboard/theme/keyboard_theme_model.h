// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>

namespace vorpel {

/// The colours that a host gives the keyboard, each as "#RRGGBB". There is no theme without all of them.
class KeyboardThemeModel {
public:
    KeyboardThemeModel(std::string background, std::string key, std::string bar, std::string divider,
                       std::string barText, std::string keyText, std::string border, std::string underLine,
                       bool isDark)
        : keyboardBackgroundColor(std::move(background)),
          keyColor(std::move(key)),
          suggestionBarColor(std::move(bar)),
          suggestionDividerColor(std::move(divider)),
          suggestionTextColor(std::move(barText)),
          keyTextcolor(std::move(keyText)),
          keyBorderColor(std::move(border)),
          keyUnderLinecolor(std::move(underLine)),
          isThemeDarkType(isDark) {}

    std::string keyboardBackgroundColor;  ///< behind the keys
    std::string keyColor;                 ///< of key faces; special keys let the background through
    std::string suggestionBarColor;       ///< of the bar above the keys
    std::string suggestionDividerColor;   ///< of the lines between its words
    std::string suggestionTextColor;      ///< of its words
    std::string keyTextcolor;             ///< of key caps
    std::string keyBorderColor;           ///< around each key
    std::string keyUnderLinecolor;        ///< of the line under each key
    bool isThemeDarkType;                 ///< light on dark

    friend bool operator==(const KeyboardThemeModel&, const KeyboardThemeModel&) = default;
};

}  // namespace vorpel
