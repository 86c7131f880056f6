// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/bigram_dict_content.h"

namespace wordengine {

bool BigramDictContent::writeLink(int linkedEntryPos, int pos) {
    if (linkedEntryPos < INVALID_LINKED_ENTRY_POS ||
        linkedEntryPos >= Ver4DictConstants::INVALID_BIGRAM_TARGET_TERMINAL_ID) {
        return false;
    }
    const HistoricalInfo zero(0, 0, 0);
    const BigramEntry link(false, NO_PROBABILITY, &zero, linkedEntryPos);
    return writeRecordAndAdvancePosition(Ver4DictConstants::BIGRAM_IS_LINK_MASK, link, &pos);
}

std::optional<BigramEntry> BigramDictContent::readEntry(int* pos, int* remainingEntryCount) const {
    while (const auto record = readRecordAndAdvancePosition(pos, remainingEntryCount)) {
        if ((record->flags & Ver4DictConstants::BIGRAM_IS_LINK_MASK) == 0) return record->entry;
        if (!record->entry.isValid()) break;
        *pos = record->entry.getTargetTerminalId();
    }
    return std::nullopt;
}

bool BigramDictContent::continueList(int headPos) {
    return headPos == NO_DICT_POS ? writeTerminator(getContentTailPos())
                                  : writeLink(headPos, getContentTailPos());
}

}  // namespace wordengine
