// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/user_defaults.h"

#include <string>

namespace vorpel::cli {

/// Puts the theme of a JSON file into the preferences: one object whose members are colours as "#RRGGBB".
/// Throws std::runtime_error with the path and the reason when it cannot be read, or has another member.
void applyThemeFile(const std::string& path, platform::UserDefaults& defaults);

}  // namespace vorpel::cli
