// SPDX-License-Identifier: Apache-2.0
#include "search/dic_nodes_cache.h"

#include <algorithm>
#include <utility>

namespace wordengine {

DicNodesCache::DicNodesCache(bool usesLargeCapacityCache)
    : usesLargeCapacityCache_(usesLargeCapacityCache),
      queues_{DicNodePriorityQueue(getCapacity()), DicNodePriorityQueue(getCapacity()),
              DicNodePriorityQueue(getCapacity()), DicNodePriorityQueue(getCapacity())},
      activeDicNodes_(&queues_[0]),
      nextActiveDicNodes_(&queues_[1]),
      cachedDicNodesForContinuousSuggestion_(&queues_[2]),
      terminalDicNodes_(&queues_[3]) {}

void DicNodesCache::reset(int nextActiveSize, int terminalSize) {
    inputIndex_ = 0;
    lastCachedInputIndex_ = 0;
    activeDicNodes_->clear();
    nextActiveDicNodes_->clearAndResize(std::min(nextActiveSize, getCapacity()));
    terminalDicNodes_->clearAndResize(std::min(terminalSize, getCapacity()));
    cachedDicNodesForContinuousSuggestion_->clear();
}

void DicNodesCache::continueSearch() {
    activeDicNodes_->clear();
    nextActiveDicNodes_->clear();
    terminalDicNodes_->clear();
    inputIndex_ = lastCachedInputIndex_;
    makeActive(&cachedDicNodesForContinuousSuggestion_);
}

void DicNodesCache::advanceActiveDicNodes() {
    makeActive(&nextActiveDicNodes_);
}

void DicNodesCache::makeActive(DicNodePriorityQueue** incoming) {
    const int activeMaxSize = activeDicNodes_->getMaxSize();
    const int incomingMaxSize = (*incoming)->getMaxSize();
    std::swap(activeDicNodes_, *incoming);
    activeDicNodes_->setMaxSize(activeMaxSize);
    (*incoming)->clearAndResize(incomingMaxSize);
}

}  // namespace wordengine
