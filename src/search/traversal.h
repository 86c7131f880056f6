// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/proximity_type.h"

namespace wordengine {

class DicNode;
class DicTraverseSession;

/// What a search may try.
class Traversal {
public:
    virtual int getMaxPointerCount() const = 0;
    /// False once the touches are already too far off to assume further slips.
    virtual bool allowsErrorCorrections(const DicNode* dicNode) const = 0;
    /// Whether `childDicNode`'s letter may have been left out.
    virtual bool isOmission(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                            const DicNode* childDicNode, bool allowsErrorCorrections) const = 0;
    /// Whether the next point may have been meant as the space behind the word that ends here.
    virtual bool isSpaceSubstitutionTerminal(const DicTraverseSession* traverseSession,
                                             const DicNode* dicNode) const = 0;
    /// Whether the space behind the word that ends here may have been left out.
    virtual bool isSpaceOmissionTerminal(const DicTraverseSession* traverseSession,
                                         const DicNode* dicNode) const = 0;
    /// Whether the nodes of this pass are to be kept for a longer input.
    virtual bool shouldDepthLevelCache(const DicTraverseSession* traverseSession) const = 0;
    virtual bool shouldNodeLevelCache(const DicTraverseSession* traverseSession,
                                      const DicNode* dicNode) const = 0;
    virtual bool canDoLookAheadCorrection(const DicTraverseSession* traverseSession,
                                          const DicNode* dicNode) const = 0;
    /// How the child's letter relates to the point that the parent has reached.
    virtual ProximityType getProximityType(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                           const DicNode* childDicNode) const = 0;
    /// Whether a word must pay for the input that it leaves unused.
    virtual bool needsToTraverseAllUserInput() const = 0;
    virtual float getMaxSpatialDistance() const = 0;
    virtual int getDefaultExpandDicNodeSize() const = 0;
    virtual int getMaxCacheSize(int inputSize) const = 0;
    virtual int getTerminalCacheSize() const = 0;
    /// Whether the letter after an omitted one fits the point.
    virtual bool isPossibleOmissionChildNode(const DicTraverseSession* traverseSession,
                                             const DicNode* parentDicNode, const DicNode* dicNode) const = 0;
    /// Whether the word that ends here is common enough to be followed by another one.
    virtual bool isGoodToTraverseNextWord(const DicNode* dicNode) const = 0;

    // The same by the letter alone, asked before a node is made for it.

    /// `isPossibleOmissionChildNode` for a node of that letter.
    virtual bool isPossibleOmissionCodePoint(const DicTraverseSession* traverseSession,
                                             const DicNode* parentDicNode, int codePoint) const = 0;
    /// Whether the point that the node has reached may have meant the letter without any further slip, or
    /// the letter may have been left out on purpose.
    virtual bool isGoodWithoutCorrection(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                         int codePoint) const = 0;

    virtual ~Traversal() = default;
    Traversal(const Traversal&) = delete;
    Traversal& operator=(const Traversal&) = delete;

protected:
    Traversal() = default;
};

}  // namespace wordengine
