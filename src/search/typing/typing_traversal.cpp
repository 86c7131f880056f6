// SPDX-License-Identifier: Apache-2.0
#include "search/typing/typing_traversal.h"

#include "node/dic_node.h"
#include "search/dic_traverse_session.h"
#include "search/typing/scoring_params.h"
#include "text/char_utils.h"

namespace wordengine {

const TypingTraversal TypingTraversal::sInstance;

bool TypingTraversal::allowsErrorCorrections(const DicNode* dicNode) const {
    return dicNode->getNormalizedSpatialDistance() <
           ScoringParams::NORMALIZED_SPATIAL_DISTANCE_THRESHOLD_FOR_EDIT;
}

bool TypingTraversal::isOmission(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                 const DicNode* childDicNode, bool allowsErrorCorrections) const {
    if (!CORRECT_OMISSION) return false;
    if (!allowsErrorCorrections && !childDicNode->canBeIntentionalOmission()) return false;
    if (dicNode->isCompletion(traverseSession->getInputSize())) return false;
    if (dicNode->canBeIntentionalOmission()) return true;
    // A letter that was typed has not been left out.
    const int typedCodePoint =
        traverseSession->getProximityInfoState(0)->getPrimaryCodePointAt(dicNode->getInputIndex(0));
    return CharUtils::toBaseLowerCase(childDicNode->getNodeCodePoint()) !=
           CharUtils::toBaseLowerCase(typedCodePoint);
}

bool TypingTraversal::isSpaceSubstitutionTerminal(const DicTraverseSession* traverseSession,
                                                  const DicNode* dicNode) const {
    if (!CORRECT_NEW_WORD_SPACE_SUBSTITUTION) return false;
    return canDoLookAheadCorrection(traverseSession, dicNode) && dicNode->isTerminalDicNode() &&
           traverseSession->getProximityInfoState(0)->hasSpaceProximity(dicNode->getInputIndex(0));
}

bool TypingTraversal::isSpaceOmissionTerminal(const DicTraverseSession* traverseSession,
                                              const DicNode* dicNode) const {
    if (!CORRECT_NEW_WORD_SPACE_OMISSION) return false;
    // The words go on only where input is left for them.
    return !dicNode->isCompletion(traverseSession->getInputSize()) && dicNode->isTerminalDicNode() &&
           !dicNode->isTotalInputSizeExceedingLimit() && !dicNode->shouldBeFilteredBySafetyNetForBigram();
}

bool TypingTraversal::shouldDepthLevelCache(const DicTraverseSession* traverseSession) const {
    return traverseSession->getDicTraverseCache()->isCacheBorderForTyping(traverseSession->getInputSize());
}

bool TypingTraversal::canDoLookAheadCorrection(const DicTraverseSession* traverseSession,
                                               const DicNode* dicNode) const {
    return dicNode->canDoLookAheadCorrection(traverseSession->getInputSize());
}

ProximityType TypingTraversal::getProximityType(const DicTraverseSession* traverseSession,
                                                const DicNode* dicNode, const DicNode* childDicNode) const {
    return traverseSession->getProximityInfoState(0)->getProximityType(
        dicNode->getInputIndex(0), childDicNode->getNodeCodePoint(), true);
}

float TypingTraversal::getMaxSpatialDistance() const {
    return ScoringParams::MAX_SPATIAL_DISTANCE;
}

int TypingTraversal::getMaxCacheSize(int inputSize) const {
    return inputSize < 2 ? ScoringParams::MAX_CACHE_DIC_NODE_SIZE_FOR_SINGLE_POINT
                         : ScoringParams::MAX_CACHE_DIC_NODE_SIZE;
}

bool TypingTraversal::isPossibleOmissionChildNode(const DicTraverseSession* traverseSession,
                                                  const DicNode* parentDicNode,
                                                  const DicNode* dicNode) const {
    return isPossibleOmissionCodePoint(traverseSession, parentDicNode, dicNode->getNodeCodePoint());
}

bool TypingTraversal::isPossibleOmissionCodePoint(const DicTraverseSession* traverseSession,
                                                  const DicNode* parentDicNode, int codePoint) const {
    const ProximityType type = traverseSession->getProximityInfoState(0)->getProximityType(
        parentDicNode->getInputIndex(0), codePoint, true);
    return type == PROXIMITY_MATCH || type == PROXIMITY_NEAR || type == PROXIMITY_ADDITIONAL;
}

bool TypingTraversal::isGoodToTraverseNextWord(const DicNode* dicNode) const {
    const int probability = dicNode->getProbability();
    if (probability < ScoringParams::THRESHOLD_NEXT_WORD_PROBABILITY) return false;
    // Short names and abbreviations would split words everywhere.
    const bool isShortAndCapped =
        dicNode->getNodeCodePointCount() < ScoringParams::THRESHOLD_SHORT_WORD_LENGTH &&
        dicNode->isFirstCharUppercase();
    return !isShortAndCapped || probability >= ScoringParams::THRESHOLD_NEXT_WORD_PROBABILITY_FOR_CAPPED;
}

}  // namespace wordengine
