// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// What each edit that turns string 0 into string 1 costs. Indices are from 0; at the edges of the
/// table the costs of deletion and insertion are asked with an index of -1.
class EditDistancePolicy {
public:
    EditDistancePolicy() = default;
    EditDistancePolicy(const EditDistancePolicy&) = delete;
    EditDistancePolicy& operator=(const EditDistancePolicy&) = delete;

    [[nodiscard]] virtual float getSubstitutionCost(int index0, int index1) const = 0;
    [[nodiscard]] virtual float getDeletionCost(int index0, int index1) const = 0;
    [[nodiscard]] virtual float getInsertionCost(int index0, int index1) const = 0;
    /// Whether the letters at the indices and those before them are each other's, swapped. True only
    /// for indices of 1 and more.
    [[nodiscard]] virtual bool allowTransposition(int index0, int index1) const = 0;
    [[nodiscard]] virtual float getTranspositionCost(int index0, int index1) const = 0;
    [[nodiscard]] virtual int getString0Length() const = 0;
    [[nodiscard]] virtual int getString1Length() const = 0;
    virtual ~EditDistancePolicy() = default;
};

}  // namespace wordengine
