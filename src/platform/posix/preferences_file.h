// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/user_defaults.h"

#include <map>
#include <optional>
#include <string>

namespace vorpel::platform {

using Preferences = std::map<std::string, UserDefaults::Value>;

/// A preferences file as it was found.
struct FoundPreferences {
    Preferences values;                ///< all that could be read
    std::optional<std::string> fault;  ///< one line: the file, what is wrong, and what became of it
    bool setAside = false;             ///< the file now bears another name
    bool untouchable = false;          ///< what lies there can be neither read nor set aside
};

/// Reads a preferences file: one JSON object whose members are truths, whole numbers, numbers, texts and
/// lists of texts; beyond JSON, a number may be NaN, Infinity or -Infinity. A missing file is an empty one. A
/// file with anything else in it is set aside as PATH.damaged-1, or -2 and so on where those exist.
[[nodiscard]] FoundPreferences readPreferences(const std::string& path);

/// Puts the values in place of the file, as a whole, and makes its folder.
///
/// @return nothing, or one line with the file and the reason; then the old file stands
[[nodiscard]] std::optional<std::string> writePreferences(const std::string& path, const Preferences& values);

}  // namespace vorpel::platform
