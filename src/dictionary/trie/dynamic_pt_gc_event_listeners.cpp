// SPDX-License-Identifier: Apache-2.0
#include "dictionary/trie/dynamic_pt_gc_event_listeners.h"

#include "dictionary/trie/dynamic_pt_writing_utils.h"
#include "dictionary/trie/pt_node_params.h"
#include "dictionary/trie/pt_node_reader.h"

#include <algorithm>
#include <utility>

namespace wordengine {

using Listeners = DynamicPtGcEventListeners;

bool Listeners::isNonWordInfo(const PtNodeParams& ptNodeParams, const PtNodeReader& reader) {
    if (!ptNodeParams.isNotAWord()) return false;
    PtNodeParams top = ptNodeParams;
    // A word has no more nodes above its last than letters.
    for (int depth = 0; depth < WORD_LENGTH_LIMIT && top.getParentPos() != NO_DICT_POS; ++depth) {
        const PtNodeParams parent = reader.fetchPtNodeParamsInBufferFromPtNodePos(top.getParentPos());
        if (!parent.isValid()) break;
        top = parent;
    }
    return top.getCodePoints()[0] >= CODE_POINT_BEGINNING_OF_SENTENCE;
}

using MarkUseless = Listeners::TraversePolicyToUpdateUnigramProbabilityAndMarkUselessPtNodesAsDeleted;

bool MarkUseless::onDescend(int) {
    keptCounts_.push_back(0);
    return true;
}

bool MarkUseless::onAscend() {
    keptChildCount_ = keptCounts_.back();
    keptCounts_.pop_back();
    return !keptCounts_.empty();
}

bool MarkUseless::onVisitingPtNode(const PtNodeParams* ptNodeParams) {
    const int keptChildCount = std::exchange(keptChildCount_, 0);
    const bool isWord = ptNodeParams->isTerminal() && !ptNodeParams->isDeleted();
    const bool isMark = isWord && isNonWordInfo(*ptNodeParams, *ptNodeReader_);
    bool needsToKeep = isWord;
    if (isWord && !isMark &&
        !ptNodeWriter_->updatePtNodeProbabilityAndGetNeedsToKeepPtNodeAfterGC(ptNodeParams, &needsToKeep)) {
        return false;
    }
    if (keptChildCount == 0 && ptNodeParams->hasChildren() &&
        !ptNodeWriter_->updateChildrenPosition(ptNodeParams, NO_DICT_POS)) {
        return false;
    }
    if (!needsToKeep && keptChildCount == 0) return drop(*ptNodeParams);
    if (isWord && !isMark) ++validUnigramCount_;
    return keep(*ptNodeParams, isWord);
}

bool MarkUseless::keep(const PtNodeParams& ptNodeParams, bool isWord) {
    ++keptCounts_.back();
    const bool wasWord = ptNodeParams.isTerminal() && !isWord;
    return !wasWord || ptNodeWriter_->markPtNodeAsWillBecomeNonTerminal(&ptNodeParams);
}

bool MarkUseless::drop(const PtNodeParams& ptNodeParams) {
    return ptNodeWriter_->markPtNodeAsDeleted(&ptNodeParams);
}

bool Listeners::TraversePolicyToUpdateBigramProbability::onVisitingPtNode(const PtNodeParams* ptNodeParams) {
    if (ptNodeParams->isDeleted() || ptNodeParams->willBecomeNonTerminal()) return true;
    int count = 0;
    if (!ptNodeWriter_->updateAllBigramEntriesAndDeleteUselessEntries(ptNodeParams, &count)) return false;
    validBigramEntryCount_ += count;
    return true;
}

using PlaceAndWrite = Listeners::TraversePolicyToPlaceAndWriteValidPtNodesToBuffer;

bool PlaceAndWrite::countValidNodes(int ptNodeArrayPos, int* outCount) const {
    *outCount = 0;
    DynamicPtReadingHelper helper(parts_.ptNodeReader, parts_.ptNodeArrayReader, parts_.trieSize);
    helper.initWithPtNodeArrayPos(ptNodeArrayPos);
    while (!helper.isEnd()) {
        const PtNodeParams ptNodeParams = helper.getPtNodeParams();
        if (!ptNodeParams.isValid()) return false;
        if (!ptNodeParams.isDeleted()) ++*outCount;
        helper.goToNextSibling(ptNodeParams);
    }
    return !helper.isError();
}

bool PlaceAndWrite::onDescend(int ptNodeArrayPos) {
    if (!countValidNodes(ptNodeArrayPos, &nodesToCome_)) return false;
    // An empty root is a dictionary; other arrays without nodes are not there.
    isWriting_ = nodesToCome_ > 0 || std::exchange(isRoot_, false);
    isRoot_ = false;
    if (!isWriting_) return true;
    relocationMap_->ptNodeArrayPositions[ptNodeArrayPos] = parts_.bufferToWrite->getTailPosition();
    return beginArray();
}

bool PlaceAndWrite::beginArray() {
    nodesToComeInArray_ = std::min(nodesToCome_, DynamicPtWritingUtils::MAX_PTNODE_ARRAY_SIZE);
    int pos = parts_.bufferToWrite->getTailPosition();
    return DynamicPtWritingUtils::writePtNodeArraySizeAndAdvancePosition(parts_.bufferToWrite,
                                                                         nodesToComeInArray_, &pos);
}

bool PlaceAndWrite::onVisitingPtNode(const PtNodeParams* ptNodeParams) {
    if (ptNodeParams->isDeleted()) return true;
    if (!isWriting_ || nodesToCome_ == 0) return false;
    int pos = parts_.bufferToWrite->getTailPosition();
    if (nodesToComeInArray_ == 0) {
        // No more can be counted in one array: it goes on in another right behind its link.
        const int nextPos = pos + DynamicPtWritingUtils::DICT_OFFSET_FIELD_SIZE;
        if (!DynamicPtWritingUtils::writeForwardLinkPositionAndAdvancePosition(parts_.bufferToWrite, nextPos,
                                                                               &pos) ||
            !beginArray()) {
            return false;
        }
        pos = parts_.bufferToWrite->getTailPosition();
    }
    --nodesToCome_;
    --nodesToComeInArray_;
    relocationMap_->ptNodePositions[ptNodeParams->getHeadPos()] = pos;
    return parts_.ptNodeWriter->writePtNodeAndAdvancePosition(ptNodeParams, &pos);
}

bool PlaceAndWrite::onReadingPtNodeArrayTail() {
    if (!isWriting_) return true;
    int pos = parts_.bufferToWrite->getTailPosition();
    return nodesToCome_ == 0 && DynamicPtWritingUtils::writeForwardLinkPositionAndAdvancePosition(
                                    parts_.bufferToWrite, NO_DICT_POS, &pos);
}

bool Listeners::TraversePolicyToUpdateAllPositionFields::onVisitingPtNode(const PtNodeParams* ptNodeParams) {
    int bigramCount = 0;
    return ptNodeWriter_->updateAllPositionFields(ptNodeParams, relocationMap_, &bigramCount);
}

}  // namespace wordengine
