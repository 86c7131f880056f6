// SPDX-License-Identifier: Apache-2.0
#include "search/children_cache.h"

#include "dictionary/dictionary_structure_with_buffer_policy.h"

namespace wordengine {

ChildrenCache::ChildrenCache() : slots_(size_t{1} << SLOT_BITS) {
    // The array that crosses the limit is the last one kept.
    constexpr size_t USUAL_ARRAY_SIZE = 256;
    children_.reserve(CHILD_LIMIT + USUAL_ARRAY_SIZE);
}

void ChildrenCache::attach(const DictionaryStructureWithBufferPolicy* policy) {
    policy_ = policy;
    children_.resetBytesRead();
    if (identity_ == policy->getIdentity() && children_.size() < CHILD_LIMIT) return;
    identity_ = policy->getIdentity();
    clear();
}

void ChildrenCache::clear() {
    children_.truncate(0);
    slots_.assign(slots_.size(), Slot());
}

ChildrenCache::Range ChildrenCache::read(int ptNodeArrayPos) {
    Range range{children_.size(), 0};
    policy_->readChildren(ptNodeArrayPos, &children_);
    range.end = children_.size();
    if (range.begin < CHILD_LIMIT) {
        // An array has fewer than 32768 nodes.
        slots_[slotIndexOf(ptNodeArrayPos)] = {ptNodeArrayPos, static_cast<uint16_t>(range.begin),
                                               static_cast<uint16_t>(range.end - range.begin)};
    }
    return range;
}

}  // namespace wordengine
