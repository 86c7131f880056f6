// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/bigram_list_content.h"

#include "dictionary/v4/probability_entry.h"

#include <algorithm>

namespace wordengine {

BigramListContent::BigramListContent(const BufferViews& buffers, bool hasHistoricalInfo)
    : SparseTableDictContent(buffers, Ver4DictConstants::BIGRAM_ADDRESS_TABLE_BLOCK_SIZE,
                             Ver4DictConstants::BIGRAM_ADDRESS_TABLE_DATA_SIZE),
      hasHistoricalInfo_(hasHistoricalInfo) {}

BigramListContent::BigramListContent(bool hasHistoricalInfo)
    : SparseTableDictContent(Ver4DictConstants::BIGRAM_ADDRESS_TABLE_BLOCK_SIZE,
                             Ver4DictConstants::BIGRAM_ADDRESS_TABLE_DATA_SIZE),
      hasHistoricalInfo_(hasHistoricalInfo) {}

int BigramListContent::getEntrySize() const {
    constexpr int HISTORY_SIZE = Ver4DictConstants::TIME_STAMP_FIELD_SIZE +
                                 Ver4DictConstants::WORD_LEVEL_FIELD_SIZE +
                                 Ver4DictConstants::WORD_COUNT_FIELD_SIZE;
    return Ver4DictConstants::BIGRAM_FLAGS_FIELD_SIZE +
           (hasHistoricalInfo_ ? HISTORY_SIZE : Ver4DictConstants::BIGRAM_LARGE_PROBABILITY_FIELD_SIZE) +
           Ver4DictConstants::BIGRAM_TARGET_TERMINAL_ID_FIELD_SIZE;
}

BigramEntry BigramListContent::getBigramEntryAndAdvancePosition(int* pos) const {
    int remainingEntryCount = getMaxEntryCount();
    const auto entry = readEntry(pos, &remainingEntryCount);
    return entry.value_or(BigramEntry(false, NO_PROBABILITY, Ver4DictConstants::NOT_A_TERMINAL_ID));
}

std::optional<BigramListContent::FoundEntry> BigramListContent::readNextEntry(
    int* pos, int* remainingEntryCount) const {
    // No list, or one that has ended: nothing is read.
    if (*pos == NO_DICT_POS) return std::nullopt;
    const auto entry = readEntry(pos, remainingEntryCount);
    if (!entry) return std::nullopt;
    const int entryPos = *pos - getEntrySize();
    if (!entry->hasNext()) *pos = NO_DICT_POS;
    return FoundEntry{entryPos, *entry};
}

bool BigramListContent::writeBigramEntryAndAdvancePosition(const BigramEntry* bigramEntry, int* pos) {
    return canBeStored(*bigramEntry) &&
           writeRecordAndAdvancePosition(flagsOf(*bigramEntry), *bigramEntry, pos);
}

bool BigramListContent::addNewBigramEntry(int terminalId, const BigramEntry* bigramEntry) {
    const int oldHeadPos = getBigramListHeadPos(terminalId);
    const int newHeadPos = getContentTailPos();
    // Set last: what was refused half-way lies at the tail, where no list leads.
    const BigramEntry newEntry = bigramEntry->updateHasNextAndGetEntry(true);
    return writeBigramEntry(&newEntry, newHeadPos) && continueList(oldHeadPos) &&
           setListHead(terminalId, newHeadPos);
}

bool BigramListContent::runGC(const TerminalIdMap* terminalIdMap, const BigramListContent* original,
                              int* outBigramCount) {
    *outBigramCount = 0;
    // One for all lists: in a damaged content many words may share a long one.
    int remainingEntryCount = original->getMaxEntryCount();
    for (const auto& [oldId, newId] : *terminalIdMap) {
        const int listPos = original->getBigramListHeadPos(oldId);
        if (listPos == NO_DICT_POS) continue;
        const int newListPos = getContentTailPos();
        int entryCount = 0;
        if (!runGCBigramList(listPos, original, terminalIdMap, &remainingEntryCount, &entryCount)) {
            return false;
        }
        if (entryCount > 0 && !setListHead(newId, newListPos)) return false;
        *outBigramCount += entryCount;
    }
    return true;
}

bool BigramListContent::runGCBigramList(int bigramListPos, const BigramListContent* source,
                                        const TerminalIdMap* terminalIdMap, int* remainingEntryCount,
                                        int* outEntryCount) {
    *outEntryCount = 0;
    int toPos = getContentTailPos();
    while (const auto found = source->readNextEntry(&bigramListPos, remainingEntryCount)) {
        const BigramEntry& entry = found->entry;
        const auto newTarget = terminalIdMap->find(entry.getTargetTerminalId());
        if (!entry.isValid() || newTarget == terminalIdMap->end()) continue;
        const BigramEntry newEntry =
            entry.updateTargetTerminalIdAndGetEntry(newTarget->second).updateHasNextAndGetEntry(true);
        if (!writeBigramEntryAndAdvancePosition(&newEntry, &toPos)) return false;
        ++*outEntryCount;
    }
    return *remainingEntryCount >= 0 && (*outEntryCount == 0 || continueList(NO_DICT_POS));
}

std::optional<BigramListContent::Record> BigramListContent::readRecordAndAdvancePosition(
    int* pos, int* remainingEntryCount) const {
    *remainingEntryCount = std::max(*remainingEntryCount, 0) - 1;
    if (*remainingEntryCount < 0 || !isInOneRegion(*pos)) return std::nullopt;
    const BufferWithExtendableBuffer* const content = getContentBuffer();
    const auto next = [&](int size) {
        return static_cast<int>(content->readUintAndAdvancePosition(size, pos));
    };
    const int flags = next(Ver4DictConstants::BIGRAM_FLAGS_FIELD_SIZE);
    int probability = NO_PROBABILITY;
    HistoricalInfo historicalInfo;
    if (hasHistoricalInfo_) {
        const int timestamp = next(Ver4DictConstants::TIME_STAMP_FIELD_SIZE);
        const int level = next(Ver4DictConstants::WORD_LEVEL_FIELD_SIZE);
        historicalInfo = HistoricalInfo(timestamp, level, next(Ver4DictConstants::WORD_COUNT_FIELD_SIZE));
    } else {
        probability = next(Ver4DictConstants::BIGRAM_LARGE_PROBABILITY_FIELD_SIZE);
    }
    const int target = next(Ver4DictConstants::BIGRAM_TARGET_TERMINAL_ID_FIELD_SIZE);
    const bool hasTarget = target != Ver4DictConstants::INVALID_BIGRAM_TARGET_TERMINAL_ID;
    return Record{flags, BigramEntry(true, probability, &historicalInfo,
                                     hasTarget ? target : Ver4DictConstants::NOT_A_TERMINAL_ID)};
}

bool BigramListContent::writeRecordAndAdvancePosition(int flags, const BigramEntry& entry, int* pos) {
    BufferWithExtendableBuffer* const content = getWritableContentBuffer();
    if (*pos == content->getTailPosition() && !content->extend(getEntrySize())) return false;
    if (!isInOneRegion(*pos)) return false;
    const auto write = [&](int value, int size) {
        content->writeUintAndAdvancePosition(static_cast<uint32_t>(value), size, pos);
    };
    write(flags, Ver4DictConstants::BIGRAM_FLAGS_FIELD_SIZE);
    if (hasHistoricalInfo_) {
        const HistoricalInfo* const info = entry.getHistoricalInfo();
        write(info->getTimeStamp(), Ver4DictConstants::TIME_STAMP_FIELD_SIZE);
        write(info->getLevel(), Ver4DictConstants::WORD_LEVEL_FIELD_SIZE);
        write(info->getCount(), Ver4DictConstants::WORD_COUNT_FIELD_SIZE);
    } else {
        write(entry.getProbability(), Ver4DictConstants::BIGRAM_LARGE_PROBABILITY_FIELD_SIZE);
    }
    // An entry without target has that of all bits set.
    write(entry.getTargetTerminalId(), Ver4DictConstants::BIGRAM_TARGET_TERMINAL_ID_FIELD_SIZE);
    return true;
}

/// A record that is cut off, or lies across the end of the original region, is a damaged one.
bool BigramListContent::isInOneRegion(int recordPos) const {
    const BufferWithExtendableBuffer* const content = getContentBuffer();
    if (recordPos < 0 || recordPos > content->getTailPosition() - getEntrySize()) return false;
    return content->isInAdditionalBuffer(recordPos) ||
           recordPos <= content->getOriginalBufferSize() - getEntrySize();
}

bool BigramListContent::setListHead(int terminalId, int headPos) {
    return getUpdatableAddressLookupTable()->set(terminalId, static_cast<uint32_t>(headPos));
}

bool BigramListContent::canBeStored(const BigramEntry& entry) const {
    if (!entry.isValid()) return true;
    return entry.getTargetTerminalId() >= 0 &&
           entry.getTargetTerminalId() < Ver4DictConstants::INVALID_BIGRAM_TARGET_TERMINAL_ID &&
           ProbabilityEntry::canBeStored(entry.getProbability(), hasHistoricalInfo_);
}

}  // namespace wordengine
