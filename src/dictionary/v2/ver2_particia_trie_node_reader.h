// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_reader.h"
#include "storage/byte_array_view.h"

namespace wordengine {

class DictionaryBigramsStructurePolicy;
class DictionaryShortcutsStructurePolicy;

/// Decodes nodes of the read-only format. The body and the policies must outlive it.
class Ver2ParticiaTrieNodeReader final : public PtNodeReader {
public:
    Ver2ParticiaTrieNodeReader(ReadOnlyByteArrayView body,
                               const DictionaryBigramsStructurePolicy* bigramPolicy,
                               const DictionaryShortcutsStructurePolicy* shortcutPolicy)
        : body_(body), bigramPolicy_(bigramPolicy), shortcutPolicy_(shortcutPolicy) {}

    /// Invalid outside the body, for a node that runs off it, and for one without code points.
    PtNodeParams fetchPtNodeParamsInBufferFromPtNodePos(int ptNodePos) const override;

private:
    ReadOnlyByteArrayView body_;
    const DictionaryBigramsStructurePolicy* bigramPolicy_;
    const DictionaryShortcutsStructurePolicy* shortcutPolicy_;
};

}  // namespace wordengine
