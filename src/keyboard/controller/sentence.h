// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorpel {

// What the text before the cursor ends in. A character is an extended grapheme cluster.

/// ".", "!" and "?": what ends a sentence. Commas and colons do not.
[[nodiscard]] bool characterIsPunctuation(std::string_view character);
[[nodiscard]] bool characterIsNewline(std::string_view character);
[[nodiscard]] bool characterIsWhitespace(std::string_view character);

/// True for no text, too.
[[nodiscard]] bool stringIsWhitespace(const std::optional<std::string>& string);

/// The last one first; fewer when the text is shorter.
[[nodiscard]] std::vector<std::string> lastCharacters(std::string_view text, std::size_t most);

/// Whether the next letter begins a sentence, or a word.
[[nodiscard]] bool beginsSentence(const std::optional<std::string>& before);
[[nodiscard]] bool beginsWord(const std::optional<std::string>& before);

/// Two blanks at the end stand behind something that a full stop may end.
[[nodiscard]] bool mayBecomePeriod(const std::optional<std::string>& before);

}  // namespace vorpel
