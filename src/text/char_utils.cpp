// SPDX-License-Identifier: Apache-2.0
#include "text/char_utils.h"

#include "text/utf8_encoding.h"

#include <algorithm>

namespace wordengine {

uint16_t CharUtils::latin_tolower(uint16_t codePoint) {
    const int page = codePoint >> 8;
    const LatinCapitalSmallPair* const end = SORTED_CHAR_MAP + SORTED_CHAR_MAP_PAGES[page + 1];
    const LatinCapitalSmallPair* const pair = std::lower_bound(
        SORTED_CHAR_MAP + SORTED_CHAR_MAP_PAGES[page], end, codePoint,
        [](const LatinCapitalSmallPair& entry, uint16_t capital) { return entry.capital < capital; });
    return pair != end && pair->capital == codePoint ? pair->small : codePoint;
}

int CharUtils::codePointsToUtf8(const int* codePoints, int codePointCount, char* out, int outSize) {
    if (outSize < 1) return 0;
    int length = 0;
    for (int i = 0; i < codePointCount && codePoints[i] != 0; ++i) {
        char bytes[MAX_UTF8_BYTES];
        const int byteCount = encodeUtf8(codePoints[i], bytes);
        if (byteCount > outSize - 1 - length) break;
        std::copy_n(bytes, byteCount, out + length);
        length += byteCount;
    }
    out[length] = '\0';
    return length;
}

}  // namespace wordengine
