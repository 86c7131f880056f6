// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"

#include <cassert>
#include <cstddef>
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

    /// Empties and unlocks.
    void clear() {
        size_ = 0;
        isLocked_ = false;
    }

    [[nodiscard]] int getSizeAndLock() {
        isLocked_ = true;
        return static_cast<int>(size_);
    }

    /// The next code point inside `parent`'s dictionary node.
    void pushPassingChild(const DicNode* parent) { nextSlot()->initAsPassingChild(parent); }

    /// A child of `parent`, which stands at the end of its dictionary node.
    void pushLeavingChild(const DicNode* parent, const DicNodeChild& child, const int* codePoints) {
        nextSlot()->initAsChild(parent, child, codePoints);
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
    DicNode* nextSlot() {
        assert(!isLocked_);
        if (size_ == dicNodes_.size()) dicNodes_.resize(dicNodes_.size() * 2 + 1);
        return &dicNodes_[size_++];
    }

    // Slots beyond the size are old nodes, waiting to be overwritten.
    std::vector<DicNode> dicNodes_;
    size_t size_ = 0;
    bool isLocked_ = false;
};

}  // namespace wordengine
