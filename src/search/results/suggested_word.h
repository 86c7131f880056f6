// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/engine_constants.h"

#include <algorithm>
#include <array>

namespace wordengine {

/// One word of the answer.
class SuggestedWord {
public:
    /// Orders better words first: a heap by it has the worst on top.
    class Comparator {
    public:
        bool operator()(const SuggestedWord& left, const SuggestedWord& right) const {
            if (left.getScore() != right.getScore()) return left.getScore() > right.getScore();
            return left.getCodePointCount() < right.getCodePointCount();
        }
    };

    // The kinds stand in the low byte of the type, the flags above them.
    static constexpr int KIND_CORRECTION = 1;
    static constexpr int KIND_WHITELIST = 3;
    static constexpr int KIND_SHORTCUT = 7;
    static constexpr int KIND_PREDICTION = 8;
    static constexpr int KIND_FLAG_POSSIBLY_OFFENSIVE = static_cast<int>(0x80000000u);
    static constexpr int KIND_FLAG_EXACT_MATCH = 0x40000000;
    static constexpr int KIND_FLAG_EXACT_MATCH_WITH_INTENTIONAL_OMISSION = 0x20000000;

    /// At most WORD_LENGTH_LIMIT code points are taken.
    SuggestedWord(const int* codePoints, int codePointCount, int score, int type, int indexToPartialCommit,
                  int autoCommitFirstWordConfidence)
        : codePointCount_(std::clamp(codePointCount, 0, WORD_LENGTH_LIMIT)),
          score_(score),
          type_(type),
          indexToPartialCommit_(indexToPartialCommit),
          autoCommitFirstWordConfidence_(autoCommitFirstWordConfidence) {
        std::copy_n(codePoints, codePointCount_, codePoints_.begin());
    }

    /// Not closed by a 0.
    const int* getCodePoint() const { return codePoints_.data(); }
    int getCodePointCount() const { return codePointCount_; }
    /// A prediction's is its probability.
    int getScore() const { return score_; }
    int getType() const { return type_; }
    int getIndexToPartialCommit() const { return indexToPartialCommit_; }
    int getAutoCommitFirstWordConfidence() const { return autoCommitFirstWordConfidence_; }

private:
    // In place: the words of an answer are made while a person waits.
    std::array<int, WORD_LENGTH_LIMIT> codePoints_;
    int codePointCount_;
    int score_;
    int type_;
    int indexToPartialCommit_;
    int autoCommitFirstWordConfidence_;
};

}  // namespace wordengine
