// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/error_type_utils.h"
#include "search/correction_type.h"

namespace wordengine {

class DicNode;
class DicTraverseSession;
class MultiBigramMap;

/// What a policy for sampled input notes while it computes a cost; typing leaves it untouched.
struct DicNode_InputStateG {
    bool needsToUpdateInputStateG = false;  ///< the node's place in the input is not to be stepped on
    int pointerId = 0;
    int inputIndex = 0;
    int prevCodePoint = 0;
    float terminalDiffCost = 0.0f;
    float rawLength = 0.0f;
};

/// What each step of a search costs, in distances: 0 is perfect.
class Weighting {
public:
    /// Charges `dicNode` for the correction and moves it on in the input. `parentDicNode` and
    /// `multiBigramMap` may be null where the correction does not look at them.
    static void addCostAndForwardInputIndex(const Weighting* weighting, CorrectionType correctionType,
                                            const DicTraverseSession* traverseSession,
                                            const DicNode* parentDicNode, DicNode* dicNode,
                                            MultiBigramMap* multiBigramMap);

    /// Input points that the correction consumes.
    static constexpr int getForwardInputCount(CorrectionType correctionType) {
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

    virtual float getTerminalSpatialCost(const DicTraverseSession* traverseSession,
                                         const DicNode* dicNode) const = 0;
    virtual float getOmissionCost(const DicNode* parentDicNode, const DicNode* dicNode) const = 0;
    virtual float getMatchedCost(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                 DicNode_InputStateG* inputStateG) const = 0;
    /// Whether the letter is another one than the key that was hit.
    virtual bool isProximityDicNode(const DicTraverseSession* traverseSession,
                                    const DicNode* dicNode) const = 0;
    virtual float getTranspositionCost(const DicTraverseSession* traverseSession,
                                       const DicNode* parentDicNode, const DicNode* dicNode) const = 0;
    virtual float getInsertionCost(const DicTraverseSession* traverseSession, const DicNode* parentDicNode,
                                   const DicNode* dicNode) const = 0;
    virtual float getNewWordSpatialCost(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                        DicNode_InputStateG* inputStateG) const = 0;
    virtual float getNewWordBigramLanguageCost(const DicTraverseSession* traverseSession,
                                               const DicNode* dicNode,
                                               MultiBigramMap* multiBigramMap) const = 0;
    /// The same whatever the letter, and never below 0: it is charged once for all children of a node.
    virtual float getCompletionCost(const DicTraverseSession* traverseSession,
                                    const DicNode* dicNode) const = 0;
    virtual float getTerminalInsertionCost(const DicTraverseSession* traverseSession,
                                           const DicNode* dicNode) const = 0;
    virtual float getTerminalLanguageCost(const DicTraverseSession* traverseSession, const DicNode* dicNode,
                                          float dicNodeLanguageImprobability) const = 0;
    virtual bool needsToNormalizeCompoundDistance() const = 0;
    virtual float getAdditionalProximityCost() const = 0;
    virtual float getSubstitutionCost() const = 0;
    virtual float getSpaceSubstitutionCost(const DicTraverseSession* traverseSession,
                                           const DicNode* dicNode) const = 0;
    virtual ErrorTypeUtils::ErrorType getErrorType(CorrectionType correctionType,
                                                   const DicTraverseSession* traverseSession,
                                                   const DicNode* parentDicNode,
                                                   const DicNode* dicNode) const = 0;

    virtual ~Weighting() = default;
    Weighting(const Weighting&) = delete;
    Weighting& operator=(const Weighting&) = delete;

protected:
    Weighting() = default;
};

}  // namespace wordengine
