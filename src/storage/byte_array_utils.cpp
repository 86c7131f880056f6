// SPDX-License-Identifier: Apache-2.0
#include "storage/byte_array_utils.h"

namespace wordengine {

namespace {

int byteCountOf(int codePoint) {
    const bool isOneByte = codePoint >= ByteArrayUtils::MINIMUM_ONE_BYTE_CHARACTER_VALUE &&
                           codePoint <= ByteArrayUtils::MAXIMUM_ONE_BYTE_CHARACTER_VALUE;
    return isOneByte ? 1 : 3;
}

/// How many of the code points are written: a value that reads as the end of a string would cut it.
int storedCodePointCount(const int* codePoints, int codePointCount) {
    int count = 0;
    while (count < codePointCount && codePoints[count] != NO_CODE_POINT &&
           codePoints[count] != ByteArrayUtils::CHARACTER_ARRAY_TERMINATOR) {
        ++count;
    }
    return count;
}

/// Hands the cursor and the verdict back to a caller that keeps positions.
void finish(const ByteReader& reader, int* pos, bool* outSucceeded) {
    // A reader made with a position outside stands at 0, where the caller never was.
    const bool startedInside = *pos >= 0 && *pos <= reader.size();
    if (startedInside) *pos = reader.position();
    if (outSucceeded) *outSucceeded = reader.ok();
}

}  // namespace

int ByteArrayUtils::readStringAndAdvancePosition(ReadOnlyByteArrayView bytes, int maxLength, int* outBuffer,
                                                 int* pos, bool* outSucceeded) {
    ByteReader reader(bytes, *pos);
    const int count = reader.readString(maxLength, outBuffer);
    finish(reader, pos, outSucceeded);
    return count;
}

int ByteArrayUtils::advancePositionToBehindString(ReadOnlyByteArrayView bytes, int maxLength, int* pos,
                                                  bool* outSucceeded) {
    ByteReader reader(bytes, *pos);
    const int count = reader.skipString(maxLength);
    finish(reader, pos, outSucceeded);
    return count;
}

int ByteArrayUtils::calculateRequiredByteCountToStoreCodePoints(const int* codePoints, int codePointCount,
                                                                bool writesTerminator) {
    int byteCount = writesTerminator ? 1 : 0;
    const int storedCount = storedCodePointCount(codePoints, codePointCount);
    for (int i = 0; i < storedCount; ++i) {
        byteCount += byteCountOf(codePoints[i]);
    }
    return byteCount;
}

void ByteArrayUtils::writeCodePointsAndAdvancePosition(uint8_t* buffer, const int* codePoints,
                                                       int codePointCount, bool writesTerminator, int* pos) {
    const int storedCount = storedCodePointCount(codePoints, codePointCount);
    for (int i = 0; i < storedCount; ++i) {
        writeUintAndAdvancePosition(buffer, static_cast<uint32_t>(codePoints[i]), byteCountOf(codePoints[i]),
                                    pos);
    }
    if (writesTerminator) writeUintAndAdvancePosition(buffer, CHARACTER_ARRAY_TERMINATOR, 1, pos);
}

void ByteArrayUtils::writeUintAndAdvancePosition(uint8_t* buffer, uint32_t data, int size, int* pos) {
    for (int shift = (size - 1) * 8; shift >= 0; shift -= 8) {
        buffer[(*pos)++] = static_cast<uint8_t>(data >> shift);
    }
}

}  // namespace wordengine
