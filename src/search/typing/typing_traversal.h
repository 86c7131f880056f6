// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/traversal.h"

namespace wordengine {

/// What the search may try for typed words. Stateless; any thread may use the one instance.
class TypingTraversal final : public Traversal {
public:
    static const TypingTraversal* getInstance() { return &sInstance; }

    int getMaxPointerCount() const override { return 1; }
    bool allowsErrorCorrections(const DicNode* dicNode) const override;
    bool isOmission(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                    const DicNode* childDicNode, bool allowsErrorCorrections) const override;
    bool isSpaceSubstitutionTerminal(const DicTraverseSession* traverseSession,
                                     const DicNode* dicNode) const override;
    bool isSpaceOmissionTerminal(const DicTraverseSession* traverseSession,
                                 const DicNode* dicNode) const override;
    bool shouldDepthLevelCache(const DicTraverseSession* traverseSession) const override;
    bool shouldNodeLevelCache(const DicTraverseSession*, const DicNode*) const override { return false; }
    bool canDoLookAheadCorrection(const DicTraverseSession* traverseSession,
                                  const DicNode* dicNode) const override;
    ProximityType getProximityType(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                   const DicNode* childDicNode) const override;
    bool needsToTraverseAllUserInput() const override { return true; }
    float getMaxSpatialDistance() const override;
    int getDefaultExpandDicNodeSize() const override { return 60; }
    int getMaxCacheSize(int inputSize) const override;
    int getTerminalCacheSize() const override { return 18; }
    bool isPossibleOmissionChildNode(const DicTraverseSession* traverseSession, const DicNode* parentDicNode,
                                     const DicNode* dicNode) const override;
    bool isGoodToTraverseNextWord(const DicNode* dicNode) const override;
    bool isPossibleOmissionCodePoint(const DicTraverseSession* traverseSession, const DicNode* parentDicNode,
                                     int codePoint) const override;

private:
    static constexpr bool CORRECT_OMISSION = true;
    static constexpr bool CORRECT_NEW_WORD_SPACE_SUBSTITUTION = true;
    static constexpr bool CORRECT_NEW_WORD_SPACE_OMISSION = true;

    TypingTraversal() = default;

    static const TypingTraversal sInstance;
};

}  // namespace wordengine
