// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_flags.h"
#include "dictionary/trie/pt_node_writer.h"
#include "dictionary/v4/probability_content.h"
#include "dictionary/v4/terminal_position_lookup_table.h"
#include "storage/buffer_with_extendable_buffer.h"

namespace wordengine {

class HeaderPolicy;
class PtNodeArrayReader;
class PtNodeReader;
class Ver4BigramListPolicy;
class Ver4ShortcutListPolicy;

/// Writes nodes into a trie that can change, and what is kept of their words beside it.
class Ver4PatriciaTrieNodeWriter final : public PtNodeWriter {
public:
    static constexpr int CHILDREN_POSITION_FIELD_SIZE = 3;

    /// What it reads and writes. All of it must outlive the writer.
    struct Parts {
        BufferWithExtendableBuffer* trieBuffer;
        TerminalPositionLookupTable* terminalPositionLookupTable;
        ProbabilityContent* probabilityContent;
        Ver4BigramListPolicy* bigramPolicy;
        Ver4ShortcutListPolicy* shortcutPolicy;
        const PtNodeReader* ptNodeReader;
        const PtNodeArrayReader* ptNodeArrayReader;
        const HeaderPolicy* headerPolicy;
    };

    explicit Ver4PatriciaTrieNodeWriter(const Parts& parts) : parts_(parts) {}

    bool markPtNodeAsDeleted(const PtNodeParams* toBeUpdatedPtNodeParams) override;

    /// The children get the parent `bigramLinkedNodePos`.
    bool markPtNodeAsMoved(const PtNodeParams* toBeUpdatedPtNodeParams, int movedPos,
                           int bigramLinkedNodePos) override;
    bool markPtNodeAsWillBecomeNonTerminal(const PtNodeParams* toBeUpdatedPtNodeParams) override;
    bool updatePtNodeUnigramProperty(const PtNodeParams* toBeUpdatedPtNodeParams,
                                     const UnigramProperty* unigramProperty) override;
    bool updatePtNodeProbabilityAndGetNeedsToKeepPtNodeAfterGC(const PtNodeParams* toBeUpdatedPtNodeParams,
                                                               bool* outNeedsToKeepPtNode) override;
    bool updateChildrenPosition(const PtNodeParams* toBeUpdatedPtNodeParams,
                                int newChildrenPosition) override;
    bool updateTerminalId(const PtNodeParams* toBeUpdatedPtNodeParams, int newTerminalId);
    bool writePtNodeAndAdvancePosition(const PtNodeParams* ptNodeParams, int* ptNodeWritingPos) override;
    bool writeNewTerminalPtNodeAndAdvancePosition(const PtNodeParams* ptNodeParams,
                                                  const UnigramProperty* unigramProperty,
                                                  int* ptNodeWritingPos) override;

    // Words are terminal ids here.

    bool addNgramEntry(IntArrayView prevWordIds, int wordId, const BigramProperty* bigramProperty,
                       bool* outAddedNewEntry) override;
    bool removeNgramEntry(IntArrayView prevWordIds, int wordId) override;
    bool updateAllBigramEntriesAndDeleteUselessEntries(const PtNodeParams* sourcePtNodeParams,
                                                       int* outBigramEntryCount) override;
    bool updateAllPositionFields(const PtNodeParams* toBeUpdatedPtNodeParams,
                                 const DictPositionRelocationMap* dictPositionRelocationMap,
                                 int* outBigramEntryCount) override;
    bool addShortcutTarget(const PtNodeParams* ptNodeParams, const int* targetCodePoints,
                           int targetCodePointCount, int shortcutProbability) override;

    /// Writes the flags of a node that has not moved.
    bool updatePtNodeFlags(int ptNodePos, bool isBlacklisted, bool isNotAWord, bool isTerminal,
                           bool hasMultipleChars);

private:
    bool writePtNodeAndGetTerminalIdAndAdvancePosition(const PtNodeParams& ptNodeParams, int* outTerminalId,
                                                       int* ptNodeWritingPos);
    [[nodiscard]] int terminalIdToWrite(const PtNodeParams& ptNodeParams) const;
    bool writeState(const PtNodeParams& ptNodeParams, NodeFlags state);
    bool writeParentPos(int ptNodePos, int parentPos);
    bool updateParentOfChildren(const PtNodeParams& ptNodeParams, int newParentPos);
    [[nodiscard]] ProbabilityEntry createUpdatedEntryFrom(const ProbabilityEntry& original,
                                                          const UnigramProperty& unigramProperty) const;

    Parts parts_;
};

}  // namespace wordengine
