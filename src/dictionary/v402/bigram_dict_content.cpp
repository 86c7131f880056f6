// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v402/bigram_dict_content.h"

#include "dictionary/v402/ver4_dict_constants.h"

namespace wordengine::backward::v402 {

bool BigramDictContent::copyBigramList(int bigramListPos, int toPos, int* outTailEntryPos) {
    *outTailEntryPos = NO_DICT_POS;
    // Kept from the start: a list that claims to go on behind the content must not read its own copy.
    const int end = getContentTailPos();
    int remainingEntryCount = getMaxEntryCount();
    while (bigramListPos < end) {
        const auto found = readNextEntry(&bigramListPos, &remainingEntryCount);
        if (!found) break;
        const BigramEntry entry = found->entry.updateHasNextAndGetEntry(true);
        *outTailEntryPos = toPos;
        if (!writeBigramEntryAndAdvancePosition(&entry, &toPos)) return false;
    }
    return *outTailEntryPos == NO_DICT_POS || updateHasNextFlag(false, *outTailEntryPos);
}

bool BigramDictContent::updateHasNextFlag(bool hasNext, int bigramEntryPos) {
    int remainingEntryCount = 1;
    int pos = bigramEntryPos;
    const auto entry = readEntry(&pos, &remainingEntryCount);
    if (!entry) return false;
    const BigramEntry updatedEntry = entry->updateHasNextAndGetEntry(hasNext);
    return writeBigramEntry(&updatedEntry, bigramEntryPos);
}

std::optional<BigramEntry> BigramDictContent::readEntry(int* pos, int* remainingEntryCount) const {
    const auto record = readRecordAndAdvancePosition(pos, remainingEntryCount);
    if (!record) return std::nullopt;
    return record->entry.updateHasNextAndGetEntry((record->flags & Ver4DictConstants::BIGRAM_HAS_NEXT_MASK) !=
                                                  0);
}

int BigramDictContent::flagsOf(const BigramEntry& entry) const {
    return entry.hasNext() ? Ver4DictConstants::BIGRAM_HAS_NEXT_MASK : 0;
}

bool BigramDictContent::continueList(int headPos) {
    const int lastEntryPos = getContentTailPos() - getEntrySize();
    if (headPos != NO_DICT_POS) {
        int tailEntryPos = NO_DICT_POS;
        if (!copyBigramList(headPos, getContentTailPos(), &tailEntryPos)) return false;
        if (tailEntryPos != NO_DICT_POS) return true;
    }
    return updateHasNextFlag(false, lastEntryPos);
}

}  // namespace wordengine::backward::v402
