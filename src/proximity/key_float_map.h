// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/proximity_params.h"
#include "text/engine_constants.h"

#include <array>
#include <bit>
#include <cstdint>

namespace wordengine {

/// A map from key index to float in one flat block, so that a trace's points allocate nothing of their
/// own. NO_INDEX is a key like any other; it comes last in `forEach`, after the keys in rising order.
class KeyFloatMap {
public:
    void clear() {
        keys_ = 0;
        hasNoIndex_ = false;
    }
    bool empty() const { return keys_ == 0 && !hasNoIndex_; }

    bool contains(int keyIndex) const {
        if (keyIndex == NO_INDEX) return hasNoIndex_;
        return keyIndex >= 0 && keyIndex < KEY_COUNT_LIMIT && (keys_ >> keyIndex & 1) != 0;
    }

    /// `keyIndex` is NO_INDEX or below KEY_COUNT_LIMIT.
    void set(int keyIndex, float value) {
        if (keyIndex == NO_INDEX) {
            hasNoIndex_ = true;
        } else {
            keys_ |= uint64_t{1} << keyIndex;
        }
        values_[slotOf(keyIndex)] = value;
    }

    /// The entry, or `absent` where there is none.
    float get(int keyIndex, float absent) const {
        return contains(keyIndex) ? values_[slotOf(keyIndex)] : absent;
    }

    void erase(int keyIndex) {
        if (keyIndex == NO_INDEX) {
            hasNoIndex_ = false;
        } else {
            keys_ &= ~(uint64_t{1} << keyIndex);
        }
    }

    /// Calls `visit(keyIndex, value)`; entries may be set or erased meanwhile, but are then not revisited.
    template <typename Visit>
    void forEach(Visit visit) const {
        forEachKey(visit);
        if (hasNoIndex_) visit(NO_INDEX, values_[slotOf(NO_INDEX)]);
    }

    /// The same without the entry of NO_INDEX.
    template <typename Visit>
    void forEachKey(Visit visit) const {
        for (uint64_t left = keys_; left != 0; left &= left - 1) {
            const int keyIndex = std::countr_zero(left);
            visit(keyIndex, values_[slotOf(keyIndex)]);
        }
    }

private:
    static int slotOf(int keyIndex) { return keyIndex + 1; }

    uint64_t keys_ = 0;
    bool hasNoIndex_ = false;
    std::array<float, KEY_COUNT_LIMIT + 1> values_{};
};

/// Which keys are near a raw point, and how near.
using NearKeysDistanceMap = KeyFloatMap;

}  // namespace wordengine
