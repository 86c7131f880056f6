// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node_child.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wordengine {

class DictionaryStructureWithBufferPolicy;

/// The children that a search has read from a dictionary, by the array of nodes that holds them. A search
/// comes to the same arrays again and again: by several slips, and with every further letter. Its storage
/// is made once; what would not fit is read anew each time.
class ChildrenCache {
public:
    /// Indices of children, from `begin` up to `end`.
    struct Range {
        int begin = 0;
        int end = 0;
    };

    ChildrenCache();

    /// Before each request. What was kept of another dictionary is forgotten, and of this one if it is
    /// much: ranges handed out before are void.
    void attach(const DictionaryStructureWithBufferPolicy* policy);

    /// Bytes of the dictionary that had to be read for the request.
    int64_t getBytesRead() const { return children_.getBytesRead(); }

    /// The children in the array. Give the range back, the last one taken first.
    Range take(int ptNodeArrayPos) {
        const Slot& slot = slots_[slotIndexOf(ptNodeArrayPos)];
        if (slot.ptNodeArrayPos != ptNodeArrayPos) return read(ptNodeArrayPos);
        return {slot.begin, slot.begin + slot.count};
    }
    void giveBack(Range range) {
        // Storage beyond the limit is lent for the moment.
        if (range.begin >= CHILD_LIMIT) children_.truncate(range.begin);
    }

    const DicNodeChild& operator[](int index) const { return children_[index]; }
    const int* codePointsOf(const DicNodeChild& child) const { return children_.codePointsOf(child); }

private:
    /// Children kept, some hundred kilobytes: those of a few words and all their near misses.
    static constexpr int CHILD_LIMIT = 32768;
    static constexpr int SLOT_BITS = 14;

    struct Slot {
        int ptNodeArrayPos = NO_DICT_POS;
        uint16_t begin = 0;
        uint16_t count = 0;
    };

    static size_t slotIndexOf(int ptNodeArrayPos) {
        constexpr uint32_t GOLDEN_RATIO = 0x9E3779B9;
        return (static_cast<uint32_t>(ptNodeArrayPos) * GOLDEN_RATIO) >> (32 - SLOT_BITS);
    }

    Range read(int ptNodeArrayPos);
    void clear();

    const DictionaryStructureWithBufferPolicy* policy_ = nullptr;
    uint64_t identity_ = 0;
    DicNodeChildList children_;
    /// One array a slot: of two that fall on the same, the later stays.
    std::vector<Slot> slots_;
};

}  // namespace wordengine
