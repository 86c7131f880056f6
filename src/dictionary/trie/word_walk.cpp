// SPDX-License-Identifier: Apache-2.0
#include "dictionary/trie/word_walk.h"

#include "text/engine_constants.h"

namespace wordengine {

int WordWalk::next(int token, DynamicPtReadingHelper rootHelper,
                   const DictionaryStructureWithBufferPolicy& policy, int* outCodePoints,
                   int* outCodePointCount, bool* outIsDamaged) {
    std::vector<int>& positions = terminalPtNodePositions_;
    if (token == 0) {
        positions.clear();
        DynamicPtReadingHelper::TraversePolicyToGetAllTerminalPtNodePositions listener(&positions);
        if (!rootHelper.traverseAllPtNodesInPostorderDepthFirstManner(&listener)) *outIsDamaged = true;
    }
    const int wordCount = static_cast<int>(positions.size());
    if (token < 0 || token >= wordCount) return 0;
    int unigramProbability;
    *outCodePointCount = policy.getCodePointsAndProbabilityAndReturnCodePointCount(
        positions[static_cast<size_t>(token)], WORD_LENGTH_LIMIT, outCodePoints, &unigramProbability);
    const int nextToken = token + 1;
    if (nextToken < wordCount) return nextToken;
    positions.clear();
    return 0;
}

}  // namespace wordengine
