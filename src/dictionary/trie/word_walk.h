// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "dictionary/trie/dynamic_pt_reading_helper.h"

#include <vector>

namespace wordengine {

/// All words of a trie one after another, by tokens; the positions of those to come are kept.
class WordWalk {
public:
    /// Begins with token 0, at the root that the helper stands at. `*outIsDamaged` becomes true where the
    /// trie cannot be read to its end. Otherwise as `getNextWordAndNextToken`.
    int next(int token, DynamicPtReadingHelper rootHelper, const DictionaryStructureWithBufferPolicy& policy,
             int* outCodePoints, int* outCodePointCount, bool* outIsDamaged);

private:
    std::vector<int> terminalPtNodePositions_;
};

}  // namespace wordengine
