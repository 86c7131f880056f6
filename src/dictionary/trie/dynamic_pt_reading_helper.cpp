// SPDX-License-Identifier: Apache-2.0
#include "dictionary/trie/dynamic_pt_reading_helper.h"

#include "dictionary/trie/pt_node_array_reader.h"
#include "dictionary/trie/pt_node_params.h"
#include "dictionary/trie/pt_node_reader.h"
#include "text/char_utils.h"

#include <algorithm>
#include <array>

namespace wordengine {

bool DynamicPtReadingHelper::TraversePolicyToGetAllTerminalPtNodePositions::onVisitingPtNode(
    const PtNodeParams* ptNodeParams) {
    if (ptNodeParams->isTerminal() && !ptNodeParams->isDeleted()) {
        terminalPositions_->push_back(ptNodeParams->getHeadPos());
    }
    return true;
}

void DynamicPtReadingHelper::initWithPtNodeArrayPos(int ptNodeArrayPos) {
    initWithPtNodePos(ptNodeArrayPos);
    readingState_.remainingPtNodeCountInThisArray = 0;
    if (!isEnd()) nextPtNodeArray();
}

void DynamicPtReadingHelper::initWithPtNodePos(int ptNodePos) {
    isError_ = false;
    readingState_ = PtNodeReadingState();
    readingState_.pos = ptNodePos;
    readingState_.remainingPtNodeCountInThisArray = 1;
    readingStateStack_.clear();
}

PtNodeParams DynamicPtReadingHelper::getPtNodeParams() const {
    if (isEnd()) return PtNodeParams();
    return ptNodeReader_->fetchPtNodeParamsInBufferFromPtNodePos(readingState_.pos);
}

PtNodeParams DynamicPtReadingHelper::getPtNodeWithoutProbability() const {
    if (isEnd()) return PtNodeParams();
    return ptNodeReader_->fetchPtNodeWithoutProbability(readingState_.pos);
}

void DynamicPtReadingHelper::goToNextSibling(const PtNodeParams& ptNodeParams) {
    --readingState_.remainingPtNodeCountInThisArray;
    readingState_.pos = ptNodeParams.getSiblingNodePos();
    if (readingState_.remainingPtNodeCountInThisArray <= 0) followForwardLink();
}

void DynamicPtReadingHelper::goToChildren(const PtNodeParams& ptNodeParams) {
    if (!ptNodeParams.hasChildren()) {
        readingState_.pos = NO_DICT_POS;
        return;
    }
    readingState_.totalCodePointCount += ptNodeParams.getCodePointCount();
    readingState_.totalPtNodeIndexInThisArrayChain = 0;
    readingState_.ptNodeArrayIndexInThisArrayChain = 0;
    readingState_.pos = ptNodeParams.getChildrenPos();
    readingState_.posOfLastForwardLinkField = NO_DICT_POS;
    nextPtNodeArray();
}

void DynamicPtReadingHelper::nextPtNodeArray() {
    // Empty arrays follow each other in a loop, since each of them could be a step of recursion.
    for (;;) {
        const int ptNodeArrayPos = readingState_.pos;
        int ptNodeCount = 0;
        int firstPtNodePos = NO_DICT_POS;
        if (!ptNodeArrayReader_->readPtNodeArrayInfoAndReturnIfValid(ptNodeArrayPos, &ptNodeCount,
                                                                     &firstPtNodePos)) {
            return endWithError();
        }
        readingState_.posOfLastPtNodeArrayHead = ptNodeArrayPos;
        readingState_.remainingPtNodeCountInThisArray = ptNodeCount;
        readingState_.pos = firstPtNodePos;
        readingState_.totalPtNodeIndexInThisArrayChain += ptNodeCount;
        ++readingState_.ptNodeArrayIndexInThisArrayChain;
        if (ptNodeCount < 0 ||
            readingState_.totalPtNodeIndexInThisArrayChain > MAX_CHILD_COUNT_TO_AVOID_INFINITE_LOOP ||
            readingState_.ptNodeArrayIndexInThisArrayChain > MAX_PT_NODE_ARRAY_COUNT_TO_AVOID_INFINITE_LOOP) {
            return endWithError();
        }
        if (ptNodeCount > 0 || !goToLinkedPtNodeArray()) return;
    }
}

void DynamicPtReadingHelper::followForwardLink() {
    if (goToLinkedPtNodeArray()) nextPtNodeArray();
}

bool DynamicPtReadingHelper::goToLinkedPtNodeArray() {
    int nextPtNodeArrayPos = NO_DICT_POS;
    if (!ptNodeArrayReader_->readForwardLinkAndReturnIfValid(readingState_.pos, &nextPtNodeArrayPos)) {
        endWithError();
        return false;
    }
    readingState_.posOfLastForwardLinkField = readingState_.pos;
    readingState_.pos = nextPtNodeArrayPos;
    return nextPtNodeArrayPos != NO_DICT_POS;
}

void DynamicPtReadingHelper::endWithError() {
    isError_ = true;
    readingState_.pos = NO_DICT_POS;
}

int DynamicPtReadingHelper::getCodePointsAndProbabilityAndReturnCodePointCount(int maxCodePointCount,
                                                                               int* outCodePoints,
                                                                               int* outUnigramProbability) {
    *outUnigramProbability = NO_PROBABILITY;
    PtNodeParams ptNodeParams = getPtNodeParams();
    if (!ptNodeParams.isValid() || !ptNodeParams.isTerminal() || ptNodeParams.isDeleted()) return 0;
    const int unigramProbability = ptNodeParams.getProbability();
    // Climbing spells the word backwards; it is turned round at the end.
    int length = 0;
    for (;;) {
        const int count = ptNodeParams.getCodePointCount();
        if (!ptNodeParams.isValid() || length + count > maxCodePointCount) {
            endWithError();
            return 0;
        }
        std::reverse_copy(ptNodeParams.getCodePoints(), ptNodeParams.getCodePoints() + count,
                          outCodePoints + length);
        length += count;
        if (ptNodeParams.getParentPos() == NO_DICT_POS) break;
        readingState_.pos = ptNodeParams.getParentPos();
        ptNodeParams = getPtNodeParams();
    }
    readingState_.pos = NO_DICT_POS;
    std::reverse(outCodePoints, outCodePoints + length);
    *outUnigramProbability = unigramProbability;
    return length;
}

int DynamicPtReadingHelper::getTerminalPtNodePositionOfWord(const int* word, int length,
                                                            bool forceLowerCaseSearch) {
    if (length < 1 || length > WORD_LENGTH_LIMIT) return NO_DICT_POS;
    std::array<int, WORD_LENGTH_LIMIT> searchWord;
    std::transform(word, word + length, searchWord.begin(), [forceLowerCaseSearch](int codePoint) {
        return forceLowerCaseSearch ? CharUtils::toLowerCase(codePoint) : codePoint;
    });
    while (!isEnd()) {
        const PtNodeParams ptNodeParams = getPtNodeWithoutProbability();
        if (!ptNodeParams.isValid()) {
            endWithError();
            break;
        }
        const int* const nodeCodePoints = ptNodeParams.getCodePoints();
        const int* const rest = searchWord.data() + getTotalCodePointCount();
        const int lengthWithNode = getTotalCodePointCount() + ptNodeParams.getCodePointCount();
        if (lengthWithNode > length || nodeCodePoints[0] != *rest) {
            goToNextSibling(ptNodeParams);
            continue;
        }
        // Siblings begin differently, so that the first letter decides which of them it can be.
        if (!std::equal(nodeCodePoints, nodeCodePoints + ptNodeParams.getCodePointCount(), rest)) {
            return NO_DICT_POS;
        }
        if (lengthWithNode == length) {
            return ptNodeParams.isTerminal() ? ptNodeParams.getHeadPos() : NO_DICT_POS;
        }
        goToChildren(ptNodeParams);
    }
    return NO_DICT_POS;
}

}  // namespace wordengine
