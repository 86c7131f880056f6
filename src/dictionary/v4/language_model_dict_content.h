// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/probability_content.h"
#include "dictionary/v4/terminal_id_map.h"
#include "dictionary/v4/trie_map.h"
#include "storage/int_array_view.h"

#include <cstdio>

namespace wordengine {

/// What a dictionary knows of each word by its terminal id, and of words behind others, in a map.
/// One thread at a time.
class LanguageModelDictContent final : public ProbabilityContent {
public:
    /// Over bytes that somebody else owns and keeps.
    LanguageModelDictContent(ReadWriteByteArrayView buffer, bool hasHistoricalInfo);
    explicit LanguageModelDictContent(bool hasHistoricalInfo);

    /// Writes the size of the map and the map.
    bool save(std::FILE* file) const { return trieMap_.save(file); }
    [[nodiscard]] bool isNearSizeLimit() const override { return trieMap_.isNearSizeLimit(); }

    [[nodiscard]] ProbabilityEntry getProbabilityEntry(int wordId) const override;
    bool setProbabilityEntry(int wordId, const ProbabilityEntry* probabilityEntry) override;

    [[nodiscard]] ProbabilityEntry getNgramProbabilityEntry(IntArrayView prevWordIds, int wordId) const;

    /// False if the words before are not there with a next level, if the probability cannot be stored, or
    /// if the map is full.
    bool setNgramProbabilityEntry(IntArrayView prevWordIds, int wordId,
                                  const ProbabilityEntry* probabilityEntry);

    /// Where the level behind the words begins; TrieMap::INVALID_INDEX if there is none.
    [[nodiscard]] int getBitmapEntryIndex(IntArrayView prevWordIds) const;

    /// `outNgramCount` counts the entries of all levels.
    bool runGC(const TerminalIdMap* terminalIdMap, const ProbabilityContent* original,
               int* outNgramCount) override;

private:
    /// No sequence of words is longer; one that is comes from a map whose levels hold each other.
    static constexpr int MAX_SEQUENCE_LENGTH = 16;

    bool runGCInner(const TerminalIdMap* terminalIdMap, const TrieMap::TrieMapRange& originalRange,
                    int bitmapEntryIndex, int sequenceLength, int* outNgramCount);

    TrieMap trieMap_;
    bool hasHistoricalInfo_;
};

}  // namespace wordengine
