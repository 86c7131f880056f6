// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"
#include "node/dic_node_comparator.h"
#include "node/dic_node_pool.h"

#include <span>
#include <vector>

namespace wordengine {

/// The best `maxSize` nodes of all that were pushed. Owns copies; allocates only when it is to hold more
/// than it ever did.
///
/// It is filled first and read afterwards, which is why it keeps no heap: newcomers are collected, and once
/// there are too many the better ones are picked out all at once. As long as they come in order, the best
/// first, which those of a word's completions do, nothing has to be picked at all.
class DicNodePriorityQueue {
public:
    explicit DicNodePriorityQueue(int maxSize) : pool_(0) { clearAndResize(maxSize); }

    int getSize() const { return std::min(static_cast<int>(nodes_.size()), std::max(maxSize_, 0)); }
    int getMaxSize() const { return maxSize_; }
    /// Changes the limit of a queue that is to be read: what is stored stays, as far as it is not worse
    /// than the old limit and the new one allow.
    void setMaxSize(int maxSize) {
        keepBest();
        maxSize_ = maxSize;
    }

    void clear() { clearAndResize(maxSize_); }
    void clearAndResize(int maxSize);

    /// Stores a copy if there is room or if it is better than the worst, which then falls out; whether it
    /// is stored, for now at least.
    bool copyPush(const DicNode* dicNode) {
        if (!mayTake(ErrorTypeUtils::isExactMatch(dicNode->getContainedErrorTypes()),
                     dicNode->getNormalizedCompoundDistance())) {
            return false;
        }
        return copyPushLikely(dicNode);
    }

    /// A place for a node that is sure to be stored if it is pushed, so that it can be made where it will
    /// lie; null while only better nodes are. Push it or give it back before anything else is done.
    DicNode* lendPlace() { return bound_.dicNode || maxSize_ <= 0 ? nullptr : pool_.getInstance(); }
    void pushInPlace(DicNode* dicNode) { store(dicNode); }
    void giveBackPlace(DicNode* dicNode) { pool_.placeBackInstance(dicNode); }

    /// Whether a node of this exactness and distance might be stored, whatever its word.
    bool mayTake(bool isExact, float distance) const {
        return !bound_.dicNode || DicNodeComparator::mayBeBetter(isExact, distance, bound_);
    }

    /// Takes the worst node out, into `dest` if that is not null. Does nothing on an empty queue.
    void copyPop(DicNode* dest);

    /// The nodes, the best first; good until the queue is changed.
    std::span<const RankedDicNode> inOrder();

private:
    bool copyPushLikely(const DicNode* dicNode);
    void store(DicNode* instance);
    void keepBest();
    void settleTies(size_t keptCount);
    RankedDicNode findWorst() const;
    void sort();
    bool isFull() const { return static_cast<int>(nodes_.size()) >= maxSize_; }

    int maxSize_ = 0;
    /// More than the limit until the best are picked.
    std::vector<RankedDicNode> nodes_;
    std::vector<RankedDicNode> ties_;
    bool isSorted_ = true;
    /// A node that is better than this one or not stored; null while there is room for any.
    RankedDicNode bound_;
    DicNodePool pool_;
};

}  // namespace wordengine
