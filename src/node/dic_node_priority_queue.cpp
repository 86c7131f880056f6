// SPDX-License-Identifier: Apache-2.0
#include "node/dic_node_priority_queue.h"

#include <algorithm>

namespace wordengine {

namespace {

/// Newcomers collected beyond the limit before the best are picked: few enough to stay in the processor's
/// cache, enough to make picking rare.
int roomFor(int maxSize) {
    return maxSize <= 0 ? 0 : maxSize + maxSize / 2 + 1;
}

/// By exactness and distance alone, and so a strict order.
bool isNearer(const RankedDicNode& left, const RankedDicNode& right) {
    return left.isExact != right.isExact ? left.isExact : left.distance < right.distance;
}

bool isBetterWord(const RankedDicNode& left, const RankedDicNode& right) {
    return DicNodeComparator::isBetterAtEqualDistance(*left.dicNode, left.dicNode, *right.dicNode,
                                                      right.dicNode);
}

}  // namespace

void DicNodePriorityQueue::clearAndResize(int maxSize) {
    maxSize_ = maxSize;
    const auto room = static_cast<size_t>(roomFor(maxSize));
    nodes_.clear();
    nodes_.reserve(room);
    ties_.reserve(room);
    pool_.reset(roomFor(maxSize));
    isSorted_ = true;
    bound_ = RankedDicNode();
}

bool DicNodePriorityQueue::copyPushLikely(const DicNode* dicNode) {
    if (maxSize_ <= 0) return false;
    if (bound_.dicNode && !DicNodeComparator::isNewcomerBetter(*dicNode, nullptr, bound_)) return false;
    DicNode* const instance = pool_.getInstance();
    if (!instance) return false;
    instance->initByCopy(dicNode);
    store(instance);
    return true;
}

void DicNodePriorityQueue::store(DicNode* instance) {
    const RankedDicNode newcomer(instance);
    isSorted_ = isSorted_ && (nodes_.empty() || !DicNodeComparator()(newcomer, nodes_.back()));
    nodes_.push_back(newcomer);
    const int size = static_cast<int>(nodes_.size());
    if (isSorted_ && size == maxSize_) bound_ = newcomer;
    if (size >= roomFor(maxSize_)) keepBest();
}

void DicNodePriorityQueue::copyPop(DicNode* dest) {
    if (inOrder().empty()) return;
    DicNode* const worst = nodes_.back().dicNode;
    if (dest) dest->initByCopy(worst);
    nodes_.pop_back();
    pool_.placeBackInstance(worst);
    bound_ = RankedDicNode();
}

std::span<const RankedDicNode> DicNodePriorityQueue::inOrder() {
    keepBest();
    if (!isSorted_) sort();
    return nodes_;
}

void DicNodePriorityQueue::keepBest() {
    const auto keptCount = static_cast<size_t>(std::max(maxSize_, 0));
    if (nodes_.size() <= keptCount) return;
    std::nth_element(nodes_.begin(), nodes_.begin() + static_cast<std::ptrdiff_t>(keptCount), nodes_.end(),
                     isNearer);
    if (keptCount > 0) settleTies(keptCount);
    for (size_t i = keptCount; i < nodes_.size(); ++i) pool_.placeBackInstance(nodes_[i].dicNode);
    nodes_.resize(keptCount);
    isSorted_ = false;
    bound_ = keptCount > 0 ? findWorst() : RankedDicNode();
}

/// Costs that are nearly equal count as equal: of the nodes on both sides of the cut that do, those with the
/// better words are to be kept.
void DicNodePriorityQueue::settleTies(size_t keptCount) {
    const auto cut = nodes_.begin() + static_cast<std::ptrdiff_t>(keptCount);
    const RankedDicNode firstOut = *cut;
    const RankedDicNode lastIn = *std::max_element(nodes_.begin(), cut, isNearer);
    if (!DicNodeComparator::isTie(lastIn, firstOut)) return;
    const auto isTied = [&](const RankedDicNode& node) {
        return DicNodeComparator::isTie(node, lastIn) || DicNodeComparator::isTie(node, firstOut);
    };
    ties_.clear();
    std::copy_if(nodes_.begin(), nodes_.end(), std::back_inserter(ties_), isTied);
    const auto tiesIn = std::count_if(nodes_.begin(), cut, isTied);
    std::nth_element(ties_.begin(), ties_.begin() + tiesIn - 1, ties_.end(), isBetterWord);
    auto tie = ties_.begin();
    for (RankedDicNode& node : nodes_) {
        if (isTied(node)) node = *tie++;
    }
}

RankedDicNode DicNodePriorityQueue::findWorst() const {
    const RankedDicNode farthest = *std::max_element(nodes_.begin(), nodes_.end(), isNearer);
    RankedDicNode worst = farthest;
    for (const RankedDicNode& node : nodes_) {
        if (DicNodeComparator::isTie(node, farthest) && isBetterWord(worst, node)) worst = node;
    }
    return worst;
}

/// By distance, and within a stretch of equal distances by word.
void DicNodePriorityQueue::sort() {
    std::sort(nodes_.begin(), nodes_.end(), isNearer);
    for (auto first = nodes_.begin(); first != nodes_.end();) {
        const auto last = std::find_if(first + 1, nodes_.end(), [&](const RankedDicNode& node) {
            return !DicNodeComparator::isTie(*first, node);
        });
        if (last - first > 1) std::sort(first, last, isBetterWord);
        first = last;
    }
    isSorted_ = true;
}

}  // namespace wordengine
