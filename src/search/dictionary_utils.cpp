// SPDX-License-Identifier: Apache-2.0
#include "search/dictionary_utils.h"

#include "dictionary/dic_node_utils.h"
#include "dictionary/dictionary_header_structure_policy.h"
#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "node/dic_node_vector.h"
#include "text/char_utils.h"
#include "text/digraph_utils.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <utility>

namespace wordengine {

namespace {

/// No word leads past nearly as many nodes; a damaged dictionary of apostrophes below apostrophes, or of
/// siblings that are all alike, has more than fit into memory.
constexpr int MAX_EXAMINED_CHILDREN = 100000;

}  // namespace

int DictionaryUtils::getMaxProbabilityOfExactMatches(const DictionaryStructureWithBufferPolicy* policy,
                                                     const int* codePoints, int codePointCount) {
    const int prevWordsPtNodePos[] = {NO_DICT_POS};
    std::vector<DicNode> current(1);
    std::vector<DicNode> next;
    DicNodeUtils::initAsRoot(policy, prevWordsPtNodePos, &current.front());
    int childrenLeft = MAX_EXAMINED_CHILDREN;
    for (int i = 0; i < codePointCount && !current.empty(); ++i) {
        const int codePoint = CharUtils::toBaseLowerCase(codePoints[i]);
        for (const DicNode& dicNode : current) {
            if (dicNode.isInDigraph() && dicNode.getNodeCodePoint() == codePoint) {
                next.push_back(dicNode);
                next.back().advanceDigraphIndex();
            } else {
                processChildDicNodes(policy, codePoint, &dicNode, &childrenLeft, &next);
            }
        }
        std::swap(current, next);
        next.clear();
    }
    int maxProbability = NO_PROBABILITY;
    for (const DicNode& dicNode : current) {
        if (dicNode.isTerminalDicNode()) maxProbability = std::max(maxProbability, dicNode.getProbability());
    }
    return maxProbability;
}

void DictionaryUtils::processChildDicNodes(const DictionaryStructureWithBufferPolicy* policy,
                                           int inputCodePoint, const DicNode* parentDicNode,
                                           int* childrenLeft, std::vector<DicNode>* outDicNodes) {
    if (*childrenLeft <= 0) return;
    DicNodeVector children;
    DicNodeUtils::getAllChildDicNodes(parentDicNode, policy, &children);
    const int childCount = children.getSizeAndLock();
    // A node without children is not free either.
    *childrenLeft -= childCount + 1;
    for (int i = 0; i < childCount; ++i) {
        DicNode* const child = children[i];
        const int codePoint = CharUtils::toBaseLowerCase(child->getNodeCodePoint());
        if (codePoint == inputCodePoint) outDicNodes->push_back(*child);
        if (child->canBeIntentionalOmission()) {
            processChildDicNodes(policy, inputCodePoint, child, childrenLeft, outDicNodes);
        }
        if (!DigraphUtils::hasDigraphForCodePoint(policy->getHeaderStructurePolicy(),
                                                  child->getNodeCodePoint())) {
            continue;
        }
        child->advanceDigraphIndex();
        if (child->getNodeCodePoint() == codePoint) {
            child->advanceDigraphIndex();
            outDicNodes->push_back(*child);
        }
    }
}

}  // namespace wordengine
