// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"

#include <vector>

namespace wordengine {

class DictionaryStructureWithBufferPolicy;

class DictionaryUtils {
public:
    DictionaryUtils() = delete;

    /// The highest probability among the words that equal the given one but for case, accents, digraphs,
    /// apostrophes and hyphens; NO_PROBABILITY if there is none.
    static int getMaxProbabilityOfExactMatches(const DictionaryStructureWithBufferPolicy* policy,
                                               const int* codePoints, int codePointCount);

private:
    static void processChildDicNodes(const DictionaryStructureWithBufferPolicy* policy, int inputCodePoint,
                                     const DicNode* parentDicNode, int* childrenLeft,
                                     std::vector<DicNode>* outDicNodes);
};

}  // namespace wordengine
