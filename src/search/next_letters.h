// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"
#include "search/children_cache.h"

namespace wordengine {

/// The letters that may follow a node, seen before a node is made for any of them: most are of no use, and
/// it is the making of nodes that costs time. The parent and the cache must outlive it; several may be in
/// use as long as they end in the reverse order.
class NextLetters {
public:
    /// None at all.
    NextLetters() = default;
    /// Adds the number of letters to `*count`.
    NextLetters(const DicNode* parent, ChildrenCache* cache, int* count) : parent_(parent), cache_(cache) {
        if (parent->isTotalInputSizeExceedingLimit()) return;
        if (!parent->isLeavingNode()) {
            isPassing_ = true;
            range_.end = 1;
        } else if (parent->hasChildren()) {
            range_ = cache->take(parent->getChildrenPtNodeArrayPos());
            isTaken_ = true;
        }
        *count += range_.end - range_.begin;
    }
    ~NextLetters() {
        if (isTaken_) cache_->giveBack(range_);
    }
    NextLetters(const NextLetters&) = delete;
    NextLetters& operator=(const NextLetters&) = delete;

    int begin() const { return range_.begin; }
    int end() const { return range_.end; }

    /// `index` is from `begin()` up to `end()`.
    int codePointAt(int index) const {
        return isPassing_ ? parent_->getPassingCodePoint() : (*cache_)[index].codePoint;
    }

    void initNode(int index, DicNode* outDicNode) const {
        initNodeWithoutWords(index, outDicNode);
        giveWords(index, outDicNode);
    }

    /// As `initNode`, in two steps: without its words a node can be charged and compared by its costs.
    void initNodeWithoutWords(int index, DicNode* outDicNode) const {
        if (isPassing_) {
            outDicNode->initAsPassingChildWithoutWords(parent_);
        } else {
            outDicNode->initAsChildWithoutWords(parent_, (*cache_)[index]);
        }
    }
    void giveWords(int index, DicNode* outDicNode) const {
        outDicNode->takeWordsOf(parent_);
        if (isPassing_) return;
        const DicNodeChild& child = (*cache_)[index];
        outDicNode->addCodePoints(child.codePointCount, cache_->codePointsOf(child));
    }

private:
    const DicNode* parent_ = nullptr;
    ChildrenCache* cache_ = nullptr;
    ChildrenCache::Range range_;
    bool isPassing_ = false;
    bool isTaken_ = false;
};

}  // namespace wordengine
