// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/byte_array_view.h"
#include "storage/byte_reader.h"

#include <cstdint>

namespace wordengine {

/// The encoding of code point strings in dictionary files: one byte for a code point from 0x20 to
/// 0xFF, three big-endian bytes for any other, and the byte 0x1F at the end. Stateless.
class ByteArrayUtils {
public:
    static constexpr int MINIMUM_ONE_BYTE_CHARACTER_VALUE = ByteReader::MINIMUM_ONE_BYTE_CHARACTER_VALUE;
    static constexpr int MAXIMUM_ONE_BYTE_CHARACTER_VALUE = ByteReader::MAXIMUM_ONE_BYTE_CHARACTER_VALUE;
    static constexpr int CHARACTER_ARRAY_TERMINATOR = ByteReader::CHARACTER_ARRAY_TERMINATOR;

    ByteArrayUtils() = delete;

    /// Whether a code point comes back as it was written. 0x1F and everything outside 0 to 0x1EFFFF
    /// do not: what is to be stored is tested with this first.
    [[nodiscard]] static constexpr bool canBeStored(int codePoint) {
        return codePoint >= 0 && codePoint < (CHARACTER_ARRAY_TERMINATOR << 16) &&
               codePoint != CHARACTER_ARRAY_TERMINATOR;
    }

    /// ByteReader::readString from `*pos` on, for callers that keep positions: returns the count of
    /// code points and moves `*pos` to where the reading stopped. `outSucceeded`, if given, becomes
    /// false when the string ran off the end of the bytes or `*pos` lay outside them.
    static int readStringAndAdvancePosition(ReadOnlyByteArrayView bytes, int maxLength, int* outBuffer,
                                            int* pos, bool* outSucceeded = nullptr);

    /// As readStringAndAdvancePosition, and stores nothing.
    static int advancePositionToBehindString(ReadOnlyByteArrayView bytes, int maxLength, int* pos,
                                             bool* outSucceeded = nullptr);

    /// The bytes that writeCodePointsAndAdvancePosition would write. Both stop at the count, or before
    /// the first code point that is NO_CODE_POINT or 0x1F.
    [[nodiscard]] static int calculateRequiredByteCountToStoreCodePoints(const int* codePoints,
                                                                         int codePointCount,
                                                                         bool writesTerminator);

    /// Writes at `buffer + *pos` and advances `*pos`. The caller has made sure that the required count
    /// of bytes is there.
    static void writeCodePointsAndAdvancePosition(uint8_t* buffer, const int* codePoints, int codePointCount,
                                                  bool writesTerminator, int* pos);

    /// Writes the low `size` bytes of `data`, 1 to 4, big-endian, at `buffer + *pos`.
    static void writeUintAndAdvancePosition(uint8_t* buffer, uint32_t data, int size, int* pos);
};

}  // namespace wordengine
