// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_bigrams_structure_policy.h"
#include "storage/byte_array_view.h"

namespace wordengine {

/// The bigram lists of the read-only format. The body must outlive it.
class BigramListPolicy final : public DictionaryBigramsStructurePolicy {
public:
    explicit BigramListPolicy(ReadOnlyByteArrayView body) : body_(body) {}

    void getNextBigram(int* outBigramPos, int* outProbability, bool* outHasNext,
                       int* bigramEntryPos) const override;
    bool skipAllBigrams(int* pos) const override;

private:
    ReadOnlyByteArrayView body_;
};

}  // namespace wordengine
