// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/engine_constants.h"

#include <cstdint>

namespace wordengine {

/// The part of a search node that is read from the dictionary.
class DicNodeProperties {
public:
    void initAsRoot(int rootPtNodeArrayPos, const int* prevWordsPtNodePos) {
        ptNodePos_ = NO_DICT_POS;
        childrenPtNodeArrayPos_ = rootPtNodeArrayPos;
        probability_ = NO_PROBABILITY;
        dicNodeCodePoint_ = NO_CODE_POINT;
        prevWordsTerminalPtNodePos_[0] = prevWordsPtNodePos ? prevWordsPtNodePos[0] : NO_DICT_POS;
        depth_ = 0;
        leavingDepth_ = 0;
        isTerminal_ = false;
        hasChildren_ = true;
        isBlacklistedOrNotAWord_ = false;
    }

    void initAsChild(const DicNodeProperties& parent, int ptNodePos, int childrenPtNodeArrayPos,
                     int dicNodeCodePoint, int probability, bool isTerminal, bool hasChildren,
                     bool isBlacklistedOrNotAWord, int mergedNodeCodePointCount) {
        ptNodePos_ = ptNodePos;
        childrenPtNodeArrayPos_ = childrenPtNodeArrayPos;
        probability_ = probability;
        dicNodeCodePoint_ = dicNodeCodePoint;
        prevWordsTerminalPtNodePos_[0] = parent.prevWordsTerminalPtNodePos_[0];
        depth_ = static_cast<uint16_t>(parent.depth_ + 1);
        leavingDepth_ = static_cast<uint16_t>(parent.leavingDepth_ + mergedNodeCodePointCount);
        isTerminal_ = isTerminal;
        hasChildren_ = hasChildren;
        isBlacklistedOrNotAWord_ = isBlacklistedOrNotAWord;
    }

    /// One step further inside the same dictionary node.
    void initAsPassingChild(const DicNodeProperties& parent, int dicNodeCodePoint) {
        *this = parent;
        depth_ = static_cast<uint16_t>(parent.depth_ + 1);
        dicNodeCodePoint_ = dicNodeCodePoint;
    }

    int getPtNodePos() const { return ptNodePos_; }
    int getChildrenPtNodeArrayPos() const { return childrenPtNodeArrayPos_; }
    int getProbability() const { return probability_; }
    int getDicNodeCodePoint() const { return dicNodeCodePoint_; }
    uint16_t getDepth() const { return depth_; }
    uint16_t getLeavingDepth() const { return leavingDepth_; }
    bool isTerminal() const { return isTerminal_; }
    bool hasChildren() const { return hasChildren_; }
    bool isBlacklistedOrNotAWord() const { return isBlacklistedOrNotAWord_; }
    const int* getPrevWordsTerminalPtNodePos() const { return prevWordsTerminalPtNodePos_; }

private:
    int ptNodePos_;
    int childrenPtNodeArrayPos_;
    int probability_;
    int dicNodeCodePoint_;
    int prevWordsTerminalPtNodePos_[1];
    uint16_t depth_;
    uint16_t leavingDepth_;
    bool isTerminal_;
    bool hasChildren_;
    bool isBlacklistedOrNotAWord_;
};

}  // namespace wordengine
