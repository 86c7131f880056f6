// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/byte_reader.h"
#include "text/engine_constants.h"

namespace wordengine {

/// The offsets by which nodes and arrays of a trie that can change lead to each other: three bytes, of which
/// the top bit makes the other 23 negative.
class DynamicPtReadingUtils {
public:
    static constexpr int DICT_OFFSET_INVALID = 0;
    static constexpr int DICT_OFFSET_ZERO_OFFSET = 0x7FFFFF;
    static constexpr uint32_t DICT_OFFSET_NEGATIVE_FLAG = 0x800000;

    DynamicPtReadingUtils() = delete;

    /// As it stands. "Minus nothing", which nobody writes, fails the reader.
    static int readOffsetAndAdvancePosition(ByteReader* reader) {
        const uint32_t raw = reader->readUint24();
        if ((raw & DICT_OFFSET_NEGATIVE_FLAG) == 0) return static_cast<int>(raw);
        const int magnitude = static_cast<int>(raw & ~DICT_OFFSET_NEGATIVE_FLAG);
        if (magnitude == 0) reader->fail();
        return -magnitude;
    }

    /// Where an offset from `basePos` leads that may be an offset of nothing; NO_DICT_POS for none.
    static int getPosOrNone(int offset, int basePos) {
        if (offset == DICT_OFFSET_INVALID) return NO_DICT_POS;
        return offset == DICT_OFFSET_ZERO_OFFSET ? basePos : basePos + offset;
    }

    /// The parent, or where a moved node has gone: both count from the head of the node.
    static int getParentPtNodePos(int parentOffset, int ptNodePos) {
        return getPosOrNone(parentOffset, ptNodePos);
    }

    /// The array that goes on where the one with this link ends; NO_DICT_POS for none.
    static int getForwardLinkPosition(int offset, int forwardLinkFieldPos) {
        return offset == DICT_OFFSET_INVALID ? NO_DICT_POS : forwardLinkFieldPos + offset;
    }
};

}  // namespace wordengine
