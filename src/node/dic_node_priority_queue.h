// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"
#include "node/dic_node_comparator.h"
#include "node/dic_node_pool.h"

#include <vector>

namespace wordengine {

/// The best `maxSize` nodes of all that were pushed. Owns copies; allocates only when it is to hold more
/// than it ever did.
class DicNodePriorityQueue {
public:
    explicit DicNodePriorityQueue(int maxSize);

    int getSize() const { return static_cast<int>(heap_.size()); }
    int getMaxSize() const { return maxSize_; }
    /// Changes the limit alone: what is stored stays, and so does the room for it.
    void setMaxSize(int maxSize) { maxSize_ = maxSize; }

    void clear() { clearAndResize(maxSize_); }
    void clearAndResize(int maxSize);

    /// Stores a copy if there is room or if it is better than the worst, which then falls out; whether it
    /// is stored.
    bool copyPush(const DicNode* dicNode);

    /// Takes the worst node out, into `dest` if that is not null. Does nothing on an empty queue.
    void copyPop(DicNode* dest);

private:
    void push(DicNode* instance);
    void pop();

    int maxSize_;
    std::vector<DicNode*> heap_;
    // One node more than the heap may hold: the newcomer that is still being judged.
    DicNodePool pool_;
};

}  // namespace wordengine
