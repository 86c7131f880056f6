// SPDX-License-Identifier: Apache-2.0
#include "search/weighting.h"

#include "dictionary/dic_node_utils.h"
#include "node/dic_node.h"
#include "search/dic_traverse_session.h"

namespace wordengine {

void Weighting::addCostAndForwardInputIndex(const Weighting* weighting, CorrectionType correctionType,
                                            const DicTraverseSession* traverseSession,
                                            const DicNode* parentDicNode, DicNode* dicNode,
                                            MultiBigramMap* multiBigramMap) {
    const int inputSize = traverseSession->getInputSize();
    DicNode_InputStateG inputStateG;
    const float spatialCost =
        getSpatialCost(weighting, correctionType, traverseSession, parentDicNode, dicNode, &inputStateG);
    const float languageCost =
        getLanguageCost(weighting, correctionType, traverseSession, parentDicNode, dicNode, multiBigramMap);
    const ErrorTypeUtils::ErrorType errorType =
        weighting->getErrorType(correctionType, traverseSession, parentDicNode, dicNode);
    if (!inputStateG.needsToUpdateInputStateG) {
        const int count = getForwardInputCount(correctionType);
        if (count != 0) dicNode->forwardInputIndex(0, count);
        if (correctionType == CORRECTION_TRANSPOSITION) {
            dicNode->setPrevCodePoint(0, dicNode->getNodeCodePoint());
        }
    }
    dicNode->addCost(spatialCost, languageCost, weighting->needsToNormalizeCompoundDistance(), inputSize,
                     dicNode->getTotalInputIndex(), errorType);
    if (correctionType == CORRECTION_NEW_WORD_SPACE_OMISSION) {
        dicNode->saveNormalizedCompoundDistanceAfterFirstWordIfNoneYet();
    }
}

int Weighting::getForwardInputCount(CorrectionType correctionType) {
    switch (correctionType) {
        case CORRECTION_MATCH:
        case CORRECTION_COMPLETION:
        case CORRECTION_TERMINAL_INSERTION:
        case CORRECTION_NEW_WORD_SPACE_SUBSTITUTION:
            return 1;
        case CORRECTION_INSERTION:
        case CORRECTION_TRANSPOSITION:
            return 2;
        default:
            return 0;
    }
}

float Weighting::getSpatialCost(const Weighting* weighting, CorrectionType correctionType,
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

float Weighting::getLanguageCost(const Weighting* weighting, CorrectionType correctionType,
                                 const DicTraverseSession* traverseSession, const DicNode* parentDicNode,
                                 const DicNode* dicNode, MultiBigramMap* multiBigramMap) {
    switch (correctionType) {
        case CORRECTION_TERMINAL: {
            const float improbability = DicNodeUtils::getBigramNodeImprobability(
                traverseSession->getDictionaryStructurePolicy(), dicNode, multiBigramMap);
            return weighting->getTerminalLanguageCost(traverseSession, dicNode, improbability);
        }
        case CORRECTION_NEW_WORD_SPACE_OMISSION:
        case CORRECTION_NEW_WORD_SPACE_SUBSTITUTION:
            return weighting->getNewWordBigramLanguageCost(traverseSession, parentDicNode, multiBigramMap);
        default:
            return 0.0f;
    }
}

}  // namespace wordengine
