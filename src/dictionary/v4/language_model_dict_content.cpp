// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/language_model_dict_content.h"

#include "dictionary/v4/trie_map_iterator.h"

namespace wordengine {

LanguageModelDictContent::LanguageModelDictContent(ReadWriteByteArrayView buffer, bool hasHistoricalInfo)
    : trieMap_(buffer), hasHistoricalInfo_(hasHistoricalInfo) {}

LanguageModelDictContent::LanguageModelDictContent(bool hasHistoricalInfo)
    : hasHistoricalInfo_(hasHistoricalInfo) {}

ProbabilityEntry LanguageModelDictContent::getProbabilityEntry(int wordId) const {
    return getNgramProbabilityEntry(IntArrayView(), wordId);
}

bool LanguageModelDictContent::setProbabilityEntry(int wordId, const ProbabilityEntry* probabilityEntry) {
    return setNgramProbabilityEntry(IntArrayView(), wordId, probabilityEntry);
}

ProbabilityEntry LanguageModelDictContent::getNgramProbabilityEntry(IntArrayView prevWordIds,
                                                                    int wordId) const {
    const TrieMap::Result result = trieMap_.get(wordId, getBitmapEntryIndex(prevWordIds));
    return result.isValid ? ProbabilityEntry::decode(result.value, hasHistoricalInfo_) : ProbabilityEntry();
}

bool LanguageModelDictContent::setNgramProbabilityEntry(IntArrayView prevWordIds, int wordId,
                                                        const ProbabilityEntry* probabilityEntry) {
    if (!ProbabilityEntry::canBeStored(probabilityEntry->getProbability(), hasHistoricalInfo_)) return false;
    return trieMap_.put(wordId, probabilityEntry->encode(hasHistoricalInfo_),
                        getBitmapEntryIndex(prevWordIds));
}

int LanguageModelDictContent::getBitmapEntryIndex(IntArrayView prevWordIds) const {
    int bitmapEntryIndex = trieMap_.getRootBitmapEntryIndex();
    for (const int wordId : prevWordIds) {
        bitmapEntryIndex = trieMap_.get(wordId, bitmapEntryIndex).nextLevelBitmapEntryIndex;
    }
    return bitmapEntryIndex;
}

bool LanguageModelDictContent::runGC(const TerminalIdMap* terminalIdMap, const ProbabilityContent* original,
                                     int* outNgramCount) {
    if (outNgramCount) *outNgramCount = 0;
    const TrieMap& originalMap = static_cast<const LanguageModelDictContent*>(original)->trieMap_;
    int remainingEntryCount = originalMap.getEntryCount();
    const TrieMap::TrieMapRange range(&originalMap, originalMap.getRootBitmapEntryIndex(),
                                      &remainingEntryCount);
    // A sound walk reads no entry twice and never the root, so it leaves something of the count.
    return runGCInner(terminalIdMap, range, trieMap_.getRootBitmapEntryIndex(), 1, outNgramCount) &&
           remainingEntryCount > 0;
}

bool LanguageModelDictContent::runGCInner(const TerminalIdMap* terminalIdMap,
                                          const TrieMap::TrieMapRange& originalRange, int bitmapEntryIndex,
                                          int sequenceLength, int* outNgramCount) {
    if (sequenceLength > MAX_SEQUENCE_LENGTH) return false;
    for (const auto& entry : originalRange) {
        const auto newId = terminalIdMap->find(entry.key());
        if (newId == terminalIdMap->end()) continue;
        if (!trieMap_.put(newId->second, entry.value(), bitmapEntryIndex)) return false;
        if (outNgramCount) ++*outNgramCount;
        if (!entry.hasNextLevelMap()) continue;
        const int nextLevel = trieMap_.getNextLevelBitmapEntryIndex(newId->second, bitmapEntryIndex);
        if (nextLevel == TrieMap::INVALID_INDEX ||
            !runGCInner(terminalIdMap, entry.getEntriesInNextLevel(), nextLevel, sequenceLength + 1,
                        outNgramCount)) {
            return false;
        }
    }
    return true;
}

}  // namespace wordengine
