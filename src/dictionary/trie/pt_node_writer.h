// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/int_array_view.h"

#include <unordered_map>

namespace wordengine {

class BigramProperty;
class PtNodeParams;
class UnigramProperty;

/// Changes nodes of a format that can be updated. All operations are false where a write was refused;
/// what had been written before stays.
class PtNodeWriter {
public:
    /// From old to new positions, of node arrays and of nodes.
    struct DictPositionRelocationMap {
        using PositionMap = std::unordered_map<int, int>;
        PositionMap ptNodeArrayPositions;
        PositionMap ptNodePositions;
    };

    virtual ~PtNodeWriter() = default;
    PtNodeWriter(const PtNodeWriter&) = delete;
    PtNodeWriter& operator=(const PtNodeWriter&) = delete;

    virtual bool markPtNodeAsDeleted(const PtNodeParams* toBeUpdatedPtNodeParams) = 0;
    virtual bool markPtNodeAsMoved(const PtNodeParams* toBeUpdatedPtNodeParams, int movedPos,
                                   int bigramLinkedNodePos) = 0;
    virtual bool markPtNodeAsWillBecomeNonTerminal(const PtNodeParams* toBeUpdatedPtNodeParams) = 0;
    virtual bool updatePtNodeUnigramProperty(const PtNodeParams* toBeUpdatedPtNodeParams,
                                             const UnigramProperty* unigramProperty) = 0;
    virtual bool updatePtNodeProbabilityAndGetNeedsToKeepPtNodeAfterGC(
        const PtNodeParams* toBeUpdatedPtNodeParams, bool* outNeedsToKeepPtNode) = 0;
    virtual bool updateChildrenPosition(const PtNodeParams* toBeUpdatedPtNodeParams,
                                        int newChildrenPosition) = 0;
    virtual bool writePtNodeAndAdvancePosition(const PtNodeParams* ptNodeParams, int* ptNodeWritingPos) = 0;
    virtual bool writeNewTerminalPtNodeAndAdvancePosition(const PtNodeParams* ptNodeParams,
                                                          const UnigramProperty* unigramProperty,
                                                          int* ptNodeWritingPos) = 0;
    virtual bool addNgramEntry(IntArrayView prevWordIds, int wordId, const BigramProperty* bigramProperty,
                               bool* outAddedNewEntry) = 0;
    virtual bool removeNgramEntry(IntArrayView prevWordIds, int wordId) = 0;
    virtual bool updateAllBigramEntriesAndDeleteUselessEntries(const PtNodeParams* sourcePtNodeParams,
                                                               int* outBigramEntryCount) = 0;
    virtual bool updateAllPositionFields(const PtNodeParams* toBeUpdatedPtNodeParams,
                                         const DictPositionRelocationMap* dictPositionRelocationMap,
                                         int* outBigramEntryCount) = 0;
    virtual bool addShortcutTarget(const PtNodeParams* ptNodeParams, const int* targetCodePoints,
                                   int targetCodePointCount, int shortcutProbability) = 0;

protected:
    PtNodeWriter() = default;
};

}  // namespace wordengine
