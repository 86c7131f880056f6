// SPDX-License-Identifier: Apache-2.0
#include "dictionary/dic_node_utils.h"

#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "dictionary/multi_bigram_map.h"
#include "node/dic_node.h"
#include "node/dic_node_vector.h"
#include "text/engine_constants.h"

namespace wordengine {

namespace {

constexpr int HIGHEST_PROBABILITY = 255;

}  // namespace

void DicNodeUtils::initAsRoot(const DictionaryStructureWithBufferPolicy* policy,
                              const int* prevWordsPtNodePos, DicNode* newRootDicNode) {
    newRootDicNode->initAsRoot(policy->getRootPosition(), prevWordsPtNodePos);
}

void DicNodeUtils::initAsRootWithPreviousWord(const DictionaryStructureWithBufferPolicy* policy,
                                              const DicNode* prevWordLastDicNode, DicNode* newRootDicNode) {
    newRootDicNode->initAsRootWithPreviousWord(prevWordLastDicNode, policy->getRootPosition());
}

void DicNodeUtils::initByCopy(const DicNode* srcDicNode, DicNode* destDicNode) {
    destDicNode->initByCopy(srcDicNode);
}

void DicNodeUtils::getAllChildDicNodes(const DicNode* dicNode,
                                       const DictionaryStructureWithBufferPolicy* policy,
                                       DicNodeVector* childDicNodes) {
    if (dicNode->isTotalInputSizeExceedingLimit()) return;
    if (dicNode->isLeavingNode()) {
        policy->createAndGetAllChildDicNodes(dicNode, childDicNodes);
    } else {
        childDicNodes->pushPassingChild(dicNode);
    }
}

float DicNodeUtils::getBigramNodeImprobability(const DictionaryStructureWithBufferPolicy* policy,
                                               const DicNode* dicNode, MultiBigramMap* multiBigramMap) {
    if (dicNode->hasMultipleWords() && !dicNode->isValidMultipleWordSuggestion()) {
        return WEIGHT_CEILING_FLOAT;
    }
    const int probability = getBigramNodeProbability(policy, dicNode, multiBigramMap);
    return static_cast<float>(HIGHEST_PROBABILITY - probability) / static_cast<float>(HIGHEST_PROBABILITY);
}

int DicNodeUtils::getBigramNodeProbability(const DictionaryStructureWithBufferPolicy* policy,
                                           const DicNode* dicNode, MultiBigramMap* multiBigramMap) {
    const int unigramProbability = dicNode->getProbability();
    if (multiBigramMap == nullptr) return policy->getProbability(unigramProbability, NO_PROBABILITY);
    return multiBigramMap->getBigramProbability(policy, dicNode->getPrevWordsTerminalPtNodePos(),
                                                dicNode->getPtNodePos(), unigramProbability);
}

}  // namespace wordengine
