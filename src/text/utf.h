// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wordengine {

// UTF-8 at the edges, code points inside. The strict forms refuse text that is not well-formed:
// truncated or stray bytes, over-long forms, surrogates, anything above U+10FFFF. The lenient ones put
// U+FFFD for each part of it that cannot be read: the bytes up to the first that cannot continue a
// character, which is then looked at afresh. All of them take NUL for a character like any other.

inline constexpr int REPLACEMENT_CODE_POINT = 0xFFFD;

[[nodiscard]] bool isValidUtf8(std::string_view text);

/// Strict: nothing if the text is not well-formed.
[[nodiscard]] std::optional<std::vector<int>> utf8ToCodePoints(std::string_view text);
[[nodiscard]] std::optional<std::u32string> utf8ToUtf32(std::string_view text);

/// Lenient: always an answer.
[[nodiscard]] std::vector<int> utf8ToCodePointsLenient(std::string_view text);
[[nodiscard]] std::u32string utf8ToUtf32Lenient(std::string_view text);

/// U+FFFD stands for a code point that is no character (a surrogate, or outside 0 to U+10FFFF).
[[nodiscard]] std::string codePointsToUtf8(std::span<const int> codePoints);
[[nodiscard]] std::string utf32ToUtf8(std::u32string_view text);

}  // namespace wordengine
