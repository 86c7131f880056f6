// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace wordengine {

/// The children of one node while they are examined. Locked once they are counted: pointers into it stay
/// good until the next `clear`. Keeps its storage, so that a warmed-up vector allocates nothing.
class DicNodeVector {
public:
    static constexpr size_t DEFAULT_NODES_SIZE = 60;

    explicit DicNodeVector(size_t reservedSize = DEFAULT_NODES_SIZE) : dicNodes_(reservedSize) {}

    void reserve(size_t size) {
        if (dicNodes_.size() < size) dicNodes_.resize(size);
    }

    /// Empties, unlocks and drops the filter.
    void clear() {
        size_ = 0;
        rejectedCount_ = 0;
        bytesRead_ = 0;
        isLocked_ = false;
        accepts_ = nullptr;
    }

    /// Until `clear`, children are taken only if `accepts(context, first code point)`: most children of
    /// most nodes are of no use, and it is the making of nodes that costs time.
    void setFilter(bool (*accepts)(const void* context, int codePoint), const void* context) {
        accepts_ = accepts;
        filterContext_ = context;
    }

    /// Children that the filter turned away.
    int getRejectedCount() const { return rejectedCount_; }

    /// What it took to read the children, lists and all.
    void countBytesRead(int byteCount) { bytesRead_ += byteCount; }
    int64_t getBytesRead() const { return bytesRead_; }

    [[nodiscard]] int getSizeAndLock() {
        isLocked_ = true;
        return static_cast<int>(size_);
    }

    /// The next code point inside `parent`'s dictionary node.
    void pushPassingChild(const DicNode* parent) {
        if (isWanted(parent->getPassingCodePoint())) nextSlot()->initAsPassingChild(parent);
    }

    /// A child of `parent`, which stands at the end of its dictionary node.
    void pushLeavingChild(const DicNode* parent, int ptNodePos, int childrenPtNodeArrayPos, int probability,
                          bool isTerminal, bool hasChildren, bool isBlacklistedOrNotAWord,
                          int mergedNodeCodePointCount, const int* mergedNodeCodePoints) {
        if (mergedNodeCodePoints && !isWanted(mergedNodeCodePoints[0])) return;
        nextSlot()->initAsChild(parent, ptNodePos, childrenPtNodeArrayPos, probability, isTerminal,
                                hasChildren, isBlacklistedOrNotAWord, mergedNodeCodePointCount,
                                mergedNodeCodePoints);
    }

    DicNode* operator[](int index) {
        assert(static_cast<size_t>(index) < size_);
        return &dicNodes_[static_cast<size_t>(index)];
    }
    const DicNode* operator[](int index) const {
        assert(static_cast<size_t>(index) < size_);
        return &dicNodes_[static_cast<size_t>(index)];
    }

private:
    bool isWanted(int codePoint) {
        if (!accepts_ || accepts_(filterContext_, codePoint)) return true;
        ++rejectedCount_;
        return false;
    }

    DicNode* nextSlot() {
        assert(!isLocked_);
        if (size_ == dicNodes_.size()) dicNodes_.resize(dicNodes_.size() * 2 + 1);
        return &dicNodes_[size_++];
    }

    // Slots beyond the size are old nodes, waiting to be overwritten.
    std::vector<DicNode> dicNodes_;
    size_t size_ = 0;
    int rejectedCount_ = 0;
    int64_t bytesRead_ = 0;
    bool isLocked_ = false;
    bool (*accepts_)(const void* context, int codePoint) = nullptr;
    const void* filterContext_ = nullptr;
};

}  // namespace wordengine
