// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/patricia_trie_reading_utils.h"

#include "dictionary/dictionary_bigrams_structure_policy.h"
#include "dictionary/dictionary_shortcuts_structure_policy.h"
#include "storage/byte_reader.h"
#include "text/engine_constants.h"

namespace wordengine {

int PatriciaTrieReadingUtils::getPtNodeArraySizeAndAdvancePosition(ByteReader* reader) {
    constexpr uint32_t TWO_BYTE_COUNT_FLAG = 0x80;
    const uint32_t firstByte = reader->readUint8();
    if (firstByte < TWO_BYTE_COUNT_FLAG) return static_cast<int>(firstByte);
    return static_cast<int>(((firstByte & ~TWO_BYTE_COUNT_FLAG) << 8) | reader->readUint8());
}

NodeFlags PatriciaTrieReadingUtils::getFlagsAndAdvancePosition(ByteReader* reader) {
    return static_cast<NodeFlags>(reader->readUint8());
}

int PatriciaTrieReadingUtils::getCodePointAndAdvancePosition(ByteReader* reader) {
    return reader->readCodePoint();
}

int PatriciaTrieReadingUtils::getCharsAndAdvancePosition(ByteReader* reader, NodeFlags flags, int maxLength,
                                                         int* outCodePoints) {
    if (hasMultipleChars(flags)) return reader->readString(maxLength, outCodePoints);
    const int codePoint = reader->readCodePoint();
    if (codePoint == NO_CODE_POINT) return 0;
    if (maxLength > 0) outCodePoints[0] = codePoint;
    return 1;
}

int PatriciaTrieReadingUtils::skipCharacters(ByteReader* reader, NodeFlags flags, int maxLength) {
    if (hasMultipleChars(flags)) return reader->skipString(maxLength);
    return reader->readCodePoint() == NO_CODE_POINT ? 0 : 1;
}

int PatriciaTrieReadingUtils::readProbabilityAndAdvancePosition(ByteReader* reader) {
    return static_cast<int>(reader->readUint8());
}

int PatriciaTrieReadingUtils::readChildrenPositionAndAdvancePosition(ByteReader* reader, NodeFlags flags) {
    const int fieldPos = reader->position();
    switch (flags & MASK_CHILDREN_POSITION_TYPE) {
        case FLAG_CHILDREN_POSITION_TYPE_ONEBYTE:
            return fieldPos + static_cast<int>(reader->readUint8());
        case FLAG_CHILDREN_POSITION_TYPE_TWOBYTES:
            return fieldPos + static_cast<int>(reader->readUint16());
        case FLAG_CHILDREN_POSITION_TYPE_THREEBYTES:
            return fieldPos + static_cast<int>(reader->readUint24());
        default:
            return NO_DICT_POS;
    }
}

void PatriciaTrieReadingUtils::skipLists(ByteReader* reader, NodeFlags flags,
                                         const DictionaryShortcutsStructurePolicy* shortcutPolicy,
                                         const DictionaryBigramsStructurePolicy* bigramPolicy,
                                         int* outShortcutPos, int* outBigramPos) {
    *outShortcutPos = NO_DICT_POS;
    *outBigramPos = NO_DICT_POS;
    if (hasShortcutTargets(flags) && reader->ok()) {
        *outShortcutPos = reader->position();
        int pos = reader->position();
        shortcutPolicy->skipAllShortcuts(&pos);
        reader->seek(pos);
    }
    if (hasBigrams(flags) && reader->ok()) {
        *outBigramPos = reader->position();
        int pos = reader->position();
        if (bigramPolicy->skipAllBigrams(&pos)) {
            reader->seek(pos);
        } else {
            reader->fail();
        }
    }
}

bool PatriciaTrieReadingUtils::readPtNodeInfo(ReadOnlyByteArrayView body, int ptNodePos,
                                              const DictionaryShortcutsStructurePolicy* shortcutPolicy,
                                              const DictionaryBigramsStructurePolicy* bigramPolicy,
                                              NodeFlags* outFlags, int* outCodePointCount, int* outCodePoints,
                                              int* outProbability, int* outChildrenPos, int* outShortcutPos,
                                              int* outBigramPos, int* outSiblingPos) {
    ByteReader reader(body, ptNodePos);
    const NodeFlags flags = getFlagsAndAdvancePosition(&reader);
    *outFlags = flags;
    *outCodePointCount = getCharsAndAdvancePosition(&reader, flags, WORD_LENGTH_LIMIT, outCodePoints);
    *outProbability = isTerminal(flags) ? readProbabilityAndAdvancePosition(&reader) : NO_PROBABILITY;
    *outChildrenPos = readChildrenPositionAndAdvancePosition(&reader, flags);
    skipLists(&reader, flags, shortcutPolicy, bigramPolicy, outShortcutPos, outBigramPos);
    *outSiblingPos = reader.position();
    return reader.ok();
}

}  // namespace wordengine
