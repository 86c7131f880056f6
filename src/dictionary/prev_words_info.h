// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <array>

namespace wordengine {

/// The one word before the cursor that the engine looks at. Owns a copy of it.
class PrevWordsInfo {
public:
    PrevWordsInfo() { clear(); }

    /// A word of more than WORD_LENGTH_LIMIT code points, or none, leaves the information empty.
    PrevWordsInfo(const int* codePoints, int codePointCount, bool isBeginningOfSentence) {
        clear();
        if (codePoints == nullptr || codePointCount > WORD_LENGTH_LIMIT) return;
        prevWordCodePointCount_[0] = std::max(codePointCount, 0);
        std::copy_n(codePoints, prevWordCodePointCount_[0], prevWordCodePoints_[0]);
        isBeginningOfSentence_[0] = isBeginningOfSentence;
    }

    void clear() {
        prevWordCodePointCount_[0] = 0;
        isBeginningOfSentence_[0] = false;
    }

    bool isValid() const { return prevWordCodePointCount_[0] > 0 || isBeginningOfSentence_[0]; }

    // `n` counts back from the cursor, from 1; there is nothing beyond the first word.
    bool isNthPrevWordBeginningOfSentence(int n) const { return n == 1 && isBeginningOfSentence_[0]; }
    const int* getNthPrevWordCodePoints(int n) const { return n == 1 ? prevWordCodePoints_[0] : nullptr; }
    int getNthPrevWordCodePointCount(int n) const { return n == 1 ? prevWordCodePointCount_[0] : 0; }

    /// Fills `outPrevWordsTerminalPtNodePos[0]`.
    void getPrevWordsTerminalPtNodePos(const DictionaryStructureWithBufferPolicy* policy,
                                       int* outPrevWordsTerminalPtNodePos, bool tryLowerCaseSearch) const {
        outPrevWordsTerminalPtNodePos[0] =
            getTerminalPtNodePosOfWord(policy, prevWordCodePoints_[0], prevWordCodePointCount_[0],
                                       isBeginningOfSentence_[0], tryLowerCaseSearch);
    }

    /// The word's position in the dictionary, or NO_DICT_POS.
    static int getTerminalPtNodePosOfWord(const DictionaryStructureWithBufferPolicy* policy,
                                          const int* codePoints, int codePointCount,
                                          bool isBeginningOfSentence, bool tryLowerCaseSearch) {
        if (policy == nullptr || codePoints == nullptr || codePointCount > WORD_LENGTH_LIMIT) {
            return NO_DICT_POS;
        }
        std::array<int, WORD_LENGTH_LIMIT> word;
        int length = std::max(codePointCount, 0);
        std::copy_n(codePoints, length, word.begin());
        if (isBeginningOfSentence) {
            length = markBeginningOfSentence(&word, length);
            if (length < 1) return NO_DICT_POS;
        }
        const int position = policy->getTerminalPtNodePositionOfWord(word.data(), length, false);
        if (position != NO_DICT_POS || !tryLowerCaseSearch) return position;
        return policy->getTerminalPtNodePositionOfWord(word.data(), length, true);
    }

private:
    /// Returns the new length, 0 when the marker finds no room.
    static int markBeginningOfSentence(std::array<int, WORD_LENGTH_LIMIT>* word, int length) {
        if (length > 0 && word->front() == CODE_POINT_BEGINNING_OF_SENTENCE) return length;
        if (length >= WORD_LENGTH_LIMIT) return 0;
        std::copy_backward(word->begin(), word->begin() + length, word->begin() + length + 1);
        word->front() = CODE_POINT_BEGINNING_OF_SENTENCE;
        return length + 1;
    }

    int prevWordCodePoints_[1][WORD_LENGTH_LIMIT] = {};
    int prevWordCodePointCount_[1];
    bool isBeginningOfSentence_[1];
};

}  // namespace wordengine
