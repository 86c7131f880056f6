// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/byte_array_view.h"

#include <cstdint>

namespace wordengine {

class ByteReader;
class DictionaryBigramsStructurePolicy;
class DictionaryShortcutsStructurePolicy;

/// Spells the word that ends at a node of the read-only trie. Nodes know nothing of their parents: the
/// finder descends from the root, into the last node whose children begin before the one that it looks
/// for, which holds in a file whose subtrees lie one behind the other. For one search.
class PatriciaTrieWordFinder {
public:
    PatriciaTrieWordFinder(ReadOnlyByteArrayView body,
                           const DictionaryShortcutsStructurePolicy* shortcutPolicy,
                           const DictionaryBigramsStructurePolicy* bigramPolicy)
        : body_(body), shortcutPolicy_(shortcutPolicy), bigramPolicy_(bigramPolicy) {}

    /// The word's length, 0 if no word ends at the position. `outCodePoints` holds `maxCodePointCount`:
    /// the code points of the last node are cut there.
    int find(int ptNodePos, int maxCodePointCount, int* outCodePoints, int* outUnigramProbability);

    /// The search led out of the body or across a node that runs off it.
    bool hasMetCorruption() const { return hasMetCorruption_; }
    int64_t bytesRead() const { return bytesRead_; }

private:
    enum class ScanResult { FOUND, CAN_DESCEND, RAN_OUT, FAILED };

    /// Stores the position of the node to descend into, or the one behind an array that has none.
    ScanResult scanArray(ByteReader* reader, int ptNodePos, int* outPos) const;
    /// False if the word grows too long for the caller.
    bool appendNodeAndGoToChildren(int* inOutPos);
    int readLastNode(int ptNodePos, int* outUnigramProbability);

    ReadOnlyByteArrayView body_;
    const DictionaryShortcutsStructurePolicy* shortcutPolicy_;
    const DictionaryBigramsStructurePolicy* bigramPolicy_;
    int* codePoints_ = nullptr;
    int maxCodePointCount_ = 0;
    int wordLength_ = 0;
    bool hasMetCorruption_ = false;
    int64_t bytesRead_ = 0;
};

}  // namespace wordengine
