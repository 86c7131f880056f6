// SPDX-License-Identifier: Apache-2.0
#include "platform/characters.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>

namespace vorpel::platform {
namespace {

void check(UErrorCode status, const char* what) {
    if (U_FAILURE(status)) throw std::runtime_error(std::string(what) + ": " + u_errorName(status));
}

struct CloseIterator {
    void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
};

/// The thread's iterator over characters: making one takes a hundred times as long as using it.
UBreakIterator* characterIterator() {
    static thread_local std::unique_ptr<UBreakIterator, CloseIterator> iterator;
    if (!iterator) {
        UErrorCode status = U_ZERO_ERROR;
        iterator.reset(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status));
        check(status, "ICU's rules for characters cannot be read");
    }
    return iterator.get();
}

/// The thread's iterator set to a text, in whose bytes it counts. One at a time in each thread.
class Boundaries {
public:
    explicit Boundaries(std::string_view text) : iterator_(characterIterator()) {
        UErrorCode status = U_ZERO_ERROR;
        utext_openUTF8(&text_, text.data(), static_cast<int64_t>(text.size()), &status);
        ubrk_setUText(iterator_, &text_, &status);
        check(status, "ICU cannot split a text");
    }
    ~Boundaries() { utext_close(&text_); }
    Boundaries(const Boundaries&) = delete;
    Boundaries& operator=(const Boundaries&) = delete;

    [[nodiscard]] UBreakIterator* get() const { return iterator_; }

private:
    UBreakIterator* iterator_;
    UText text_ = UTEXT_INITIALIZER;
};

bool isAsciiByte(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// Between two ASCII bytes: only CR LF stay together.
bool isAsciiBoundary(char before, char after) {
    return before != '\r' || after != '\n';
}

template <typename Visit>
void visitAsciiCharacters(std::string_view text, Visit visit) {
    std::size_t start = 0;
    for (std::size_t end = 1; end <= text.size(); ++end) {
        if (end < text.size() && !isAsciiBoundary(text[end - 1], text[end])) continue;
        visit(text.substr(start, end - start));
        start = end;
    }
}

template <typename Visit>
void visitCharacters(std::string_view text, Visit visit) {
    if (isAscii(text)) {
        visitAsciiCharacters(text, visit);
        return;
    }
    const Boundaries boundaries(text);
    std::size_t start = 0;
    for (int32_t end = ubrk_next(boundaries.get()); end != UBRK_DONE; end = ubrk_next(boundaries.get())) {
        visit(text.substr(start, static_cast<std::size_t>(end) - start));
        start = static_cast<std::size_t>(end);
    }
}

std::size_t lastCharacterSize(std::string_view text) {
    const std::size_t size = text.size();
    if (size < 2) return size;
    // What stands further back cannot join two ASCII characters.
    if (isAsciiByte(text[size - 1]) && isAsciiByte(text[size - 2])) {
        return isAsciiBoundary(text[size - 2], text[size - 1]) ? 1 : 2;
    }
    const Boundaries boundaries(text);
    ubrk_last(boundaries.get());
    const int32_t start = ubrk_previous(boundaries.get());
    return start == UBRK_DONE ? size : size - static_cast<std::size_t>(start);
}

std::string shifted(std::string_view text, char first, char last) {
    std::string result(text);
    for (char& letter : result) {
        if (letter >= first && letter <= last) letter = static_cast<char>(letter ^ 0x20);
    }
    return result;
}

using CaseMapping = void (*)(const char* locale, uint32_t options, icu::StringPiece text, icu::ByteSink& sink,
                             icu::Edits* edits, UErrorCode& status);

std::string mapped(std::string_view text, CaseMapping map) {
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    map("", 0, icu::StringPiece(text.data(), static_cast<int32_t>(text.size())), sink, nullptr, status);
    check(status, "ICU cannot change the case of a text");
    return result;
}

}  // namespace

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, isAsciiByte);
}

bool isWellFormedUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        UChar32 codePoint = 0;
        U8_NEXT(text, at, text.size(), codePoint);
        if (codePoint < 0) return false;
    }
    return true;
}

std::string toUtf8(char32_t codePoint) {
    constexpr UChar32 REPLACEMENT = 0xFFFD;
    const auto wanted = static_cast<UChar32>(codePoint);
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    UBool isError = U_IS_UNICODE_CHAR(wanted) ? 0 : 1;
    const UChar32 written = isError ? REPLACEMENT : wanted;
    U8_APPEND(bytes, length, bytes.size(), written, isError);
    return {bytes.data(), length};
}

bool isEmoji(std::string_view text) {
    // Digits and a few signs are emoji only with a mark behind them.
    constexpr UChar32 EMOJI_MARK = 0xFE0F;
    int32_t at = 0;
    const auto size = static_cast<int32_t>(text.size());
    if (size == 0) return false;
    UChar32 first = 0;
    U8_NEXT(text.data(), at, size, first);
    if (first < 0) return false;
    if (u_hasBinaryProperty(first, UCHAR_EMOJI_PRESENTATION)) return true;
    UChar32 second = 0;
    if (at < size) U8_NEXT(text.data(), at, size, second);
    return second == EMOJI_MARK && u_hasBinaryProperty(first, UCHAR_EMOJI);
}

std::string uppercased(std::string_view text) {
    return isAscii(text) ? shifted(text, 'a', 'z') : mapped(text, icu::CaseMap::utf8ToUpper);
}

std::string lowercased(std::string_view text) {
    return isAscii(text) ? shifted(text, 'A', 'Z') : mapped(text, icu::CaseMap::utf8ToLower);
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    visitCharacters(text, [&count](std::string_view) { ++count; });
    return count;
}

std::vector<std::string> characters(std::string_view text) {
    std::vector<std::string> pieces;
    visitCharacters(text, [&pieces](std::string_view piece) { pieces.emplace_back(piece); });
    return pieces;
}

std::string lastCharacter(std::string_view text) {
    return std::string(text.substr(text.size() - lastCharacterSize(text)));
}

std::string withoutLastCharacter(std::string_view text) {
    return std::string(text.substr(0, text.size() - lastCharacterSize(text)));
}

std::size_t characterBoundaryFrom(std::string_view text, std::size_t offset) {
    if (offset == 0 || offset >= text.size()) return std::min(offset, text.size());
    if (isAsciiByte(text[offset - 1]) && isAsciiByte(text[offset])) {
        return isAsciiBoundary(text[offset - 1], text[offset]) ? offset : offset + 1;
    }
    const Boundaries boundaries(text);
    const int32_t next = ubrk_following(boundaries.get(), static_cast<int32_t>(offset) - 1);
    return next == UBRK_DONE ? text.size() : static_cast<std::size_t>(next);
}

}  // namespace vorpel::platform
