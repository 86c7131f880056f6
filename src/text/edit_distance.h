// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/edit_distance_policy.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace wordengine {

/// The least cost of turning one string into another. Stateless.
class EditDistance {
public:
    EditDistance() = delete;

    /// The cost by an EditDistancePolicy. A template, so that a final policy is called without virtual
    /// dispatch: the ranking asks for each candidate after each key. Allocates nothing for two strings
    /// of up to WORD_LENGTH_LIMIT; a length below 0 counts as 0.
    template <class Policy>
    [[nodiscard]] static float getEditDistance(const Policy* policy) {
        const int length0 = std::max(policy->getString0Length(), 0);
        const int length1 = std::max(policy->getString1Length(), 0);
        if (length0 <= WORD_LENGTH_LIMIT && length1 <= WORD_LENGTH_LIMIT) {
            float table[(WORD_LENGTH_LIMIT + 1) * (WORD_LENGTH_LIMIT + 1)];
            return fillTable(*policy, length0, length1, table);
        }
        std::vector<float> table((static_cast<size_t>(length0) + 1) * (static_cast<size_t>(length1) + 1));
        return fillTable(*policy, length0, length1, table.data());
    }

private:
    template <class Policy>
    static float fillTable(const Policy& policy, int length0, int length1, float* table) {
        const size_t rowSize = static_cast<size_t>(length1) + 1;
        for (int i = 0; i <= length0; ++i) {
            table[i * rowSize] = static_cast<float>(i) * policy.getInsertionCost(i - 1, -1);
        }
        for (int j = 0; j <= length1; ++j) {
            table[j] = static_cast<float>(j) * policy.getDeletionCost(-1, j - 1);
        }
        for (int i = 0; i < length0; ++i) {
            for (int j = 0; j < length1; ++j) {
                float* const diagonal = table + i * rowSize + j;
                float cost = std::min({diagonal[1] + policy.getInsertionCost(i, j),
                                       diagonal[rowSize] + policy.getDeletionCost(i, j),
                                       diagonal[0] + policy.getSubstitutionCost(i, j)});
                if (policy.allowTransposition(i, j)) {
                    cost = std::min(cost, *(diagonal - rowSize - 1) + policy.getTranspositionCost(i, j));
                }
                diagonal[rowSize + 1] = cost;
            }
        }
        return table[length0 * rowSize + length1];
    }
};

}  // namespace wordengine
