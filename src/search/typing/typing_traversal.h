// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"
#include "search/dic_traverse_session.h"
#include "search/traversal.h"
#include "search/typing/scoring_params.h"
#include "text/char_utils.h"

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

    bool isGoodWithoutCorrection(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                 int codePoint) const override;

private:
    static constexpr bool CORRECT_OMISSION = true;
    static constexpr bool CORRECT_NEW_WORD_SPACE_SUBSTITUTION = true;
    static constexpr bool CORRECT_NEW_WORD_SPACE_OMISSION = true;

    TypingTraversal() = default;

    static const TypingTraversal sInstance;
};

inline bool TypingTraversal::allowsErrorCorrections(const DicNode* dicNode) const {
    return dicNode->getNormalizedSpatialDistance() <
           ScoringParams::NORMALIZED_SPATIAL_DISTANCE_THRESHOLD_FOR_EDIT;
}

inline bool TypingTraversal::isOmission(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                        const DicNode* childDicNode, bool allowsErrorCorrections) const {
    if (!CORRECT_OMISSION) return false;
    if (!allowsErrorCorrections && !childDicNode->canBeIntentionalOmission()) return false;
    if (dicNode->isCompletion(traverseSession->getInputSize())) return false;
    if (dicNode->canBeIntentionalOmission()) return true;
    // A letter that was typed has not been left out.
    return !traverseSession->getProximityInfoState(0)
                ->getLetterAt(dicNode->getInputIndex(0), childDicNode->getNodeCodePoint())
                .isPrimaryLetter;
}

inline bool TypingTraversal::isSpaceSubstitutionTerminal(const DicTraverseSession* traverseSession,
                                                         const DicNode* dicNode) const {
    if (!CORRECT_NEW_WORD_SPACE_SUBSTITUTION) return false;
    return canDoLookAheadCorrection(traverseSession, dicNode) && dicNode->isTerminalDicNode() &&
           traverseSession->getProximityInfoState(0)->hasSpaceProximity(dicNode->getInputIndex(0));
}

inline bool TypingTraversal::isSpaceOmissionTerminal(const DicTraverseSession* traverseSession,
                                                     const DicNode* dicNode) const {
    if (!CORRECT_NEW_WORD_SPACE_OMISSION) return false;
    // The words go on only where input is left for them.
    return !dicNode->isCompletion(traverseSession->getInputSize()) && dicNode->isTerminalDicNode() &&
           !dicNode->isTotalInputSizeExceedingLimit() && !dicNode->shouldBeFilteredBySafetyNetForBigram();
}

inline bool TypingTraversal::shouldDepthLevelCache(const DicTraverseSession* traverseSession) const {
    return traverseSession->getDicTraverseCache()->isCacheBorderForTyping(traverseSession->getInputSize());
}

inline bool TypingTraversal::canDoLookAheadCorrection(const DicTraverseSession* traverseSession,
                                                      const DicNode* dicNode) const {
    return dicNode->canDoLookAheadCorrection(traverseSession->getInputSize());
}

inline ProximityType TypingTraversal::getProximityType(const DicTraverseSession* traverseSession,
                                                       const DicNode* dicNode,
                                                       const DicNode* childDicNode) const {
    return traverseSession->getProximityInfoState(0)
        ->getLetterAt(dicNode->getInputIndex(0), childDicNode->getNodeCodePoint())
        .type;
}

inline float TypingTraversal::getMaxSpatialDistance() const {
    return ScoringParams::MAX_SPATIAL_DISTANCE;
}

inline int TypingTraversal::getMaxCacheSize(int inputSize) const {
    return inputSize < 2 ? ScoringParams::MAX_CACHE_DIC_NODE_SIZE_FOR_SINGLE_POINT
                         : ScoringParams::MAX_CACHE_DIC_NODE_SIZE;
}

inline bool TypingTraversal::isPossibleOmissionChildNode(const DicTraverseSession* traverseSession,
                                                         const DicNode* parentDicNode,
                                                         const DicNode* dicNode) const {
    return isPossibleOmissionCodePoint(traverseSession, parentDicNode, dicNode->getNodeCodePoint());
}

inline bool TypingTraversal::isPossibleOmissionCodePoint(const DicTraverseSession* traverseSession,
                                                         const DicNode* parentDicNode, int codePoint) const {
    return traverseSession->getProximityInfoState(0)
        ->getLetterAt(parentDicNode->getInputIndex(0), codePoint)
        .isNear();
}

inline bool TypingTraversal::isGoodWithoutCorrection(const DicTraverseSession* traverseSession,
                                                     const DicNode* dicNode, int codePoint) const {
    if (CharUtils::isIntentionalOmissionCodePoint(codePoint)) return true;
    const ProximityType type =
        traverseSession->getProximityInfoState(0)->getLetterAt(dicNode->getInputIndex(0), codePoint).type;
    return type == PROXIMITY_MATCH || type == PROXIMITY_NEAR;
}

inline bool TypingTraversal::isGoodToTraverseNextWord(const DicNode* dicNode) const {
    const int probability = dicNode->getProbability();
    if (probability < ScoringParams::THRESHOLD_NEXT_WORD_PROBABILITY) return false;
    // Short names and abbreviations would split words everywhere.
    const bool isShortAndCapped =
        dicNode->getNodeCodePointCount() < ScoringParams::THRESHOLD_SHORT_WORD_LENGTH &&
        dicNode->isFirstCharUppercase();
    return !isShortAndCapped || probability >= ScoringParams::THRESHOLD_NEXT_WORD_PROBABILITY_FOR_CAPPED;
}

}  // namespace wordengine
