// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// How a format stores the words that may follow a word.
class DictionaryBigramsStructurePolicy {
public:
    virtual ~DictionaryBigramsStructurePolicy() = default;
    DictionaryBigramsStructurePolicy(const DictionaryBigramsStructurePolicy&) = delete;
    DictionaryBigramsStructurePolicy& operator=(const DictionaryBigramsStructurePolicy&) = delete;

    /// Reads the entry at `*bigramEntryPos` and moves the position behind it. At the end of the bytes
    /// the target is NO_DICT_POS, the probability NO_PROBABILITY, and nothing follows.
    virtual void getNextBigram(int* outBigramPos, int* outProbability, bool* outHasNext,
                               int* bigramEntryPos) const = 0;

    /// Moves `*pos` behind the list that begins there; false if the list runs off the bytes.
    virtual bool skipAllBigrams(int* pos) const = 0;

protected:
    DictionaryBigramsStructurePolicy() = default;
};

}  // namespace wordengine
