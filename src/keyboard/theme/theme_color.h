// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/user_defaults.h"
#include "ui/color.h"

namespace vorpel {

/// Whether a theme has been set.
[[nodiscard]] bool isThemed(const platform::UserDefaults& defaults);

/// The theme's colour under the key; the built-in one without a theme, or where it does not say.
[[nodiscard]] ui::Color themeColor(const platform::UserDefaults& defaults, const char* key,
                                   const ui::Color& builtIn);

/// For text on nothing but the ground of the theme in force: none says what can be read there, so it is the
/// more readable of its two texts, `keyText` and that of the bar.
[[nodiscard]] ui::Color themeTextOn(const ui::Color& ground, const ui::Color& keyText,
                                    const platform::UserDefaults& defaults);

}  // namespace vorpel
