// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dic_node_utils.h"
#include "node/dic_node.h"
#include "proximity/proximity_info_state.h"
#include "proximity/proximity_params.h"
#include "proximity/touch_position_correction_utils.h"
#include "search/dic_traverse_session.h"
#include "search/typing/scoring_params.h"
#include "search/weighting.h"
#include "text/char_utils.h"

namespace wordengine {

/// What slips of typing cost. Stateless; any thread may use the one instance.
class TypingWeighting final : public Weighting {
public:
    static const TypingWeighting* getInstance() { return &sInstance; }

    float getTerminalSpatialCost(const DicTraverseSession* traverseSession,
                                 const DicNode* dicNode) const override;
    float getOmissionCost(const DicNode* parentDicNode, const DicNode* dicNode) const override;
    float getMatchedCost(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                         DicNode_InputStateG* inputStateG) const override;
    bool isProximityDicNode(const DicTraverseSession* traverseSession, const DicNode* dicNode) const override;
    float getTranspositionCost(const DicTraverseSession* traverseSession, const DicNode* parentDicNode,
                               const DicNode* dicNode) const override;
    float getInsertionCost(const DicTraverseSession* traverseSession, const DicNode* parentDicNode,
                           const DicNode* dicNode) const override;
    float getNewWordSpatialCost(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                DicNode_InputStateG* inputStateG) const override;
    float getNewWordBigramLanguageCost(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                       MultiBigramMap* multiBigramMap) const override;
    float getCompletionCost(const DicTraverseSession* traverseSession, const DicNode* dicNode) const override;
    float getTerminalInsertionCost(const DicTraverseSession* traverseSession,
                                   const DicNode* dicNode) const override;
    float getTerminalLanguageCost(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                  float dicNodeLanguageImprobability) const override;
    bool needsToNormalizeCompoundDistance() const override { return false; }
    float getAdditionalProximityCost() const override;
    float getSubstitutionCost() const override;
    float getSpaceSubstitutionCost(const DicTraverseSession* traverseSession,
                                   const DicNode* dicNode) const override;
    ErrorTypeUtils::ErrorType getErrorType(CorrectionType correctionType,
                                           const DicTraverseSession* traverseSession,
                                           const DicNode* parentDicNode,
                                           const DicNode* dicNode) const override;

private:
    TypingWeighting() = default;

    ErrorTypeUtils::ErrorType getMatchErrorType(const DicTraverseSession* traverseSession,
                                                const DicNode* dicNode) const;

