// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v402/probability_dict_content.h"

#include "dictionary/v402/ver4_dict_constants.h"

namespace wordengine::backward::v402 {

ProbabilityDictContent::ProbabilityDictContent(ReadWriteByteArrayView buffer, bool hasHistoricalInfo)
    : SingleDictContent(buffer), hasHistoricalInfo_(hasHistoricalInfo) {}

ProbabilityDictContent::ProbabilityDictContent(bool hasHistoricalInfo)
    : hasHistoricalInfo_(hasHistoricalInfo) {}

ProbabilityEntry ProbabilityDictContent::getProbabilityEntry(int terminalId) const {
    if (terminalId < 0 || terminalId >= getEntryCount()) return {};
    int pos = terminalId * getEntrySize();
    const auto next = [&](int size) {
        return static_cast<int>(getBuffer()->readUintAndAdvancePosition(size, &pos));
    };
    const int flags = next(Ver4DictConstants::FLAGS_IN_PROBABILITY_FILE_SIZE);
    const int probability = next(Ver4DictConstants::PROBABILITY_SIZE);
    if (!hasHistoricalInfo_) return {flags, probability};
    const int timestamp = next(Ver4DictConstants::TIME_STAMP_FIELD_SIZE);
    const int level = next(Ver4DictConstants::WORD_LEVEL_FIELD_SIZE);
    const int count = next(Ver4DictConstants::WORD_COUNT_FIELD_SIZE);
    return {flags, probability, HistoricalInfo(timestamp, level, count)};
}

bool ProbabilityDictContent::setProbabilityEntry(int terminalId, const ProbabilityEntry* probabilityEntry) {
    return terminalId >= 0 &&
           ProbabilityEntry::canBeStored(probabilityEntry->getProbability(), hasHistoricalInfo_) &&
           appendEmptyEntries(terminalId - getEntryCount() + 1) &&
           writeEntry(*probabilityEntry, terminalId * getEntrySize());
}

bool ProbabilityDictContent::runGC(const TerminalIdMap* terminalIdMap, const ProbabilityContent* original,
                                   int* outEntryCount) {
    const int originalCount = static_cast<const ProbabilityDictContent*>(original)->getEntryCount();
    int entryCount = 0;
    for (const auto& [oldId, newId] : *terminalIdMap) {
        if (oldId < 0 || oldId >= originalCount) continue;
        const ProbabilityEntry entry = original->getProbabilityEntry(oldId);
        if (!setProbabilityEntry(newId, &entry)) return false;
        ++entryCount;
    }
    if (outEntryCount) *outEntryCount = entryCount;
    return true;
}

int ProbabilityDictContent::getEntrySize() const {
    constexpr int BASE_SIZE =
        Ver4DictConstants::FLAGS_IN_PROBABILITY_FILE_SIZE + Ver4DictConstants::PROBABILITY_SIZE;
    constexpr int HISTORY_SIZE = Ver4DictConstants::TIME_STAMP_FIELD_SIZE +
                                 Ver4DictConstants::WORD_LEVEL_FIELD_SIZE +
                                 Ver4DictConstants::WORD_COUNT_FIELD_SIZE;
    return BASE_SIZE + (hasHistoricalInfo_ ? HISTORY_SIZE : 0);
}

bool ProbabilityDictContent::appendEmptyEntries(int entryCount) {
    for (; entryCount > 0; --entryCount) {
        const int pos = getBuffer()->getTailPosition();
        // An entry that was cut in two would lie across the end of the original region.
        if (pos % getEntrySize() != 0 || !getWritableBuffer()->extend(getEntrySize()) ||
            !writeEntry(ProbabilityEntry(), pos)) {
            return false;
        }
    }
    return true;
}

bool ProbabilityDictContent::writeEntry(const ProbabilityEntry& entry, int pos) {
    const auto write = [&](int value, int size) {
        return getWritableBuffer()->writeUintAndAdvancePosition(static_cast<uint32_t>(value), size, &pos);
    };
    if (!write(entry.getFlags(), Ver4DictConstants::FLAGS_IN_PROBABILITY_FILE_SIZE) ||
        !write(entry.getProbability(), Ver4DictConstants::PROBABILITY_SIZE)) {
        return false;
    }
    if (!hasHistoricalInfo_) return true;
    const HistoricalInfo* const info = entry.getHistoricalInfo();
    return write(info->getTimeStamp(), Ver4DictConstants::TIME_STAMP_FIELD_SIZE) &&
           write(info->getLevel(), Ver4DictConstants::WORD_LEVEL_FIELD_SIZE) &&
           write(info->getCount(), Ver4DictConstants::WORD_COUNT_FIELD_SIZE);
}

}  // namespace wordengine::backward::v402
