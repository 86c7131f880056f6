// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dic_node_utils.h"
#include "node/dic_node.h"
#include "search/dic_traverse_session.h"
#include "search/weighting.h"

namespace wordengine {

/// What every correction does to a node, for a class of weightings. Where the class is final and the
/// correction is named, the compiler sees through all of it: that is most of the work of a search.
template <class WeightingType>
class WeightingCharge {
public:
    WeightingCharge() = delete;

    static void addCostAndForwardInputIndex(const WeightingType* weighting, CorrectionType correctionType,
                                            const DicTraverseSession* traverseSession,
                                            const DicNode* parentDicNode, DicNode* dicNode,
                                            MultiBigramMap* multiBigramMap) {
        DicNode_InputStateG inputStateG;
        const float spatialCost =
            getSpatialCost(weighting, correctionType, traverseSession, parentDicNode, dicNode, &inputStateG);
        const float languageCost = getLanguageCost(weighting, correctionType, traverseSession, parentDicNode,
                                                   dicNode, multiBigramMap);
        const ErrorTypeUtils::ErrorType errorType =
            weighting->getErrorType(correctionType, traverseSession, parentDicNode, dicNode);
        if (!inputStateG.needsToUpdateInputStateG) {
            const int count = Weighting::getForwardInputCount(correctionType);
            if (count != 0) dicNode->forwardInputIndex(0, count);
            if (correctionType == CORRECTION_TRANSPOSITION) {
                dicNode->setPrevCodePoint(0, dicNode->getNodeCodePoint());
            }
        }
        dicNode->addCost(spatialCost, languageCost, weighting->needsToNormalizeCompoundDistance(),
                         traverseSession->getInputSize(), dicNode->getTotalInputIndex(), errorType);
        if (correctionType == CORRECTION_NEW_WORD_SPACE_OMISSION) {
            dicNode->saveNormalizedCompoundDistanceAfterFirstWordIfNoneYet();
        }
    }

private:
    static float getSpatialCost(const WeightingType* weighting, CorrectionType correctionType,
                                const DicTraverseSession* traverseSession, const DicNode* parentDicNode,
                                const DicNode* dicNode, DicNode_InputStateG* inputStateG) {
        switch (correctionType) {
            case CORRECTION_MATCH:
                return weighting->getMatchedCost(traverseSession, dicNode, inputStateG);
            case CORRECTION_ADDITIONAL_PROXIMITY:
                return weighting->getAdditionalProximityCost();
            case CORRECTION_SUBSTITUTION:
                return weighting->getSubstitutionCost();
            case CORRECTION_OMISSION:
                return weighting->getOmissionCost(parentDicNode, dicNode);
            case CORRECTION_INSERTION:
                return weighting->getInsertionCost(traverseSession, parentDicNode, dicNode);
            case CORRECTION_TRANSPOSITION:
                return weighting->getTranspositionCost(traverseSession, parentDicNode, dicNode);
            case CORRECTION_COMPLETION:
                return weighting->getCompletionCost(traverseSession, dicNode);
            case CORRECTION_TERMINAL:
                return weighting->getTerminalSpatialCost(traverseSession, dicNode);
            case CORRECTION_TERMINAL_INSERTION:
                return weighting->getTerminalInsertionCost(traverseSession, dicNode);
            case CORRECTION_NEW_WORD_SPACE_OMISSION:
                return weighting->getNewWordSpatialCost(traverseSession, dicNode, inputStateG);
            case CORRECTION_NEW_WORD_SPACE_SUBSTITUTION:
                return weighting->getSpaceSubstitutionCost(traverseSession, dicNode);
            default:
                return 0.0f;
        }
    }

    static float getLanguageCost(const WeightingType* weighting, CorrectionType correctionType,
                                 const DicTraverseSession* traverseSession, const DicNode* parentDicNode,
                                 const DicNode* dicNode, MultiBigramMap* multiBigramMap) {
        switch (correctionType) {
            case CORRECTION_TERMINAL:
                return weighting->getTerminalLanguageCost(
                    traverseSession, dicNode,
                    DicNodeUtils::getBigramNodeImprobability(traverseSession->getDictionaryStructurePolicy(),
                                                             dicNode, multiBigramMap));
            case CORRECTION_NEW_WORD_SPACE_OMISSION:
            case CORRECTION_NEW_WORD_SPACE_SUBSTITUTION:
                return weighting->getNewWordBigramLanguageCost(traverseSession, parentDicNode,
                                                               multiBigramMap);
            default:
                return 0.0f;
        }
    }
};

}  // namespace wordengine
