// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_bigrams_structure_policy.h"
#include "text/engine_constants.h"

namespace wordengine {

/// Walks one bigram list: while `hasNext`, call `next` and look. `NO_DICT_POS` is an empty list.
class BinaryDictionaryBigramsIterator {
public:
    BinaryDictionaryBigramsIterator(const DictionaryBigramsStructurePolicy* bigramsStructurePolicy, int pos)
        : bigramsStructurePolicy_(bigramsStructurePolicy), pos_(pos), hasNext_(pos != NO_DICT_POS) {}

    bool hasNext() const { return hasNext_; }
    void next() { bigramsStructurePolicy_->getNextBigram(&bigramPos_, &probability_, &hasNext_, &pos_); }

    int getProbability() const { return probability_; }
    /// The target's position, NO_DICT_POS if the entry has none.
    int getBigramPos() const { return bigramPos_; }

private:
    const DictionaryBigramsStructurePolicy* bigramsStructurePolicy_;
    int pos_;
    int bigramPos_ = NO_DICT_POS;
    int probability_ = NO_PROBABILITY;
    bool hasNext_;
};

}  // namespace wordengine
