// SPDX-License-Identifier: Apache-2.0
#include "compiler/word_text.h"

#include "text/char_utils.h"
#include "text/engine_constants.h"
#include "text/utf.h"

namespace vorpel::compiler {
namespace {

bool isControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c <= 0x9F);
}

bool isWhiteSpace(char32_t c) {
    return (c >= 0x09 && c <= 0x0D) || c == 0x20 || c == 0x85 || c == 0xA0 || c == 0x1680 ||
           (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F ||
           c == 0x3000;
}

std::string_view fault(std::string_view text, bool mayHoldSpaces) {
    if (text.empty()) return "is empty";
    const std::optional<std::u32string> codePoints = wordengine::utf8ToUtf32(text);
    if (!codePoints) return "is not UTF-8";
    for (const char32_t c : *codePoints) {
        if (mayHoldSpaces && c == U' ') continue;
        if (isWhiteSpace(c)) return "holds white space";
        if (isControl(c)) return "holds a control character";
    }
    const bool isTooLong = codePoints->size() > static_cast<size_t>(wordengine::WORD_LENGTH_LIMIT);
    return isTooLong ? "has more than 48 code points" : "";
}

}  // namespace

std::string_view faultOfWord(std::string_view word) {
    return fault(word, false);
}

std::string_view faultOfShortcutTarget(std::string_view target) {
    if (target.starts_with(' ') || target.ends_with(' ') || target.find("  ") != std::string_view::npos) {
        return "has a space that separates nothing";
    }
    return fault(target, true);
}

std::optional<std::string> withSmallFirstLetter(std::string_view word) {
    std::optional<std::u32string> codePoints = wordengine::utf8ToUtf32(word);
    if (!codePoints || codePoints->empty()) return std::nullopt;
    const int first = static_cast<int>(codePoints->front());
    const int small = wordengine::CharUtils::toLowerCase(first);
    if (small == first) return std::nullopt;
    codePoints->front() = static_cast<char32_t>(small);
    return wordengine::utf32ToUtf8(*codePoints);
}

}  // namespace vorpel::compiler
