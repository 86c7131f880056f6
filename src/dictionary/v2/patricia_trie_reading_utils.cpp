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

int PatriciaTrieReadingUtils::getCodePointAndAdvancePosition(ByteReader* reader) {
    return reader->readCodePoint();
}

int PatriciaTrieReadingUtils::skipCharacters(ByteReader* reader, NodeFlags flags, int maxLength) {
    if (hasMultipleChars(flags)) return reader->skipString(maxLength);
    return reader->readCodePoint() == NO_CODE_POINT ? 0 : 1;
}

void PatriciaTrieReadingUtils::skipLists(ByteReader* reader, NodeFlags flags,
                                         const DictionaryShortcutsStructurePolicy* shortcutPolicy,
                                         const DictionaryBigramsStructurePolicy* bigramPolicy,
                                         int* outShortcutPos, int* outBigramPos) {
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

}  // namespace wordengine
