// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/engine_constants.h"
#include "text/folding_tables.h"

#include <cstdint>

namespace wordengine {

/// Folding of code points: small letters and base letters. Stateless; the tables are constant. All
/// forms take any int and give back what they do not know, NO_CODE_POINT included.
class CharUtils {
public:
    static constexpr int MIN_UNICODE_CODE_POINT = 0;
    static constexpr int MAX_UNICODE_CODE_POINT = 0x10FFFF;

    /// The letter without its marks, by code point; see folding_tables.h.
    static constexpr const uint16_t (&BASE_CHARS)[BASE_CHARS_SIZE] = FOLDING_BASE_CHARS;

    CharUtils() = delete;

    /// The small letter of a capital from U+00C0 on; anything else as it is.
    [[nodiscard]] static uint16_t latin_tolower(uint16_t codePoint);

    /// The small letter: ASCII first, since nearly every letter of a search is.
    [[nodiscard]] static int toLowerCase(int codePoint) {
        if (codePoint < 0x80) {
            return codePoint >= 'A' && codePoint <= 'Z' ? codePoint + ('a' - 'A') : codePoint;
        }
        // The table knows the basic plane only; a narrowed code point from above it would hit by chance.
        return codePoint > 0xFFFF ? codePoint : latin_tolower(static_cast<uint16_t>(codePoint));
    }

    /// The letter that accents and compatibility forms are put on: "e" for "é", "2" for "²".
    [[nodiscard]] static int toBaseCodePoint(int codePoint) {
        return static_cast<uint32_t>(codePoint) < BASE_CHARS_SIZE ? BASE_CHARS[codePoint] : codePoint;
    }

    /// The small letter of the base letter: what two letters are compared by that may differ in case
    /// and accent.
    [[nodiscard]] static int toBaseLowerCase(int codePoint) {
        return toLowerCase(toBaseCodePoint(codePoint));
    }

    [[nodiscard]] static bool isInUnicodeSpace(int codePoint) {
        return codePoint >= MIN_UNICODE_CODE_POINT && codePoint <= MAX_UNICODE_CODE_POINT;
    }

    /// The signs that people leave out on purpose: apostrophe and hyphen.
    [[nodiscard]] static bool isIntentionalOmissionCodePoint(int codePoint) {
        return codePoint == CODE_POINT_APOSTROPHE || codePoint == CODE_POINT_HYPHEN;
    }

    /// Writes code points as UTF-8 into `out` of `outSize` bytes, the terminating NUL included, and
    /// returns the count of bytes before it. Stops at the first 0 code point, and before the first
    /// character that no longer fits whole. A code point that is no character (a surrogate, one above
    /// U+10FFFF, a negative one) makes bytes that are not valid UTF-8, so that readers can drop the
    /// word. With an `outSize` below 1 nothing is written.
    static int codePointsToUtf8(const int* codePoints, int codePointCount, char* out, int outSize);
};

}  // namespace wordengine
