// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"
#include "node/error_type_utils.h"

#include <algorithm>
#include <functional>

namespace wordengine {

/// Orders nodes best first, so that a heap by it has the worst on top. Costs that are nearly equal count
/// as equal, which makes it no strict weak order: what a heap does with it depends on how the heap sifts.
class DicNodeComparator {
public:
    static constexpr float DISTANCE_TOLERANCE = 0.000001f;

    bool operator()(const DicNode* left, const DicNode* right) const {
        return isBetter(*left, left, *right, right);
    }

    /// The same for nodes that count as lying at the given addresses, the last resort of the order.
    static bool isBetter(const DicNode& left, const DicNode* leftAddress, const DicNode& right,
                         const DicNode* rightAddress) {
        const bool leftIsExact = ErrorTypeUtils::isExactMatch(left.getContainedErrorTypes());
        const bool rightIsExact = ErrorTypeUtils::isExactMatch(right.getContainedErrorTypes());
        if (leftIsExact != rightIsExact) return leftIsExact;
        const float difference = right.getNormalizedCompoundDistance() - left.getNormalizedCompoundDistance();
        if (difference > DISTANCE_TOLERANCE) return true;
        if (difference < -DISTANCE_TOLERANCE) return false;
        return isBetterAtEqualDistance(left, leftAddress, right, rightAddress);
    }

private:
    static bool isBetterAtEqualDistance(const DicNode& left, const DicNode* leftAddress, const DicNode& right,
                                        const DicNode* rightAddress) {
        const int depth = left.getNodeCodePointCount();
        if (depth != right.getNodeCodePointCount()) return right.getNodeCodePointCount() > depth;
        const int* const leftWord = left.getCurrentWord();
        const int* const rightWord = right.getCurrentWord();
        const auto [leftPoint, rightPoint] = std::mismatch(leftWord, leftWord + depth, rightWord);
        if (leftPoint != leftWord + depth) return *rightPoint > *leftPoint;
        return std::greater<const DicNode*>()(leftAddress, rightAddress);
    }
};

}  // namespace wordengine
