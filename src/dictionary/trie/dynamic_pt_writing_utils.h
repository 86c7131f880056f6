// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/dynamic_pt_reading_utils.h"
#include "dictionary/trie/pt_node_flags.h"
#include "storage/buffer_with_extendable_buffer.h"

namespace wordengine {

/// The fields of a trie that can change. Each writes at `*pos`, which moves behind the field, and is false,
/// with nothing written, where the value does not fit or the buffer is full.
class DynamicPtWritingUtils {
public:
    static constexpr int MAX_PTNODE_ARRAY_SIZE_TO_USE_SMALL_SIZE_FIELD = 0x7F;
    static constexpr int MAX_PTNODE_ARRAY_SIZE = 0x7FFF;
    static constexpr int SMALL_PTNODE_ARRAY_SIZE_FIELD_SIZE = 1;
    static constexpr int LARGE_PTNODE_ARRAY_SIZE_FIELD_SIZE = 2;
    static constexpr int LARGE_PTNODE_ARRAY_SIZE_FIELD_SIZE_FLAG = 0x8000;
    static constexpr int DICT_OFFSET_FIELD_SIZE = 3;
    static constexpr int MAX_DICT_OFFSET_VALUE = 0x7FFFFF;
    static constexpr int MIN_DICT_OFFSET_VALUE = -0x7FFFFF;
    static constexpr uint32_t DICT_OFFSET_NEGATIVE_FLAG = DynamicPtReadingUtils::DICT_OFFSET_NEGATIVE_FLAG;
    static constexpr int NODE_FLAG_FIELD_SIZE = 1;

    DynamicPtWritingUtils() = delete;

    /// A root array without nodes.
    static bool writeEmptyDictionary(BufferWithExtendableBuffer* buffer, int rootPos);

    /// Always in two bytes, so that a count that grows takes no more room.
    static bool writePtNodeArraySizeAndAdvancePosition(BufferWithExtendableBuffer* buffer, int count,
                                                       int* pos);

    /// NO_DICT_POS where no array follows.
    static bool writeForwardLinkPositionAndAdvancePosition(BufferWithExtendableBuffer* buffer,
                                                           int forwardLinkPos, int* pos);
    static bool writeFlags(BufferWithExtendableBuffer* buffer, NodeFlags flags, int pos);
    static bool writeFlagsAndAdvancePosition(BufferWithExtendableBuffer* buffer, NodeFlags flags, int* pos);
    static bool writeParentPosOffsetAndAdvancePosition(BufferWithExtendableBuffer* buffer, int parentPos,
                                                       int basePos, int* pos);
    static bool writeCodePointsAndAdvancePosition(BufferWithExtendableBuffer* buffer, const int* codePoints,
                                                  int codePointCount, int* pos);
    static bool writeChildrenPositionAndAdvancePosition(BufferWithExtendableBuffer* buffer, int childrenPos,
                                                        int* pos);

    /// How `targetPos` lies from `basePos`, into the field at `pos`. NO_DICT_POS is an offset of none.
    static bool writeDictOffset(BufferWithExtendableBuffer* buffer, int targetPos, int basePos, int pos);

    /// The flags of a node that has not moved.
    static NodeFlags createFlags(bool isBlacklisted, bool isNotAWord, bool isTerminal, bool hasMultipleChars);
};

}  // namespace wordengine
