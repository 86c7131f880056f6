// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

inline constexpr int MAX_UTF8_BYTES = 4;

/// Writes one code point as UTF-8 and returns the count of bytes, 1 to 4. It does not judge: surrogates
/// and what lies above U+10FFFF get the bytes of the pattern, and what the pattern cannot hold gets the
/// single byte 0xFF; neither is valid UTF-8.
inline int encodeUtf8(int codePoint, char* out) {
    const auto continuation = [codePoint](int shift) {
        return static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
    };
    if (codePoint < 0 || codePoint > 0x1FFFFF) {
        out[0] = static_cast<char>(0xFF);
        return 1;
    }
    if (codePoint < 0x80) {
        out[0] = static_cast<char>(codePoint);
        return 1;
    }
    if (codePoint < 0x800) {
        out[0] = static_cast<char>(0xC0 | (codePoint >> 6));
        out[1] = continuation(0);
        return 2;
    }
    if (codePoint < 0x10000) {
        out[0] = static_cast<char>(0xE0 | (codePoint >> 12));
        out[1] = continuation(6);
        out[2] = continuation(0);
        return 3;
    }
    out[0] = static_cast<char>(0xF0 | (codePoint >> 18));
    out[1] = continuation(12);
    out[2] = continuation(6);
    out[3] = continuation(0);
    return 4;
}

}  // namespace wordengine
