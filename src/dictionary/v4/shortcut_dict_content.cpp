// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/shortcut_dict_content.h"

#include "storage/byte_array_utils.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <array>

namespace wordengine {

ShortcutDictContent::ShortcutDictContent()
    : SparseTableDictContent(Ver4DictConstants::SHORTCUT_ADDRESS_TABLE_BLOCK_SIZE,
                             Ver4DictConstants::SHORTCUT_ADDRESS_TABLE_DATA_SIZE) {}

ShortcutDictContent::ShortcutDictContent(const BufferViews& buffers)
    : SparseTableDictContent(buffers, Ver4DictConstants::SHORTCUT_ADDRESS_TABLE_BLOCK_SIZE,
                             Ver4DictConstants::SHORTCUT_ADDRESS_TABLE_DATA_SIZE) {}

void ShortcutDictContent::getShortcutEntry(int maxCodePointCount, int* outCodePoints, int* outCodePointCount,
                                           int* outProbability, bool* outHasNext, int pos) const {
    getShortcutEntryAndAdvancePosition(maxCodePointCount, outCodePoints, outCodePointCount, outProbability,
                                       outHasNext, &pos);
}

void ShortcutDictContent::getShortcutEntryAndAdvancePosition(int maxCodePointCount, int* outCodePoints,
                                                             int* outCodePointCount, int* outProbability,
                                                             bool* outHasNext, int* pos) const {
    const BufferWithExtendableBuffer* const content = getContentBuffer();
    if (*pos < 0 || *pos >= content->getTailPosition()) {
        if (outHasNext) *outHasNext = false;
        if (outCodePointCount) *outCodePointCount = 0;
        return;
    }
    const auto flags = static_cast<int>(
        content->readUintAndAdvancePosition(Ver4DictConstants::SHORTCUT_FLAGS_FIELD_SIZE, pos));
    if (outProbability) *outProbability = flags & Ver4DictConstants::SHORTCUT_PROBABILITY_MASK;
    if (outHasNext) *outHasNext = (flags & Ver4DictConstants::SHORTCUT_HAS_NEXT_MASK) != 0;
    if (outCodePoints && outCodePointCount) {
        content->readCodePointsAndAdvancePosition(maxCodePointCount, outCodePoints, outCodePointCount, pos);
    }
}

bool ShortcutDictContent::writeShortcutEntry(const int* codePoints, int codePointCount, int probability,
                                             bool hasNext, int pos) {
    return writeShortcutEntryAndAdvancePosition(codePoints, codePointCount, probability, hasNext, &pos);
}

bool ShortcutDictContent::writeShortcutEntryAndAdvancePosition(const int* codePoints, int codePointCount,
                                                               int probability, bool hasNext, int* pos) {
    // A longer target would leave its rest in the way of whoever reads the next entry.
    if (codePointCount < 0 || codePointCount > WORD_LENGTH_LIMIT ||
        !std::all_of(codePoints, codePoints + codePointCount, ByteArrayUtils::canBeStored)) {
        return false;
    }
    const auto flags = static_cast<uint32_t>(createAndGetShortcutFlags(probability, hasNext));
    BufferWithExtendableBuffer* const content = getWritableContentBuffer();
    return content->writeUintAndAdvancePosition(flags, Ver4DictConstants::SHORTCUT_FLAGS_FIELD_SIZE, pos) &&
           content->writeCodePointsAndAdvancePosition(codePoints, codePointCount, true, pos);
}

bool ShortcutDictContent::copyShortcutList(int shortcutListPos, int toPos) {
    return copyShortcutListFromDictContent(shortcutListPos, this, toPos);
}

bool ShortcutDictContent::copyShortcutListFromDictContent(int shortcutListPos,
                                                          const ShortcutDictContent* sourceContent,
                                                          int toPos) {
    // Kept from the start: a list that claims to go on behind its content must not read its own copy.
    const int end = sourceContent->getContentTailPos();
    bool hasNext = shortcutListPos >= 0 && shortcutListPos < end;
    while (hasNext) {
        std::array<int, WORD_LENGTH_LIMIT> codePoints;
        int codePointCount = 0;
        int probability = 0;
        sourceContent->getShortcutEntryAndAdvancePosition(
            WORD_LENGTH_LIMIT, codePoints.data(), &codePointCount, &probability, &hasNext, &shortcutListPos);
        hasNext = hasNext && shortcutListPos < end;
        if (!writeShortcutEntryAndAdvancePosition(codePoints.data(), codePointCount, probability, hasNext,
                                                  &toPos)) {
            return false;
        }
    }
    return true;
}

bool ShortcutDictContent::setShortcutListHead(int terminalId, int listPos) {
    return getUpdatableAddressLookupTable()->set(terminalId, static_cast<uint32_t>(listPos));
}

int ShortcutDictContent::findShortcutEntryAndGetPos(int shortcutListPos, const int* targetCodePoints,
                                                    int codePointCount) const {
    bool hasNext = true;
    while (hasNext) {
        std::array<int, WORD_LENGTH_LIMIT> codePoints;
        int readCount = 0;
        const int entryPos = shortcutListPos;
        getShortcutEntryAndAdvancePosition(WORD_LENGTH_LIMIT, codePoints.data(), &readCount, nullptr,
                                           &hasNext, &shortcutListPos);
        const bool isThere = shortcutListPos != entryPos;
        if (isThere && std::equal(codePoints.data(), codePoints.data() + readCount, targetCodePoints,
                                  targetCodePoints + codePointCount)) {
            return entryPos;
        }
    }
    return NO_DICT_POS;
}

bool ShortcutDictContent::setProbability(int probability, int shortcutEntryPos) {
    // At the tail a write would make the content grow.
    if (shortcutEntryPos < 0 || shortcutEntryPos >= getContentTailPos()) return false;
    bool hasNext = false;
    getShortcutEntry(0, nullptr, nullptr, nullptr, &hasNext, shortcutEntryPos);
    const auto flags = static_cast<uint32_t>(createAndGetShortcutFlags(probability, hasNext));
    return getWritableContentBuffer()->writeUint(flags, Ver4DictConstants::SHORTCUT_FLAGS_FIELD_SIZE,
                                                 shortcutEntryPos);
}

bool ShortcutDictContent::runGC(const TerminalIdMap* terminalIdMap, const ShortcutDictContent* original) {
    for (const auto& [oldId, newId] : *terminalIdMap) {
        const int listPos = original->getShortcutListHeadPos(oldId);
        if (listPos == NO_DICT_POS) continue;
        const int newListPos = getContentTailPos();
        if (!createNewShortcutList(newId) ||
            !copyShortcutListFromDictContent(listPos, original, newListPos)) {
            return false;
        }
    }
    return true;
}

int ShortcutDictContent::createAndGetShortcutFlags(int probability, bool hasNext) {
    return (probability & Ver4DictConstants::SHORTCUT_PROBABILITY_MASK) |
           (hasNext ? Ver4DictConstants::SHORTCUT_HAS_NEXT_MASK : 0);
}

}  // namespace wordengine
