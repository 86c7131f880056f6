// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"
#include "node/error_type_utils.h"

#include <algorithm>
#include <functional>

namespace wordengine {

/// A node with what it is ordered by first, at hand: most comparisons need not look at the node itself.
struct RankedDicNode {
    RankedDicNode() = default;
    explicit RankedDicNode(DicNode* node) : RankedDicNode(*node, node) {}
    /// For a node that counts as lying at the given address.
    RankedDicNode(const DicNode& node, DicNode* address)
        : dicNode(address),
          distance(node.getNormalizedCompoundDistance()),
          isExact(ErrorTypeUtils::isExactMatch(node.getContainedErrorTypes())) {}

    DicNode* dicNode = nullptr;
    float distance = 0.0f;
    bool isExact = false;
};

/// Orders nodes best first. Costs that are nearly equal count as equal, which makes it no strict weak order
/// over nodes of many costs: no standard algorithm may sort by it.
class DicNodeComparator {
public:
    static constexpr float DISTANCE_TOLERANCE = 0.000001f;

    bool operator()(const DicNode* left, const DicNode* right) const {
        return isBetter(RankedDicNode(*left, nullptr), *left, left, RankedDicNode(*right, nullptr), *right,
                        right);
    }

    bool operator()(const RankedDicNode& left, const RankedDicNode& right) const {
        return isBetter(left, *left.dicNode, left.dicNode, right, *right.dicNode, right.dicNode);
    }

    /// Whether a node that is not stored yet, but would lie at `address`, goes before a stored one.
    static bool isNewcomerBetter(const DicNode& newcomer, DicNode* address, const RankedDicNode& stored) {
        return isBetter(RankedDicNode(newcomer, address), newcomer, address, stored, *stored.dicNode,
                        stored.dicNode);
    }

    /// Whether any node of this exactness and distance might go before `stored`, whatever its word.
    static bool mayBeBetter(bool isExact, float distance, const RankedDicNode& stored) {
        if (isExact != stored.isExact) return isExact;
        return stored.distance - distance >= -DISTANCE_TOLERANCE;
    }

    /// Whether the words must tell.
    static bool isTie(const RankedDicNode& left, const RankedDicNode& right) {
        const float difference = right.distance - left.distance;
        return left.isExact == right.isExact && difference <= DISTANCE_TOLERANCE &&
               difference >= -DISTANCE_TOLERANCE;
    }

    /// A strict order over nodes that are tied.
    static bool isBetterAtEqualDistance(const DicNode& left, const DicNode* leftAddress, const DicNode& right,
                                        const DicNode* rightAddress) {
        const int depth = left.getNodeCodePointCount();
        if (depth != right.getNodeCodePointCount()) return right.getNodeCodePointCount() > depth;
        const int* const leftWord = left.getCurrentWord();
        const int* const rightWord = right.getCurrentWord();
        const auto [leftPoint, rightPoint] = std::mismatch(leftWord, leftWord + depth, rightWord);
        if (leftPoint != leftWord + depth) return *rightPoint > *leftPoint;
        return isBetterAtEqualWord(left, leftAddress, right, rightAddress);
    }

private:
    /// Words of a phrase may be equal at its end only. Where nodes lie tells last of all: it is chance.
    static bool isBetterAtEqualWord(const DicNode& left, const DicNode* leftAddress, const DicNode& right,
                                    const DicNode* rightAddress) {
        const int leftLength = left.getTotalNodeCodePointCount();
        const int rightLength = right.getTotalNodeCodePointCount();
        if (leftLength != rightLength) return leftLength < rightLength;
        const int* const leftPhrase = left.getOutputWordBuf();
        const int* const leftEnd = leftPhrase + std::min(leftLength, WORD_LENGTH_LIMIT);
        const auto [leftPoint, rightPoint] = std::mismatch(leftPhrase, leftEnd, right.getOutputWordBuf());
        if (leftPoint != leftEnd) return *rightPoint > *leftPoint;
        if (left.getInputIndex(0) != right.getInputIndex(0)) {
            return left.getInputIndex(0) > right.getInputIndex(0);
        }
        if (left.getContainedErrorTypes() != right.getContainedErrorTypes()) {
            return left.getContainedErrorTypes() < right.getContainedErrorTypes();
        }
        if (left.getEditCorrectionCount() != right.getEditCorrectionCount()) {
            return left.getEditCorrectionCount() < right.getEditCorrectionCount();
        }
        if (left.getNormalizedCompoundDistance() != right.getNormalizedCompoundDistance()) {
            return left.getNormalizedCompoundDistance() < right.getNormalizedCompoundDistance();
        }
        return std::greater<const DicNode*>()(leftAddress, rightAddress);
    }

    static bool isBetter(const RankedDicNode& left, const DicNode& leftNode, const DicNode* leftAddress,
                         const RankedDicNode& right, const DicNode& rightNode, const DicNode* rightAddress) {
        if (left.isExact != right.isExact) return left.isExact;
        const float difference = right.distance - left.distance;
        if (difference > DISTANCE_TOLERANCE) return true;
        if (difference < -DISTANCE_TOLERANCE) return false;
        return isBetterAtEqualDistance(leftNode, leftAddress, rightNode, rightAddress);
    }
};

}  // namespace wordengine
