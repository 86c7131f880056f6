// SPDX-License-Identifier: Apache-2.0
#include "text/utf.h"

#include "text/utf8_encoding.h"

#include <cstdint>

namespace wordengine {

namespace {

constexpr int UNREADABLE = -1;

bool isCharacter(int codePoint) {
    return codePoint >= 0 && codePoint <= 0x10FFFF && (codePoint < 0xD800 || codePoint > 0xDFFF);
}

/// What a first byte says: how many bytes follow, and the bounds of the first of those. The bounds keep
/// out over-long forms, surrogates and what lies above U+10FFFF.
struct Sequence {
    int continuationCount;
    uint8_t low = 0x80;
    uint8_t high = 0xBF;
};

Sequence sequenceOf(uint8_t first) {
    if (first < 0x80) return {0};
    if (first < 0xC2) return {UNREADABLE};
    if (first < 0xE0) return {1};
    if (first == 0xE0) return {2, 0xA0, 0xBF};
    if (first == 0xED) return {2, 0x80, 0x9F};
    if (first < 0xF0) return {2};
    if (first == 0xF0) return {3, 0x90, 0xBF};
    if (first < 0xF4) return {3};
    if (first == 0xF4) return {3, 0x80, 0x8F};
    return {UNREADABLE};
}

/// The character at `*index`, which moves behind it; UNREADABLE moves it to the first byte that could
/// not continue, and by one byte at least.
int decodeOne(std::string_view text, size_t* index) {
    const auto first = static_cast<uint8_t>(text[(*index)++]);
    Sequence sequence = sequenceOf(first);
    if (sequence.continuationCount <= 0) return sequence.continuationCount == 0 ? first : UNREADABLE;
    int codePoint = first & (0x3F >> sequence.continuationCount);
    for (int i = 0; i < sequence.continuationCount; ++i) {
        if (*index >= text.size()) return UNREADABLE;
        const auto next = static_cast<uint8_t>(text[*index]);
        if (next < sequence.low || next > sequence.high) return UNREADABLE;
        codePoint = (codePoint << 6) | (next & 0x3F);
        sequence.low = 0x80;
        sequence.high = 0xBF;
        ++*index;
    }
    return codePoint;
}

/// Appends what the text holds; false as soon as something is unreadable, unless that is replaced.
template <class Container>
bool decode(std::string_view text, bool replacesUnreadable, Container* out) {
    out->reserve(text.size());
    for (size_t index = 0; index < text.size();) {
        int codePoint = decodeOne(text, &index);
        if (codePoint == UNREADABLE) {
            if (!replacesUnreadable) return false;
            codePoint = REPLACEMENT_CODE_POINT;
        }
        out->push_back(static_cast<typename Container::value_type>(codePoint));
    }
    return true;
}

template <class Container>
std::string encode(const Container& codePoints) {
    std::string text;
    text.reserve(codePoints.size());
    for (const auto element : codePoints) {
        const int codePoint = static_cast<int>(element);
        char bytes[MAX_UTF8_BYTES];
        const int byteCount = encodeUtf8(isCharacter(codePoint) ? codePoint : REPLACEMENT_CODE_POINT, bytes);
        text.append(bytes, static_cast<size_t>(byteCount));
    }
    return text;
}

}  // namespace

bool isValidUtf8(std::string_view text) {
    for (size_t index = 0; index < text.size();) {
        if (decodeOne(text, &index) == UNREADABLE) return false;
    }
    return true;
}

std::optional<std::vector<int>> utf8ToCodePoints(std::string_view text) {
    std::vector<int> codePoints;
    if (!decode(text, false, &codePoints)) return std::nullopt;
    return codePoints;
}

std::optional<std::u32string> utf8ToUtf32(std::string_view text) {
    std::u32string codePoints;
    if (!decode(text, false, &codePoints)) return std::nullopt;
    return codePoints;
}

std::vector<int> utf8ToCodePointsLenient(std::string_view text) {
    std::vector<int> codePoints;
    decode(text, true, &codePoints);
    return codePoints;
}

std::u32string utf8ToUtf32Lenient(std::string_view text) {
    std::u32string codePoints;
    decode(text, true, &codePoints);
    return codePoints;
}

std::string codePointsToUtf8(std::span<const int> codePoints) {
    return encode(codePoints);
}

std::string utf32ToUtf8(std::u32string_view text) {
    return encode(text);
}

}  // namespace wordengine
