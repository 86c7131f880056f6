// SPDX-License-Identifier: Apache-2.0
#include "node/dic_node.h"

#include "text/digraph_utils.h"

#include <algorithm>

namespace wordengine {

void DicNode::initAsRoot(int rootPtNodeArrayPos, const int* prevWordsPtNodePos) {
    isCachedForNextSuggestion_ = false;
    properties_.initAsRoot(rootPtNodeArrayPos, prevWordsPtNodePos);
    state_.init();
}

void DicNode::initAsRootWithPreviousWord(const DicNode* prevWordLastDicNode, int rootPtNodeArrayPos) {
    isCachedForNextSuggestion_ = prevWordLastDicNode->isCachedForNextSuggestion_;
    const int prevWordsPtNodePos[] = {prevWordLastDicNode->getPtNodePos()};
    properties_.initAsRoot(rootPtNodeArrayPos, prevWordsPtNodePos);
    state_.initAsRootWithPreviousWord(prevWordLastDicNode->state_);
}

bool DicNode::isValidMultipleWordSuggestion() const {
    if (isBlacklistedOrNotAWord()) return false;
    return state_.output_.getPrevWordLength() != 1 || getNodeCodePointCount() != 1;
}

bool DicNode::shouldBeFilteredBySafetyNetForBigram() const {
    const int depth = getNodeCodePointCount();
    return depth == 0 || (depth == 1 && state_.output_.getPrevWordLength() == 1);
}

int DicNode::getTotalNodeSpaceCount() const {
    if (!hasMultipleWords()) return 0;
    const int* const begin = getOutputWordBuf();
    return static_cast<int>(std::count(begin, begin + state_.output_.getPrevWordsLength(), CODE_POINT_SPACE));
}

void DicNode::outputResult(int* dest) const {
    std::copy_n(getOutputWordBuf(), std::min(getTotalNodeCodePointCount(), WORD_LENGTH_LIMIT), dest);
}

int DicNode::getDigraphNodeCodePoint() const {
    return DigraphUtils::getDigraphCodePointForIndex(
        getDicNodeCodePoint(),
        static_cast<DigraphUtils::DigraphCodePointIndex>(state_.scoring_.getDigraphIndex()));
}

}  // namespace wordengine
