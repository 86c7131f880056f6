// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace wordengine {

/// Bytes that somebody else owns, to be read. Copied by value; the owner must outlive every copy.
class ReadOnlyByteArrayView {
public:
    constexpr ReadOnlyByteArrayView() = default;
    constexpr ReadOnlyByteArrayView(const uint8_t* data, size_t size) : data_(data), size_(size) {}

    [[nodiscard]] constexpr const uint8_t* data() const { return data_; }
    [[nodiscard]] constexpr size_t size() const { return size_; }

private:
    const uint8_t* data_ = nullptr;
    size_t size_ = 0;
};

/// Bytes that somebody else owns, to be read and written. Copied by value; the owner must outlive
/// every copy. Writing needs memory that is writable, which a read-only mapping is not.
class ReadWriteByteArrayView {
public:
    constexpr ReadWriteByteArrayView() = default;
    constexpr ReadWriteByteArrayView(uint8_t* data, size_t size) : data_(data), size_(size) {}

    [[nodiscard]] constexpr uint8_t* data() const { return data_; }
    [[nodiscard]] constexpr size_t size() const { return size_; }
    [[nodiscard]] constexpr ReadOnlyByteArrayView readOnlyView() const { return {data_, size_}; }

    /// Does no bounds check: the caller has made sure that the part lies within the whole.
    [[nodiscard]] constexpr ReadWriteByteArrayView subView(size_t offset, size_t size) const {
        return {data_ + offset, size};
    }

private:
    uint8_t* data_ = nullptr;
    size_t size_ = 0;
};

}  // namespace wordengine
