// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/theme/keyboard_theme_model.h"
#include "platform/posix/fault_report.h"

#include <string>
#include <vector>

namespace vorpel::host {

/// The theme of a file as docs/formats/theme.md tells. Throws std::runtime_error, which names the file and
/// what is wrong with it.
[[nodiscard]] KeyboardThemeModel readTheme(const std::string& path);

struct NamedTheme {
    std::string name;  ///< for people
    KeyboardThemeModel theme;
};

/// Those of the first data folder that has any, by name. One that cannot be read is reported and left out.
[[nodiscard]] std::vector<NamedTheme> findThemes(const platform::FaultReport& report);

}  // namespace vorpel::host
