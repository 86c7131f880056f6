// SPDX-License-Identifier: Apache-2.0
#include "dictionary/trie/dynamic_pt_reading_helper.h"
#include "dictionary/trie/pt_node_params.h"

#include <algorithm>

namespace wordengine {

bool DynamicPtReadingHelper::traverseAllPtNodesInPostorderDepthFirstManner(
    TraversingEventListener* listener) {
    bytesOfWalk_ = 0;
    bool haveChildrenBeenSeen = false;
    if (!listener->onDescend(getPosOfLastPtNodeArrayHead())) return false;
    for (;;) {
        if (isEnd()) {
            if (isError() || !listener->onReadingPtNodeArrayTail()) return false;
            if (readingStateStack_.empty()) return true;
            if (!listener->onAscend()) return false;
            popReadingState();
            haveChildrenBeenSeen = true;
        }
        const PtNodeParams ptNodeParams = getPtNodeParams();
        if (!haveChildrenBeenSeen && !countNodeOfWalk(ptNodeParams)) return false;
        if (!haveChildrenBeenSeen && ptNodeParams.hasChildren()) {
            if (!listener->onDescend(ptNodeParams.getChildrenPos()) || !pushReadingState()) return false;
            goToChildren(ptNodeParams);
        } else {
            if (!listener->onVisitingPtNode(&ptNodeParams)) return false;
            goToNextSibling(ptNodeParams);
            haveChildrenBeenSeen = false;
        }
    }
}

bool DynamicPtReadingHelper::traverseAllPtNodesInPtNodeArrayLevelPreorderDepthFirstManner(
    TraversingEventListener* listener) {
    bytesOfWalk_ = 0;
    // An array is gone through twice: its nodes are visited, then, from the saved start, descended into.
    bool hasArrayBeenVisited = false;
    if (!listener->onDescend(getPosOfLastPtNodeArrayHead()) || !pushReadingState()) return false;
    for (;;) {
        if (isEnd()) {
            if (isError()) return false;
            if (!hasArrayBeenVisited) {
                if (!listener->onReadingPtNodeArrayTail()) return false;
                hasArrayBeenVisited = true;
            } else {
                if (readingStateStack_.empty()) return true;
                if (!listener->onAscend()) return false;
            }
            popReadingState();
            continue;
        }
        const PtNodeParams ptNodeParams = getPtNodeParams();
        if (!hasArrayBeenVisited) {
            if (!countNodeOfWalk(ptNodeParams) || !listener->onVisitingPtNode(&ptNodeParams)) return false;
            goToNextSibling(ptNodeParams);
        } else if (!ptNodeParams.hasChildren()) {
            goToNextSibling(ptNodeParams);
        } else {
            if (!listener->onDescend(ptNodeParams.getChildrenPos())) return false;
            if (!descendWithReturnToNextSibling(ptNodeParams)) return false;
            hasArrayBeenVisited = false;
        }
    }
}

bool DynamicPtReadingHelper::descendWithReturnToNextSibling(const PtNodeParams& ptNodeParams) {
    const PtNodeReadingState stateAtNode = readingState_;
    goToNextSibling(ptNodeParams);
    if (isError() || !pushReadingState()) return false;
    readingState_ = stateAtNode;
    goToChildren(ptNodeParams);
    return !isError() && pushReadingState();
}

bool DynamicPtReadingHelper::pushReadingState() {
    if (readingStateStack_.size() > MAX_READING_STATE_STACK_SIZE) {
        endWithError();
        return false;
    }
    readingStateStack_.push_back(readingState_);
    return true;
}

void DynamicPtReadingHelper::popReadingState() {
    readingState_ = readingStateStack_.back();
    readingStateStack_.pop_back();
}

bool DynamicPtReadingHelper::countNodeOfWalk(const PtNodeParams& ptNodeParams) {
    // The nodes of a sound trie share no bytes. A walk that has read more than there is goes through
    // subtrees that hang in several places, and could go on for ages.
    if (ptNodeParams.isValid()) {
        bytesOfWalk_ += std::max(ptNodeParams.getSiblingNodePos() - readingState_.pos, 1);
    }
    if (!ptNodeParams.isValid() || bytesOfWalk_ > trieSize_) {
        endWithError();
        return false;
    }
    return true;
}

}  // namespace wordengine
