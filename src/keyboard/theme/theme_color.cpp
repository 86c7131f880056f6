// SPDX-License-Identifier: Apache-2.0
#include "keyboard/theme/theme_color.h"

#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/contrast.h"
#include "keyboard/theme/hex_color.h"

namespace vorpel {

bool isThemed(const platform::UserDefaults& defaults) {
    return defaults.boolForKey(preferences::IS_KEYBOARD_THEME);
}

ui::Color themeColor(const platform::UserDefaults& defaults, const char* key, const ui::Color& builtIn) {
    if (!isThemed(defaults)) return builtIn;
    const auto hex = defaults.stringForKey(key);
    return hex ? hexStringToUIColor(*hex) : builtIn;
}

ui::Color themeTextOn(const ui::Color& ground, const ui::Color& keyText,
                      const platform::UserDefaults& defaults) {
    const ui::Color barText = themeColor(defaults, preferences::SUGGESTION_TEXT_COLOR, keyText);
    return contrast(barText, ground) > contrast(keyText, ground) ? barText : keyText;
}

}  // namespace vorpel
