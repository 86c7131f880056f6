// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/ver4_patricia_trie_node_writer.h"

#include "dictionary/header_policy.h"
#include "dictionary/trie/dynamic_pt_reading_helper.h"
#include "dictionary/trie/dynamic_pt_writing_utils.h"
#include "dictionary/trie/pt_node_params.h"
#include "dictionary/v4/forgetting_curve_utils.h"
#include "dictionary/v4/ver4_bigram_list_policy.h"
#include "dictionary/v4/ver4_shortcut_list_policy.h"
#include "dictionary/word_property.h"

namespace wordengine {

bool Ver4PatriciaTrieNodeWriter::writeState(const PtNodeParams& ptNodeParams, NodeFlags state) {
    const auto flags =
        static_cast<NodeFlags>((ptNodeParams.getFlags() & ~PtNodeStateFlags::MASK_MOVED) | state);
    return DynamicPtWritingUtils::writeFlags(parts_.trieBuffer, flags, ptNodeParams.getHeadPos());
}

bool Ver4PatriciaTrieNodeWriter::writeParentPos(int ptNodePos, int parentPos) {
    int pos = ptNodePos + DynamicPtWritingUtils::NODE_FLAG_FIELD_SIZE;
    return DynamicPtWritingUtils::writeParentPosOffsetAndAdvancePosition(parts_.trieBuffer, parentPos,
                                                                         ptNodePos, &pos);
}

bool Ver4PatriciaTrieNodeWriter::markPtNodeAsDeleted(const PtNodeParams* toBeUpdatedPtNodeParams) {
    return writeState(*toBeUpdatedPtNodeParams, PtNodeStateFlags::FLAG_IS_DELETED) &&
           parts_.terminalPositionLookupTable->setTerminalPtNodePosition(
               toBeUpdatedPtNodeParams->getTerminalId(), NO_DICT_POS);
}

bool Ver4PatriciaTrieNodeWriter::markPtNodeAsMoved(const PtNodeParams* toBeUpdatedPtNodeParams, int movedPos,
                                                   int bigramLinkedNodePos) {
    // Until the last write the old node is whole.
    return updateParentOfChildren(*toBeUpdatedPtNodeParams, bigramLinkedNodePos) &&
           writeParentPos(toBeUpdatedPtNodeParams->getHeadPos(), movedPos) &&
           writeState(*toBeUpdatedPtNodeParams, PtNodeStateFlags::FLAG_IS_MOVED);
}

bool Ver4PatriciaTrieNodeWriter::updateParentOfChildren(const PtNodeParams& ptNodeParams, int newParentPos) {
    if (!ptNodeParams.hasChildren()) return true;
    DynamicPtReadingHelper helper(parts_.ptNodeReader, parts_.ptNodeArrayReader,
                                  parts_.trieBuffer->getTailPosition());
    helper.initWithPtNodeArrayPos(ptNodeParams.getChildrenPos());
    while (!helper.isEnd()) {
        const PtNodeParams child = helper.getPtNodeWithoutProbability();
        if (!child.isValid() || !writeParentPos(child.getHeadPos(), newParentPos)) return false;
        helper.goToNextSibling(child);
    }
    return !helper.isError();
}

bool Ver4PatriciaTrieNodeWriter::markPtNodeAsWillBecomeNonTerminal(
    const PtNodeParams* toBeUpdatedPtNodeParams) {
    return parts_.terminalPositionLookupTable->setTerminalPtNodePosition(
               toBeUpdatedPtNodeParams->getTerminalId(), NO_DICT_POS) &&
           writeState(*toBeUpdatedPtNodeParams, PtNodeStateFlags::FLAG_WILL_BECOME_NON_TERMINAL);
}

bool Ver4PatriciaTrieNodeWriter::updatePtNodeUnigramProperty(const PtNodeParams* toBeUpdatedPtNodeParams,
                                                             const UnigramProperty* unigramProperty) {
    if (!toBeUpdatedPtNodeParams->isTerminal()) return false;
    const int terminalId = toBeUpdatedPtNodeParams->getTerminalId();
    const ProbabilityEntry entry =
        createUpdatedEntryFrom(parts_.probabilityContent->getProbabilityEntry(terminalId), *unigramProperty);
    return parts_.probabilityContent->setProbabilityEntry(terminalId, &entry);
}

ProbabilityEntry Ver4PatriciaTrieNodeWriter::createUpdatedEntryFrom(
    const ProbabilityEntry& original, const UnigramProperty& unigramProperty) const {
    if (!parts_.headerPolicy->hasHistoricalInfoOfWords()) {
        return original.createEntryWithUpdatedProbability(unigramProperty.getProbability());
    }
    const HistoricalInfo newInfo(unigramProperty.getTimestamp(), unigramProperty.getLevel(),
                                 unigramProperty.getCount());
    const HistoricalInfo info = ForgettingCurveUtils::createUpdatedHistoricalInfo(
        original.getHistoricalInfo(), unigramProperty.getProbability(), &newInfo, parts_.headerPolicy);
    return original.createEntryWithUpdatedHistoricalInfo(&info);
}

bool Ver4PatriciaTrieNodeWriter::updatePtNodeProbabilityAndGetNeedsToKeepPtNodeAfterGC(
    const PtNodeParams* toBeUpdatedPtNodeParams, bool* outNeedsToKeepPtNode) {
    if (!toBeUpdatedPtNodeParams->isTerminal()) return false;
    *outNeedsToKeepPtNode = true;
    const int terminalId = toBeUpdatedPtNodeParams->getTerminalId();
    const ProbabilityEntry entry = parts_.probabilityContent->getProbabilityEntry(terminalId);
    if (!entry.hasHistoricalInfo()) return true;
    const HistoricalInfo info =
        ForgettingCurveUtils::createHistoricalInfoToSave(entry.getHistoricalInfo(), parts_.headerPolicy);
    *outNeedsToKeepPtNode = ForgettingCurveUtils::needsToKeep(&info, parts_.headerPolicy);
    const ProbabilityEntry saved = entry.createEntryWithUpdatedHistoricalInfo(&info);
    return parts_.probabilityContent->setProbabilityEntry(terminalId, &saved);
}

bool Ver4PatriciaTrieNodeWriter::updateChildrenPosition(const PtNodeParams* toBeUpdatedPtNodeParams,
                                                        int newChildrenPosition) {
    int pos = toBeUpdatedPtNodeParams->getChildrenPosFieldPos();
    return DynamicPtWritingUtils::writeChildrenPositionAndAdvancePosition(parts_.trieBuffer,
                                                                          newChildrenPosition, &pos);
}

bool Ver4PatriciaTrieNodeWriter::updateTerminalId(const PtNodeParams* toBeUpdatedPtNodeParams,
                                                  int newTerminalId) {
    return parts_.trieBuffer->writeUint(static_cast<uint32_t>(newTerminalId),
                                        Ver4DictConstants::TERMINAL_ID_FIELD_SIZE,
                                        toBeUpdatedPtNodeParams->getTerminalIdFieldPos());
}

bool Ver4PatriciaTrieNodeWriter::writePtNodeAndAdvancePosition(const PtNodeParams* ptNodeParams,
                                                               int* ptNodeWritingPos) {
    int terminalId = PtNodeParams::NOT_A_TERMINAL_ID;
    return writePtNodeAndGetTerminalIdAndAdvancePosition(*ptNodeParams, &terminalId, ptNodeWritingPos);
}

bool Ver4PatriciaTrieNodeWriter::writeNewTerminalPtNodeAndAdvancePosition(
    const PtNodeParams* ptNodeParams, const UnigramProperty* unigramProperty, int* ptNodeWritingPos) {
    int terminalId = PtNodeParams::NOT_A_TERMINAL_ID;
    if (!writePtNodeAndGetTerminalIdAndAdvancePosition(*ptNodeParams, &terminalId, ptNodeWritingPos)) {
        return false;
    }
    const ProbabilityEntry entry = createUpdatedEntryFrom(ProbabilityEntry(), *unigramProperty);
    return parts_.probabilityContent->setProbabilityEntry(terminalId, &entry);
}

int Ver4PatriciaTrieNodeWriter::terminalIdToWrite(const PtNodeParams& ptNodeParams) const {
    if (ptNodeParams.willBecomeNonTerminal() || !ptNodeParams.isTerminal()) {
        return PtNodeParams::NOT_A_TERMINAL_ID;
    }
    if (ptNodeParams.getTerminalId() != PtNodeParams::NOT_A_TERMINAL_ID) return ptNodeParams.getTerminalId();
    return parts_.terminalPositionLookupTable->getNextTerminalId();
}

bool Ver4PatriciaTrieNodeWriter::writePtNodeAndGetTerminalIdAndAdvancePosition(
    const PtNodeParams& ptNodeParams, int* outTerminalId, int* ptNodeWritingPos) {
    BufferWithExtendableBuffer* const buffer = parts_.trieBuffer;
    const int ptNodePos = *ptNodeWritingPos;
    const int count = ptNodeParams.getCodePointCount();
    *outTerminalId = terminalIdToWrite(ptNodeParams);
    const bool isTerminal = *outTerminalId != PtNodeParams::NOT_A_TERMINAL_ID;
    // The flags are known only when the node is whole.
    if (!DynamicPtWritingUtils::writeFlagsAndAdvancePosition(buffer, 0, ptNodeWritingPos) ||
        !DynamicPtWritingUtils::writeParentPosOffsetAndAdvancePosition(buffer, ptNodeParams.getParentPos(),
                                                                       ptNodePos, ptNodeWritingPos) ||
        !DynamicPtWritingUtils::writeCodePointsAndAdvancePosition(buffer, ptNodeParams.getCodePoints(), count,
                                                                  ptNodeWritingPos)) {
        return false;
    }
    if (isTerminal &&
        !buffer->writeUintAndAdvancePosition(static_cast<uint32_t>(*outTerminalId),
                                             Ver4DictConstants::TERMINAL_ID_FIELD_SIZE, ptNodeWritingPos)) {
        return false;
    }
    return DynamicPtWritingUtils::writeChildrenPositionAndAdvancePosition(
               buffer, ptNodeParams.getChildrenPos(), ptNodeWritingPos) &&
           updatePtNodeFlags(ptNodePos, ptNodeParams.isBlacklisted(), ptNodeParams.isNotAWord(), isTerminal,
                             count > 1) &&
           parts_.terminalPositionLookupTable->setTerminalPtNodePosition(*outTerminalId, ptNodePos);
}

bool Ver4PatriciaTrieNodeWriter::updatePtNodeFlags(int ptNodePos, bool isBlacklisted, bool isNotAWord,
                                                   bool isTerminal, bool hasMultipleChars) {
    const NodeFlags flags =
        DynamicPtWritingUtils::createFlags(isBlacklisted, isNotAWord, isTerminal, hasMultipleChars);
    return DynamicPtWritingUtils::writeFlags(parts_.trieBuffer, flags, ptNodePos);
}

bool Ver4PatriciaTrieNodeWriter::addNgramEntry(IntArrayView prevWordIds, int wordId,
                                               const BigramProperty* bigramProperty, bool* outAddedNewEntry) {
    return !prevWordIds.empty() &&
           parts_.bigramPolicy->addNewEntry(prevWordIds[0], wordId, bigramProperty, outAddedNewEntry);
}

bool Ver4PatriciaTrieNodeWriter::removeNgramEntry(IntArrayView prevWordIds, int wordId) {
    return !prevWordIds.empty() && parts_.bigramPolicy->removeEntry(prevWordIds[0], wordId);
}

bool Ver4PatriciaTrieNodeWriter::updateAllBigramEntriesAndDeleteUselessEntries(
    const PtNodeParams* sourcePtNodeParams, int* outBigramEntryCount) {
    *outBigramEntryCount = 0;
    return !sourcePtNodeParams->isTerminal() ||
           parts_.bigramPolicy->updateAllBigramEntriesAndDeleteUselessEntries(
               sourcePtNodeParams->getTerminalId(), outBigramEntryCount);
}

bool Ver4PatriciaTrieNodeWriter::updateAllPositionFields(
    const PtNodeParams* toBeUpdatedPtNodeParams, const DictPositionRelocationMap* dictPositionRelocationMap,
    int* outBigramEntryCount) {
    // What was not copied is not there any more.
    const auto relocated = [](const DictPositionRelocationMap::PositionMap& map, int pos) {
        const auto found = map.find(pos);
        return found == map.end() ? NO_DICT_POS : found->second;
    };
    const int parentPos =
        relocated(dictPositionRelocationMap->ptNodePositions, toBeUpdatedPtNodeParams->getParentPos());
    const int childrenPos =
        relocated(dictPositionRelocationMap->ptNodeArrayPositions, toBeUpdatedPtNodeParams->getChildrenPos());
    *outBigramEntryCount = 0;
    if (toBeUpdatedPtNodeParams->isTerminal()) {
        *outBigramEntryCount =
            parts_.bigramPolicy->getBigramEntryConut(toBeUpdatedPtNodeParams->getTerminalId());
    }
    return writeParentPos(toBeUpdatedPtNodeParams->getHeadPos(), parentPos) &&
           updateChildrenPosition(toBeUpdatedPtNodeParams, childrenPos) &&
           parts_.terminalPositionLookupTable->setTerminalPtNodePosition(
               toBeUpdatedPtNodeParams->getTerminalId(), toBeUpdatedPtNodeParams->getHeadPos());
}

bool Ver4PatriciaTrieNodeWriter::addShortcutTarget(const PtNodeParams* ptNodeParams,
                                                   const int* targetCodePoints, int targetCodePointCount,
                                                   int shortcutProbability) {
    return ptNodeParams->isTerminal() &&
           parts_.shortcutPolicy->addNewShortcut(ptNodeParams->getTerminalId(), targetCodePoints,
                                                 targetCodePointCount, shortcutProbability);
}

}  // namespace wordengine
