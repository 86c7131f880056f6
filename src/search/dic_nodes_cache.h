// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"
#include "node/dic_node_priority_queue.h"

namespace wordengine {

/// The bounded queues of a search: the nodes of this pass, those of the next one, those kept for a longer
/// input, and finished words. Passes swap queues, they never move nodes.
class DicNodesCache {
public:
    static constexpr int LARGE_PRIORITY_QUEUE_CAPACITY = 310;
    static constexpr int SMALL_PRIORITY_QUEUE_CAPACITY = 100;

    explicit DicNodesCache(bool usesLargeCapacityCache);
    virtual ~DicNodesCache() = default;

    // The queues are swapped through pointers into the object.
    DicNodesCache(const DicNodesCache&) = delete;
    DicNodesCache& operator=(const DicNodesCache&) = delete;

    /// Starts a fresh search. The capacity bounds both limits.
    void reset(int nextActiveSize, int terminalSize);
    /// Starts from the nodes kept by the last search instead, at their place in the input.
    void continueSearch();
    /// The nodes of the next pass become those of this one.
    void advanceActiveDicNodes();
    void advanceInputIndex(int inputSize) {
        if (inputIndex_ < inputSize) ++inputIndex_;
    }

    int activeSize() const { return activeDicNodes_->getSize(); }
    int terminalSize() const { return terminalDicNodes_->getSize(); }
    bool hasCachedDicNodesForContinuousSuggestion() const {
        return cachedDicNodesForContinuousSuggestion_->getSize() > 0;
    }

    /// The worst node first.
    void popActive(DicNode* dest) { activeDicNodes_->copyPop(dest); }
    /// All of them where they lie, the best first; good until the queues are swapped.
    std::span<const RankedDicNode> activeInOrder() { return activeDicNodes_->inOrder(); }
    void popTerminal(DicNode* dest) { terminalDicNodes_->copyPop(dest); }

    void copyPushActive(const DicNode* dicNode) { activeDicNodes_->copyPush(dicNode); }
    void copyPushNextActive(const DicNode* dicNode) { nextActiveDicNodes_->copyPush(dicNode); }
    void copyPushTerminal(const DicNode* dicNode) { terminalDicNodes_->copyPush(dicNode); }
    /// Whether words that go on from the node, which is past the input and can only become worse, might be
    /// among the best.
    bool mayBecomeTerminal(const DicNode* dicNode) const { return mayTakeTerminal(dicNode); }
    DicNode* lendPlaceInNextActive() { return nextActiveDicNodes_->lendPlace(); }
    void pushNextActiveInPlace(DicNode* dicNode) { nextActiveDicNodes_->pushInPlace(dicNode); }
    void giveBackPlaceInNextActive(DicNode* dicNode) { nextActiveDicNodes_->giveBackPlace(dicNode); }
    bool mayTakeNextActive(const DicNode* dicNode) const {
        return nextActiveDicNodes_->mayTake(ErrorTypeUtils::isExactMatch(dicNode->getContainedErrorTypes()),
                                            dicNode->getNormalizedCompoundDistance());
    }
    /// Whether a finished word of this exactness and distance might be among the best.
    bool mayTakeTerminal(const DicNode* dicNode) const {
        return terminalDicNodes_->mayTake(ErrorTypeUtils::isExactMatch(dicNode->getContainedErrorTypes()),
                                          dicNode->getNormalizedCompoundDistance());
    }
    void copyPushContinue(const DicNode* dicNode) {
        cachedDicNodesForContinuousSuggestion_->copyPush(dicNode);
    }

    /// Whether this pass stands where nodes are kept: once, three points before the end.
    bool isCacheBorderForTyping(int inputSize) const {
        const int cacheBorder = inputSize - CACHE_BACK_LENGTH;
        return inputIndex_ == cacheBorder && lastCachedInputIndex_ != cacheBorder;
    }
    void updateLastCachedInputIndex() { lastCachedInputIndex_ = inputIndex_; }
    /// Whether a node at this place waited one pass for the point after its own.
    bool isLookAheadCorrectionInputIndex(int inputIndex) const { return inputIndex == inputIndex_ - 1; }

private:
    static constexpr int CACHE_BACK_LENGTH = 3;

    int getCapacity() const {
        return usesLargeCapacityCache_ ? LARGE_PRIORITY_QUEUE_CAPACITY : SMALL_PRIORITY_QUEUE_CAPACITY;
    }
    void makeActive(DicNodePriorityQueue** incoming);

    const bool usesLargeCapacityCache_;
    DicNodePriorityQueue queues_[4];
    DicNodePriorityQueue* activeDicNodes_;
    DicNodePriorityQueue* nextActiveDicNodes_;
    DicNodePriorityQueue* cachedDicNodesForContinuousSuggestion_;
    DicNodePriorityQueue* terminalDicNodes_;
    int inputIndex_ = 0;
    int lastCachedInputIndex_ = 0;
};

}  // namespace wordengine
