// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

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

    SuggestedWord(const int* codePoints, int codePointCount, int score, int type, int indexToPartialCommit,
                  int autoCommitFirstWordConfidence)
        : codePoints_(codePoints, codePoints + codePointCount),
          score_(score),
          type_(type),
          indexToPartialCommit_(indexToPartialCommit),
          autoCommitFirstWordConfidence_(autoCommitFirstWordConfidence) {}

    /// Not closed by a 0.
    const int* getCodePoint() const { return codePoints_.data(); }
    int getCodePointCount() const { return static_cast<int>(codePoints_.size()); }
    /// A prediction's is its probability.
    int getScore() const { return score_; }
    int getType() const { return type_; }
    int getIndexToPartialCommit() const { return indexToPartialCommit_; }
    int getAutoCommitFirstWordConfidence() const { return autoCommitFirstWordConfidence_; }

private:
    std::vector<int> codePoints_;
    int score_;
    int type_;
    int indexToPartialCommit_;
    int autoCommitFirstWordConfidence_;
};

}  // namespace wordengine
