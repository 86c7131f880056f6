// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Text as people count it. Everything here takes UTF-8 and may be called from any thread. A character is an
/// extended grapheme cluster, so a flag, a letter with its marks and CR LF are one each. Bytes that are not
/// UTF-8 stay as they are and are characters like others: pieces put together again give the text.
namespace vorpel::platform {

[[nodiscard]] bool isAscii(std::string_view text);
[[nodiscard]] bool isWellFormedUtf8(std::string_view text);

/// One code point; the replacement character for what is none.
[[nodiscard]] std::string toUtf8(char32_t codePoint);

/// Begins with a character that is shown as a picture.
[[nodiscard]] bool isEmoji(std::string_view text);

/// The full mapping of Unicode, the same in every locale; the length may change ("ß" becomes "SS").
[[nodiscard]] std::string uppercased(std::string_view text);
[[nodiscard]] std::string lowercased(std::string_view text);

[[nodiscard]] std::size_t characterCount(std::string_view text);
[[nodiscard]] std::vector<std::string> characters(std::string_view text);

/// Empty when the text is.
[[nodiscard]] std::string lastCharacter(std::string_view text);
[[nodiscard]] std::string withoutLastCharacter(std::string_view text);

/// The first place, in bytes from the start, that is not before `offset` and where one character ends and
/// another begins; the end of the text when there is none.
[[nodiscard]] std::size_t characterBoundaryFrom(std::string_view text, std::size_t offset);

}  // namespace vorpel::platform
