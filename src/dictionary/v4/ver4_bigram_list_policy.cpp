// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/ver4_bigram_list_policy.h"

#include "dictionary/header_policy.h"
#include "dictionary/v4/forgetting_curve_utils.h"
#include "dictionary/word_property.h"

namespace wordengine {

void Ver4BigramListPolicy::getNextBigram(int* outBigramPos, int* outProbability, bool* outHasNext,
                                         int* bigramEntryPos) const {
    const BigramEntry entry = bigramDictContent_->getBigramEntryAndAdvancePosition(bigramEntryPos);
    *outBigramPos = terminalPositionLookupTable_->getTerminalPtNodePosition(entry.getTargetTerminalId());
    *outProbability = getProbability(entry);
    *outHasNext = entry.hasNext();
}

int Ver4BigramListPolicy::getProbability(const BigramEntry& entry) const {
    if (!entry.isValid() || !bigramDictContent_->hasHistoricalInfo()) return entry.getProbability();
    return ForgettingCurveUtils::decodeProbability(entry.getHistoricalInfo(), headerPolicy_);
}

bool Ver4BigramListPolicy::addNewEntry(int terminalId, int newTargetTerminalId,
                                       const BigramProperty* bigramProperty, bool* outAddedNewEntry) {
    *outAddedNewEntry = false;
    const int headPos = bigramDictContent_->getBigramListHeadPos(terminalId);
    if (const auto found = getEntryPosToUpdate(newTargetTerminalId, headPos)) {
        const BigramEntry entry = found->entry.updateTargetTerminalIdAndGetEntry(newTargetTerminalId);
        const BigramEntry updated = createUpdatedBigramEntryFrom(entry, *bigramProperty);
        *outAddedNewEntry = !found->entry.isValid();
        return bigramDictContent_->writeBigramEntry(&updated, found->pos);
    }
    *outAddedNewEntry = true;
    const BigramEntry entry = createUpdatedBigramEntryFrom(
        BigramEntry(/* hasNext */ true, NO_PROBABILITY, newTargetTerminalId), *bigramProperty);
    return bigramDictContent_->addNewBigramEntry(terminalId, &entry);
}

std::optional<BigramListContent::FoundEntry> Ver4BigramListPolicy::getEntryPosToUpdate(
    int targetTerminalId, int listHeadPos) const {
    std::optional<FoundEntry> firstFree;
    int remainingEntryCount = bigramDictContent_->getMaxEntryCount();
    int pos = listHeadPos;
    while (const auto found = bigramDictContent_->readNextEntry(&pos, &remainingEntryCount)) {
        if (found->entry.getTargetTerminalId() == targetTerminalId) return found;
        if (!found->entry.isValid() && !firstFree) firstFree.emplace(*found);
    }
    return firstFree;
}

bool Ver4BigramListPolicy::removeEntry(int terminalId, int targetTerminalId) {
    const auto found =
        getEntryPosToUpdate(targetTerminalId, bigramDictContent_->getBigramListHeadPos(terminalId));
    if (!found || !found->entry.isValid()) return false;
    const BigramEntry removed = found->entry.getInvalidatedEntry();
    return bigramDictContent_->writeBigramEntry(&removed, found->pos);
}

bool Ver4BigramListPolicy::updateAllBigramEntriesAndDeleteUselessEntries(int terminalId,
                                                                         int* outBigramCount) {
    *outBigramCount = 0;
    int remainingEntryCount = bigramDictContent_->getMaxEntryCount();
    int pos = bigramDictContent_->getBigramListHeadPos(terminalId);
    while (const auto found = bigramDictContent_->readNextEntry(&pos, &remainingEntryCount)) {
        if (!found->entry.isValid()) continue;
        const BigramEntry saved = createEntryToSave(found->entry);
        if (!bigramDictContent_->writeBigramEntry(&saved, found->pos)) return false;
        if (saved.isValid()) ++*outBigramCount;
    }
    return remainingEntryCount >= 0;
}

BigramEntry Ver4BigramListPolicy::createEntryToSave(const BigramEntry& entry) const {
    const int targetPos =
        terminalPositionLookupTable_->getTerminalPtNodePosition(entry.getTargetTerminalId());
    if (targetPos == NO_DICT_POS) return entry.getInvalidatedEntry();
    if (!bigramDictContent_->hasHistoricalInfo()) return entry;
    const HistoricalInfo info =
        ForgettingCurveUtils::createHistoricalInfoToSave(entry.getHistoricalInfo(), headerPolicy_);
    if (!ForgettingCurveUtils::needsToKeep(&info, headerPolicy_)) return entry.getInvalidatedEntry();
    return entry.updateHistoricalInfoAndGetEntry(&info);
}

int Ver4BigramListPolicy::getBigramEntryConut(int terminalId) const {
    int count = 0;
    int remainingEntryCount = bigramDictContent_->getMaxEntryCount();
    int pos = bigramDictContent_->getBigramListHeadPos(terminalId);
    while (const auto found = bigramDictContent_->readNextEntry(&pos, &remainingEntryCount)) {
        if (found->entry.isValid()) ++count;
    }
    return count;
}

BigramEntry Ver4BigramListPolicy::createUpdatedBigramEntryFrom(const BigramEntry& original,
                                                               const BigramProperty& bigramProperty) const {
    if (!bigramDictContent_->hasHistoricalInfo()) {
        return original.updateProbabilityAndGetEntry(bigramProperty.getProbability());
    }
    const HistoricalInfo newInfo(bigramProperty.getTimestamp(), bigramProperty.getLevel(),
                                 bigramProperty.getCount());
    const HistoricalInfo info = ForgettingCurveUtils::createUpdatedHistoricalInfo(
        original.getHistoricalInfo(), bigramProperty.getProbability(), &newInfo, headerPolicy_);
    return original.updateHistoricalInfoAndGetEntry(&info);
}

}  // namespace wordengine
