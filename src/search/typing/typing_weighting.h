// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/weighting.h"

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

}  // namespace wordengine
