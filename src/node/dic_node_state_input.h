// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/engine_constants.h"

namespace wordengine {

/// How much of each pointer's input a search node has consumed. Typing uses the first pointer only.
class DicNodeStateInput {
public:
    static constexpr int POINTER_COUNT = 2;

    void init() {
        for (int i = 0; i < POINTER_COUNT; ++i) {
            inputIndex_[i] = 0;
            prevCodePoint_[i] = NO_CODE_POINT;
            terminalDiffCost_[i] = WEIGHT_CEILING_FLOAT;
        }
    }

    /// For the root of a next word: the input goes on, what belongs to the old word does not.
    void initAsNextWord(const DicNodeStateInput& previous) {
        init();
        for (int i = 0; i < POINTER_COUNT; ++i) inputIndex_[i] = previous.inputIndex_[i];
    }

    void forwardInputIndex(int pointerId, int count) {
        int& index = inputIndex_[pointerId];
        index = index < 0 ? count : index + count;
    }

    void setPrevCodePoint(int pointerId, int codePoint) { prevCodePoint_[pointerId] = codePoint; }
    void setTerminalDiffCost(int pointerId, float cost) { terminalDiffCost_[pointerId] = cost; }

    int getInputIndex(int pointerId) const { return inputIndex_[pointerId]; }
    int getTotalInputIndex() const { return inputIndex_[0] + inputIndex_[1]; }
    int getPrevCodePoint(int pointerId) const { return prevCodePoint_[pointerId]; }
    float getTerminalDiffCost(int pointerId) const { return terminalDiffCost_[pointerId]; }

private:
    int inputIndex_[POINTER_COUNT];
    int prevCodePoint_[POINTER_COUNT];
    float terminalDiffCost_[POINTER_COUNT];
};

}  // namespace wordengine
