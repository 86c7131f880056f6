// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <vector>

namespace wordengine {

/// 32-bit integers that somebody else owns, to be read. Copied by value; the owner must outlive
/// every copy. Indexing is not checked.
class IntArrayView {
public:
    constexpr IntArrayView() = default;
    constexpr IntArrayView(const int* data, size_t size) : data_(data), size_(size) {}
    explicit IntArrayView(const std::vector<int>& values) : data_(values.data()), size_(values.size()) {}

    [[nodiscard]] constexpr const int* data() const { return data_; }
    [[nodiscard]] constexpr size_t size() const { return size_; }
    [[nodiscard]] constexpr bool empty() const { return size_ == 0; }
    [[nodiscard]] constexpr int operator[](size_t index) const { return data_[index]; }
    [[nodiscard]] constexpr const int* begin() const { return data_; }
    [[nodiscard]] constexpr const int* end() const { return data_ + size_; }

private:
    const int* data_ = nullptr;
    size_t size_ = 0;
};

}  // namespace wordengine
