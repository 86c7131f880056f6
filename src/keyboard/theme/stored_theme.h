// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/theme/keyboard_theme_model.h"
#include "platform/user_defaults.h"

#include <optional>

namespace vorpel {

/// Stores all nine values of the theme. Whether a theme is in force is stored apart.
void storeTheme(platform::UserDefaults& defaults, const KeyboardThemeModel& theme);

/// Takes the nine values away.
void clearTheme(platform::UserDefaults& defaults);

/// The theme in force; nothing where there is none, or where one of its colours is missing.
[[nodiscard]] std::optional<KeyboardThemeModel> storedTheme(const platform::UserDefaults& defaults);

}  // namespace vorpel
