// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

class DicNode;
class DicNodeVector;
class DictionaryStructureWithBufferPolicy;
class MultiBigramMap;

/// What can be done with a search node only with the dictionary at hand.
class DicNodeUtils {
public:
    DicNodeUtils() = delete;

    static void initAsRoot(const DictionaryStructureWithBufferPolicy* policy, const int* prevWordsPtNodePos,
                           DicNode* newRootDicNode);
    /// The root for the word after the one that `prevWordLastDicNode` completes; costs are carried on.
    static void initAsRootWithPreviousWord(const DictionaryStructureWithBufferPolicy* policy,
                                           const DicNode* prevWordLastDicNode, DicNode* newRootDicNode);
    static void initByCopy(const DicNode* srcDicNode, DicNode* destDicNode);

    /// Appends the children; none once the words so far have grown too long to go on.
    static void getAllChildDicNodes(const DicNode* dicNode, const DictionaryStructureWithBufferPolicy* policy,
                                    DicNodeVector* childDicNodes);

    /// From 0, certain, to 1; WEIGHT_CEILING_FLOAT for a word that may not follow the ones before it.
    /// The map may be null.
    static float getBigramNodeImprobability(const DictionaryStructureWithBufferPolicy* policy,
                                            const DicNode* dicNode, MultiBigramMap* multiBigramMap);

    static int getBigramNodeProbability(const DictionaryStructureWithBufferPolicy* policy,
                                        const DicNode* dicNode, MultiBigramMap* multiBigramMap);
};

}  // namespace wordengine
