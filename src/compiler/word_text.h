// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorpel::compiler {

/// Why a text cannot be a word of a list, or an empty view if it can: 1 to 48 code points, no white
/// space, no control character.
[[nodiscard]] std::string_view faultOfWord(std::string_view word);

/// The same for a shortcut's target, which may hold single spaces between words.
[[nodiscard]] std::string_view faultOfShortcutTarget(std::string_view target);

/// The word with a small first letter, if it begins with a capital one; else nothing.
[[nodiscard]] std::optional<std::string> withSmallFirstLetter(std::string_view word);

}  // namespace vorpel::compiler
