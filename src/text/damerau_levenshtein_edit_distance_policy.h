// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/char_utils.h"
#include "text/edit_distance_policy.h"

namespace wordengine {

/// One for each letter changed, added, dropped or swapped with its neighbour; case and accents do not
/// count. Keeps the two pointers: the strings must outlive the policy.
class DamerauLevenshteinEditDistancePolicy final : public EditDistancePolicy {
public:
    DamerauLevenshteinEditDistancePolicy(const int* string0, int length0, const int* string1, int length1)
        : string0_(string0), string0Length_(length0), string1_(string1), string1Length_(length1) {}

    [[nodiscard]] float getSubstitutionCost(int index0, int index1) const override {
        return isSameLetter(index0, index1) ? 0.0f : 1.0f;
    }

    [[nodiscard]] float getDeletionCost(int, int) const override { return 1.0f; }

    [[nodiscard]] float getInsertionCost(int, int) const override { return 1.0f; }

    [[nodiscard]] bool allowTransposition(int index0, int index1) const override {
        return index0 >= 1 && index1 >= 1 && isSameLetter(index0, index1 - 1) &&
               isSameLetter(index0 - 1, index1);
    }

    /// Swapping a letter with its like costs nothing.
    [[nodiscard]] float getTranspositionCost(int index0, int index1) const override {
        return getSubstitutionCost(index0, index1);
    }

    [[nodiscard]] int getString0Length() const override { return string0Length_; }
    [[nodiscard]] int getString1Length() const override { return string1Length_; }

private:
    [[nodiscard]] bool isSameLetter(int index0, int index1) const {
        return CharUtils::toBaseLowerCase(string0_[index0]) == CharUtils::toBaseLowerCase(string1_[index1]);
    }

    const int* const string0_;
    const int string0Length_;
    const int* const string1_;
    const int string1Length_;
};

}  // namespace wordengine
