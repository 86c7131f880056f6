// SPDX-License-Identifier: Apache-2.0
#include "search/weighting.h"

#include "search/weighting_charge.h"

namespace wordengine {

void Weighting::addCostAndForwardInputIndex(const Weighting* weighting, CorrectionType correctionType,
                                            const DicTraverseSession* traverseSession,
                                            const DicNode* parentDicNode, DicNode* dicNode,
                                            MultiBigramMap* multiBigramMap) {
    WeightingCharge<Weighting>::addCostAndForwardInputIndex(weighting, correctionType, traverseSession,
                                                            parentDicNode, dicNode, multiBigramMap);
}

}  // namespace wordengine
