// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/engine_constants.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wordengine {

/// What the dictionary says of one child. It is the same from whichever node the child is reached, so that
/// it is read once and serves many nodes.
struct DicNodeChild {
    int ptNodePos;
    int childrenPtNodeArrayPos;
    int codePoint;        ///< the first of its code points
    int codePointsIndex;  ///< of the first in the list's store, if there are several
    int16_t probability;
    uint8_t codePointCount;
    bool isTerminal : 1;
    bool hasChildren : 1;
    bool isBlacklistedOrNotAWord : 1;
};

/// Children with their code points, in the dictionary's order. Keeps its storage when it is emptied.
class DicNodeChildList {
public:
    void reserve(size_t childCount) {
        // The ends of rare words are children of many letters.
        constexpr size_t LETTERS_A_CHILD = 3;
        children_.reserve(childCount);
        codePoints_.reserve(LETTERS_A_CHILD * childCount);
    }

    int size() const { return static_cast<int>(children_.size()); }
    const DicNodeChild& operator[](int index) const { return children_[static_cast<size_t>(index)]; }
    const int* codePointsOf(const DicNodeChild& child) const {
        return child.codePointCount == 1 ? &child.codePoint : codePoints_.data() + child.codePointsIndex;
    }

    /// At least one code point, at most WORD_LENGTH_LIMIT.
    void add(int ptNodePos, int childrenPtNodeArrayPos, int probability, bool isTerminal, bool hasChildren,
             bool isBlacklistedOrNotAWord, int codePointCount, const int* codePoints) {
        children_.push_back({.ptNodePos = ptNodePos,
                             .childrenPtNodeArrayPos = childrenPtNodeArrayPos,
                             .codePoint = codePoints[0],
                             .codePointsIndex = static_cast<int>(codePoints_.size()),
                             .probability = static_cast<int16_t>(probability),
                             .codePointCount = static_cast<uint8_t>(codePointCount),
                             .isTerminal = isTerminal,
                             .hasChildren = hasChildren,
                             .isBlacklistedOrNotAWord = isBlacklistedOrNotAWord});
        if (codePointCount > 1)
            codePoints_.insert(codePoints_.end(), codePoints, codePoints + codePointCount);
    }

    /// What it took to read the children, lists and all; counted until it is set back.
    void countBytesRead(int byteCount) { bytesRead_ += byteCount; }
    int64_t getBytesRead() const { return bytesRead_; }
    void resetBytesRead() { bytesRead_ = 0; }

    /// Drops the children from `size` on.
    void truncate(int size) {
        if (size >= this->size()) return;
        codePoints_.resize(static_cast<size_t>((*this)[size].codePointsIndex));
        children_.resize(static_cast<size_t>(size));
    }

private:
    std::vector<DicNodeChild> children_;
    std::vector<int> codePoints_;
    int64_t bytesRead_ = 0;
};

}  // namespace wordengine