    static const TypingWeighting sInstance;
};

inline float getPointToLetterLength(const DicTraverseSession* session, int pointIndex, int codePoint) {
    return session->getProximityInfoState(0)->getLetterAt(pointIndex, codePoint).length;
}

/// Near and additional keys alike: the delimiter between them is no end.
inline bool isInProximityListOf(const ProximityInfoState* state, int pointIndex, int codePoint) {
    const int* const proximityCodePoints = state->getProximityCodePointsAt(pointIndex);
    for (int i = 0; i < PROXIMITY_SLOT_COUNT && proximityCodePoints[i] > 0; ++i) {
        if (proximityCodePoints[i] == codePoint) return true;
    }
    return false;
}

/// Whether the point's key lies near one of the keys hit before and after it.
inline bool existsAdjacentProximityChars(const ProximityInfoState* state, int pointIndex) {
    if (pointIndex < 0 || pointIndex >= state->size()) return false;
    const int codePoint = state->getPrimaryCodePointAt(pointIndex);
    if (pointIndex > 0 && isInProximityListOf(state, pointIndex - 1, codePoint)) return true;
    return pointIndex + 1 < state->size() && isInProximityListOf(state, pointIndex + 1, codePoint);
}

inline float TypingWeighting::getTerminalSpatialCost(const DicTraverseSession*,
                                                     const DicNode* dicNode) const {
    float cost = 0.0f;
    if (dicNode->hasMultipleWords()) cost += ScoringParams::HAS_MULTI_WORD_TERMINAL_COST;
    if (dicNode->getProximityCorrectionCount() > 0) cost += ScoringParams::HAS_PROXIMITY_TERMINAL_COST;
    if (dicNode->getEditCorrectionCount() > 0) cost += ScoringParams::HAS_EDIT_CORRECTION_TERMINAL_COST;
    return cost;
}

inline float TypingWeighting::getOmissionCost(const DicNode* parentDicNode, const DicNode* dicNode) const {
    if (parentDicNode->isZeroCostOmission()) return 0.0f;
    if (parentDicNode->canBeIntentionalOmission()) return ScoringParams::INTENTIONAL_OMISSION_COST;
    if (dicNode->getNodeCodePointCount() == 2) return ScoringParams::OMISSION_COST_FIRST_CHAR;
    return dicNode->getDicNodeCodePoint() == parentDicNode->getDicNodeCodePoint()
               ? ScoringParams::OMISSION_COST_SAME_CHAR
               : ScoringParams::OMISSION_COST;
}

inline float TypingWeighting::getMatchedCost(const DicTraverseSession* traverseSession,
                                             const DicNode* dicNode, DicNode_InputStateG*) const {
    const int pointIndex = dicNode->getInputIndex(0);
    const float distance = getPointToLetterLength(traverseSession, pointIndex, dicNode->getNodeCodePoint());
    const float weightedDistance = ScoringParams::DISTANCE_WEIGHT_LENGTH *
                                   TouchPositionCorrectionUtils::getSweetSpotFactor(
                                       traverseSession->isTouchPositionCorrectionEnabled(), distance);
    float cost = 0.0f;
    if (isProximityDicNode(traverseSession, dicNode)) {
        cost = pointIndex == 0 ? ScoringParams::FIRST_CHAR_PROXIMITY_COST : ScoringParams::PROXIMITY_COST;
        if (dicNode->getProximityCorrectionCount() == 0) cost += ScoringParams::FIRST_PROXIMITY_COST;
    }
    // Charged at the second letter, so that a word of one capital letter goes free.
    if (dicNode->getNodeCodePointCount() == 2 && dicNode->hasMultipleWords() &&
        dicNode->isFirstCharUppercase()) {
        cost += ScoringParams::COST_SECOND_OR_LATER_WORD_FIRST_CHAR_UPPERCASE;
    }
    return weightedDistance + cost;
}

inline bool TypingWeighting::isProximityDicNode(const DicTraverseSession* traverseSession,
                                                const DicNode* dicNode) const {
    return !traverseSession->getProximityInfoState(0)
                ->getLetterAt(dicNode->getInputIndex(0), dicNode->getNodeCodePoint())
                .isPrimaryLetter;
}

inline float TypingWeighting::getTranspositionCost(const DicTraverseSession* traverseSession,
                                                   const DicNode* parentDicNode,
                                                   const DicNode* dicNode) const {
    const int pointIndex = parentDicNode->getInputIndex(0);
    const float distance1 =
        getPointToLetterLength(traverseSession, pointIndex + 1, parentDicNode->getNodeCodePoint());
    const float distance2 = getPointToLetterLength(traverseSession, pointIndex, dicNode->getNodeCodePoint());
    return ScoringParams::TRANSPOSITION_COST +
           (distance1 + distance2) * ScoringParams::DISTANCE_WEIGHT_LENGTH;
}

inline float TypingWeighting::getInsertionCost(const DicTraverseSession* traverseSession,
                                               const DicNode* parentDicNode, const DicNode* dicNode) const {
    const ProximityInfoState* const state = traverseSession->getProximityInfoState(0);
    const int insertedPointIndex = parentDicNode->getInputIndex(0);
    const bool isSameCodePoint =
        state->getPrimaryCodePointAt(insertedPointIndex) == dicNode->getNodeCodePoint();
    const float distance =
        getPointToLetterLength(traverseSession, insertedPointIndex + 1, dicNode->getNodeCodePoint());
    float cost = dicNode->getNodeCodePointCount() == 1 ? ScoringParams::INSERTION_COST_FIRST_CHAR : 0.0f;
    if (isSameCodePoint) {
        cost += ScoringParams::INSERTION_COST_SAME_CHAR;
    } else if (existsAdjacentProximityChars(state, insertedPointIndex)) {
        cost += ScoringParams::INSERTION_COST_PROXIMITY_CHAR;
    } else {
        cost += ScoringParams::INSERTION_COST;
    }
    return cost + distance * ScoringParams::DISTANCE_WEIGHT_LENGTH;
}

inline float TypingWeighting::getNewWordSpatialCost(const DicTraverseSession* traverseSession, const DicNode*,
                                                    DicNode_InputStateG*) const {
    return ScoringParams::COST_NEW_WORD * traverseSession->getMultiWordCostMultiplier();
}

inline float TypingWeighting::getNewWordBigramLanguageCost(const DicTraverseSession* traverseSession,
                                                           const DicNode* dicNode,
                                                           MultiBigramMap* multiBigramMap) const {
    return DicNodeUtils::getBigramNodeImprobability(traverseSession->getDictionaryStructurePolicy(), dicNode,
                                                    multiBigramMap) *
           ScoringParams::DISTANCE_WEIGHT_LANGUAGE;
}

inline float TypingWeighting::getCompletionCost(const DicTraverseSession* traverseSession,
                                                const DicNode* dicNode) const {
    return dicNode->getInputIndex(0) == traverseSession->getInputSize() ? ScoringParams::COST_FIRST_COMPLETION
                                                                        : ScoringParams::COST_COMPLETION;
}

inline float TypingWeighting::getTerminalInsertionCost(const DicTraverseSession* traverseSession,
                                                       const DicNode* dicNode) const {
    const int unusedPoints = traverseSession->getInputSize() - dicNode->getInputIndex(0);
    return ScoringParams::TERMINAL_INSERTION_COST * static_cast<float>(unusedPoints);
}

inline float TypingWeighting::getTerminalLanguageCost(const DicTraverseSession*, const DicNode*,
                                                      float dicNodeLanguageImprobability) const {
    return dicNodeLanguageImprobability * ScoringParams::DISTANCE_WEIGHT_LANGUAGE;
}

inline float TypingWeighting::getAdditionalProximityCost() const {
    return ScoringParams::ADDITIONAL_PROXIMITY_COST;
}

inline float TypingWeighting::getSubstitutionCost() const {
    return ScoringParams::SUBSTITUTION_COST;
}

inline float TypingWeighting::getSpaceSubstitutionCost(const DicTraverseSession* traverseSession,
                                                       const DicNode*) const {
    return (ScoringParams::SPACE_SUBSTITUTION_COST + ScoringParams::COST_NEW_WORD) *
           traverseSession->getMultiWordCostMultiplier();
}

inline ErrorTypeUtils::ErrorType TypingWeighting::getErrorType(CorrectionType correctionType,
                                                               const DicTraverseSession* traverseSession,
                                                               const DicNode* parentDicNode,
                                                               const DicNode* dicNode) const {
    switch (correctionType) {
        case CORRECTION_MATCH:
            return getMatchErrorType(traverseSession, dicNode);
        case CORRECTION_ADDITIONAL_PROXIMITY:
            return ErrorTypeUtils::PROXIMITY_CORRECTION;
        case CORRECTION_OMISSION:
            return parentDicNode->canBeIntentionalOmission() ? ErrorTypeUtils::INTENTIONAL_OMISSION
                                                             : ErrorTypeUtils::EDIT_CORRECTION;
        case CORRECTION_SUBSTITUTION:
        case CORRECTION_INSERTION:
        case CORRECTION_TRANSPOSITION:
        case CORRECTION_TERMINAL_INSERTION:
            return ErrorTypeUtils::EDIT_CORRECTION;
        case CORRECTION_COMPLETION:
            return ErrorTypeUtils::COMPLETION;
        case CORRECTION_NEW_WORD_SPACE_OMISSION:
        case CORRECTION_NEW_WORD_SPACE_SUBSTITUTION:
            return ErrorTypeUtils::NEW_WORD;
        default:
            return ErrorTypeUtils::NOT_AN_ERROR;
    }
}

inline ErrorTypeUtils::ErrorType TypingWeighting::getMatchErrorType(const DicTraverseSession* traverseSession,
                                                                    const DicNode* dicNode) const {
    if (isProximityDicNode(traverseSession, dicNode)) return ErrorTypeUtils::PROXIMITY_CORRECTION;
    if (dicNode->isInDigraph()) return ErrorTypeUtils::MATCH_WITH_DIGRAPH;
    const int typed =
        traverseSession->getProximityInfoState(0)->getPrimaryOriginalCodePointAt(dicNode->getInputIndex(0));
    const int meant = dicNode->getNodeCodePoint();
    if (typed == meant) return ErrorTypeUtils::NOT_AN_ERROR;
    if (CharUtils::toLowerCase(typed) == CharUtils::toLowerCase(meant)) {
        return ErrorTypeUtils::MATCH_WITH_CASE_ERROR;
    }
    if (CharUtils::toBaseCodePoint(typed) == CharUtils::toBaseCodePoint(meant)) {
        return ErrorTypeUtils::MATCH_WITH_ACCENT_ERROR;
    }
    return ErrorTypeUtils::MATCH_WITH_ACCENT_ERROR | ErrorTypeUtils::MATCH_WITH_CASE_ERROR;
}

}  // namespace wordengine
