// SPDX-License-Identifier: Apache-2.0
#include "dictionary/trie/dynamic_pt_writing_utils.h"

#include "text/engine_constants.h"

#include <cstdint>

namespace wordengine {

bool DynamicPtWritingUtils::writeEmptyDictionary(BufferWithExtendableBuffer* buffer, int rootPos) {
    int pos = rootPos;
    return writePtNodeArraySizeAndAdvancePosition(buffer, 0, &pos) &&
           writeForwardLinkPositionAndAdvancePosition(buffer, NO_DICT_POS, &pos);
}

bool DynamicPtWritingUtils::writePtNodeArraySizeAndAdvancePosition(BufferWithExtendableBuffer* buffer,
                                                                   int count, int* pos) {
    if (count < 0 || count > MAX_PTNODE_ARRAY_SIZE) return false;
    const auto field = static_cast<uint32_t>(count | LARGE_PTNODE_ARRAY_SIZE_FIELD_SIZE_FLAG);
    return buffer->writeUintAndAdvancePosition(field, LARGE_PTNODE_ARRAY_SIZE_FIELD_SIZE, pos);
}

bool DynamicPtWritingUtils::writeForwardLinkPositionAndAdvancePosition(BufferWithExtendableBuffer* buffer,
                                                                       int forwardLinkPos, int* pos) {
    // An array does not go on in itself, so the offset that stands for nothing is never meant here.
    if (forwardLinkPos == *pos || !writeDictOffset(buffer, forwardLinkPos, *pos, *pos)) return false;
    *pos += DICT_OFFSET_FIELD_SIZE;
    return true;
}

bool DynamicPtWritingUtils::writeFlags(BufferWithExtendableBuffer* buffer, NodeFlags flags, int pos) {
    return writeFlagsAndAdvancePosition(buffer, flags, &pos);
}

bool DynamicPtWritingUtils::writeFlagsAndAdvancePosition(BufferWithExtendableBuffer* buffer, NodeFlags flags,
                                                         int* pos) {
    return buffer->writeUintAndAdvancePosition(flags, NODE_FLAG_FIELD_SIZE, pos);
}

bool DynamicPtWritingUtils::writeParentPosOffsetAndAdvancePosition(BufferWithExtendableBuffer* buffer,
                                                                   int parentPos, int basePos, int* pos) {
    if (!writeDictOffset(buffer, parentPos, basePos, *pos)) return false;
    *pos += DICT_OFFSET_FIELD_SIZE;
    return true;
}

bool DynamicPtWritingUtils::writeCodePointsAndAdvancePosition(BufferWithExtendableBuffer* buffer,
                                                              const int* codePoints, int codePointCount,
                                                              int* pos) {
    if (codePointCount <= 0) return false;
    // One code point needs no end.
    return buffer->writeCodePointsAndAdvancePosition(codePoints, codePointCount, codePointCount > 1, pos);
}

bool DynamicPtWritingUtils::writeChildrenPositionAndAdvancePosition(BufferWithExtendableBuffer* buffer,
                                                                    int childrenPos, int* pos) {
    if (!writeDictOffset(buffer, childrenPos, *pos, *pos)) return false;
    *pos += DICT_OFFSET_FIELD_SIZE;
    return true;
}

bool DynamicPtWritingUtils::writeDictOffset(BufferWithExtendableBuffer* buffer, int targetPos, int basePos,
                                            int pos) {
    uint32_t field = DynamicPtReadingUtils::DICT_OFFSET_INVALID;
    if (targetPos != NO_DICT_POS) {
        const int64_t offset = static_cast<int64_t>(targetPos) - basePos;
        if (offset < MIN_DICT_OFFSET_VALUE || offset > MAX_DICT_OFFSET_VALUE) return false;
        field = static_cast<uint32_t>(offset < 0 ? -offset : offset);
        if (offset < 0) field |= DICT_OFFSET_NEGATIVE_FLAG;
        if (offset == 0) field = DynamicPtReadingUtils::DICT_OFFSET_ZERO_OFFSET;
    }
    return buffer->writeUint(field, DICT_OFFSET_FIELD_SIZE, pos);
}

NodeFlags DynamicPtWritingUtils::createFlags(bool isBlacklisted, bool isNotAWord, bool isTerminal,
                                             bool hasMultipleChars) {
    unsigned flags = PtNodeStateFlags::FLAG_IS_NOT_MOVED;
    if (hasMultipleChars) flags |= PtNodeFlags::FLAG_HAS_MULTIPLE_CHARS;
    if (isTerminal) flags |= PtNodeFlags::FLAG_IS_TERMINAL;
    if (isNotAWord) flags |= PtNodeFlags::FLAG_IS_NOT_A_WORD;
    if (isBlacklisted) flags |= PtNodeFlags::FLAG_IS_BLACKLISTED;
    return static_cast<NodeFlags>(flags);
}

}  // namespace wordengine
