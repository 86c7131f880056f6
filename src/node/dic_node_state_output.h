// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/engine_constants.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace wordengine {

/// The words that a search node has spelled so far, joined by spaces, and where they begin. The buffer
/// comes last and is meaningful up to the count only, so that a copy need not move all of it.
class DicNodeStateOutput {
public:
    static constexpr int MAX_PREV_WORD_COUNT = 18;

    void init() {
        outputtedCodePointCount_ = 0;
        currentWordStart_ = 0;
        prevWordCount_ = 0;
        prevWordsLength_ = 0;
        prevWordStart_ = 0;
        secondWordFirstInputIndex_ = NO_INDEX;
        codePointBuf_[0] = 0;
    }

    void initByCopy(const DicNodeStateOutput& other) {
        copyPositions(other);
        copyWords(other);
    }

    /// Everything but the words.
    void copyPositions(const DicNodeStateOutput& other) {
        outputtedCodePointCount_ = other.outputtedCodePointCount_;
        currentWordStart_ = other.currentWordStart_;
        prevWordCount_ = other.prevWordCount_;
        prevWordsLength_ = other.prevWordsLength_;
        prevWordStart_ = other.prevWordStart_;
        secondWordFirstInputIndex_ = other.secondWordFirstInputIndex_;
    }

    /// The words of `other`, whose positions this has already, and the 0 behind them. Whole blocks: the
    /// most frequent copy of a search has no length to branch on.
    void copyWords(const DicNodeStateOutput& other) {
        constexpr int block = 4;
        static_assert(WORD_LENGTH_LIMIT % block == 0);
        const int end = std::min(other.outputtedCodePointCount_ + 1, WORD_LENGTH_LIMIT);
        for (int i = 0; i < end; i += block) {
            std::memcpy(codePointBuf_ + i, other.codePointBuf_ + i, block * sizeof(codePointBuf_[0]));
        }
    }

    /// For the root of a next word: a space, and the next word begins behind it.
    void initAsNextWord(const DicNodeStateOutput& previous) {
        initByCopy(previous);
        const int oldCount = previous.outputtedCodePointCount_;
        if (oldCount >= WORD_LENGTH_LIMIT) return;
        codePointBuf_[oldCount] = CODE_POINT_SPACE;
        const int newCount = oldCount + 1;
        if (newCount < WORD_LENGTH_LIMIT) codePointBuf_[newCount] = 0;
        outputtedCodePointCount_ = static_cast<uint16_t>(newCount);
        currentWordStart_ = static_cast<uint16_t>(newCount);
        prevWordsLength_ = static_cast<int16_t>(newCount);
        prevWordStart_ = static_cast<int16_t>(previous.currentWordStart_);
        prevWordCount_ = static_cast<int16_t>(std::min(previous.prevWordCount_ + 1, MAX_PREV_WORD_COUNT));
    }

    /// Appends what the buffer has room for; null adds nothing.
    void addMergedNodeCodePoints(int count, const int* codePoints) {
        if (!codePoints) return;
        const int added = std::clamp(count, 0, WORD_LENGTH_LIMIT - outputtedCodePointCount_);
        std::copy_n(codePoints, added, codePointBuf_ + outputtedCodePointCount_);
        outputtedCodePointCount_ = static_cast<uint16_t>(outputtedCodePointCount_ + added);
        if (outputtedCodePointCount_ < WORD_LENGTH_LIMIT) codePointBuf_[outputtedCodePointCount_] = 0;
    }

    void setSecondWordFirstInputIndex(int inputIndex) { secondWordFirstInputIndex_ = inputIndex; }

    int getOutputtedCodePointCount() const { return outputtedCodePointCount_; }
    const int* getCodePointBuf() const { return codePointBuf_; }
    const int* getCurrentWord() const { return codePointBuf_ + currentWordStart_; }
    /// NO_CODE_POINT past what has been spelled.
    int getCurrentWordCodePointAt(int index) const {
        const int position = currentWordStart_ + index;
        return position < outputtedCodePointCount_ ? codePointBuf_[position] : NO_CODE_POINT;
    }
    int getCurrentWordStart() const { return currentWordStart_; }
    int getPrevWordCount() const { return prevWordCount_; }
    int getPrevWordsLength() const { return prevWordsLength_; }
    int getPrevWordStart() const { return prevWordStart_; }
    /// The length of the last word before the current one, -1 without one.
    int getPrevWordLength() const { return prevWordsLength_ - prevWordStart_ - 1; }
    int getSecondWordFirstInputIndex() const { return secondWordFirstInputIndex_; }

private:
    uint16_t outputtedCodePointCount_;
    uint16_t currentWordStart_;
    int16_t prevWordCount_;
    int16_t prevWordsLength_;
    int16_t prevWordStart_;
    int secondWordFirstInputIndex_;
    int codePointBuf_[WORD_LENGTH_LIMIT];
};

}  // namespace wordengine
