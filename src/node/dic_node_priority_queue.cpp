// SPDX-License-Identifier: Apache-2.0
#include "node/dic_node_priority_queue.h"

#include <algorithm>

namespace wordengine {

DicNodePriorityQueue::DicNodePriorityQueue(int maxSize) : maxSize_(maxSize), pool_(maxSize + 1) {
    heap_.reserve(static_cast<size_t>(std::max(maxSize, 0)));
}

void DicNodePriorityQueue::clearAndResize(int maxSize) {
    maxSize_ = maxSize;
    heap_.clear();
    heap_.reserve(static_cast<size_t>(std::max(maxSize, 0)));
    pool_.reset(maxSize + 1);
}

bool DicNodePriorityQueue::copyPush(const DicNode* dicNode) {
    DicNode* const instance = pool_.getInstance();
    if (!instance) return false;
    if (getSize() >= maxSize_) {
        // Judged before it is copied: most newcomers at a full queue are turned away.
        if (heap_.empty() ||
            !DicNodeComparator::isBetter(*dicNode, instance, *heap_.front(), heap_.front())) {
            pool_.placeBackInstance(instance);
            return false;
        }
        pool_.placeBackInstance(heap_.front());
        pop();
    }
    instance->initByCopy(dicNode);
    push(instance);
    return true;
}

void DicNodePriorityQueue::copyPop(DicNode* dest) {
    if (heap_.empty()) return;
    DicNode* const worst = heap_.front();
    if (dest) dest->initByCopy(worst);
    pool_.placeBackInstance(worst);
    pop();
}

void DicNodePriorityQueue::push(DicNode* instance) {
    heap_.push_back(instance);
    std::push_heap(heap_.begin(), heap_.end(), DicNodeComparator());
}

void DicNodePriorityQueue::pop() {
    std::pop_heap(heap_.begin(), heap_.end(), DicNodeComparator());
    heap_.pop_back();
}

}  // namespace wordengine
