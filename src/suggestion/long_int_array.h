// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vorpel {

/// A member of a JSON object that holds thousands of integers. A general parser makes a tree node of each,
/// which takes nearly all of the time and memory of reading the file; this reads them straight off.
class LongIntArray {
public:
    explicit LongIntArray(std::string name) : name_(std::move(name)) {}

    /// Takes the integers out of the text of an object and leaves an empty array of the same length in
    /// characters, so that a parser tells the places of errors as before. False, with the text unchanged,
    /// unless the object has the member exactly once, as an array of plain integers: the parser may then
    /// judge it.
    bool takeFrom(std::string* json);

    /// What was taken; empty before.
    [[nodiscard]] const std::vector<int>& values() const { return values_; }

private:
    std::string name_;
    std::vector<int> values_;
};

}  // namespace vorpel
