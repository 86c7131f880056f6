// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/mmapped_buffer.h"
#include "support/memory_file.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define VORPEL_HAS_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VORPEL_HAS_ADDRESS_SANITIZER 1
#endif
#endif
#ifdef VORPEL_HAS_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#endif

namespace vorpel::testing {

/// Bytes as a dictionary is opened: mapped from a file. With the address sanitizer, one byte before or
/// behind them is as forbidden as it is around a block of the heap; by itself the sanitizer knows nothing
/// of mappings, and the rest of a page reads as zeros.
class GuardedMapping {
public:
    explicit GuardedMapping(std::span<const uint8_t> bytes)
        : size_(bytes.size()), offset_(offsetFor(size_)), file_(padded(bytes, offset_)) {}
    ~GuardedMapping() { setForbidden(false); }
    GuardedMapping(const GuardedMapping&) = delete;
    GuardedMapping& operator=(const GuardedMapping&) = delete;

    /// Whoever takes the mapping must let it go before this object.
    [[nodiscard]] wordengine::MmappedBuffer::MmappedBufferPtr open() {
        auto buffer =
            wordengine::MmappedBuffer::openBuffer(path().c_str(), offset(), static_cast<int>(size_), false);
        if (buffer) {
            begin_ = buffer->getReadOnlyByteArrayView().data();
            setForbidden(true);
        }
        return buffer;
    }

    [[nodiscard]] std::string path() const { return file_.path(); }
    [[nodiscard]] int offset() const { return static_cast<int>(offset_); }

private:
    static constexpr size_t MARGIN = 64;

    static size_t pageSize() { return static_cast<size_t>(sysconf(_SC_PAGESIZE)); }

    /// So that the last page of the mapping has a margin too.
    static size_t offsetFor(size_t size) {
        const size_t rest = (MARGIN + size) % pageSize();
        return rest == 0 || rest > pageSize() - MARGIN ? 3 * MARGIN : MARGIN;
    }

    static std::string padded(std::span<const uint8_t> bytes, size_t offset) {
        std::string content(offset, 'x');
        content.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return content.append(MARGIN, 'x');
    }

    void setForbidden([[maybe_unused]] bool isForbidden) {
#ifdef VORPEL_HAS_ADDRESS_SANITIZER
        if (begin_ == nullptr) return;
        const size_t end = (offset_ + size_ + pageSize() - 1) / pageSize() * pageSize();
        const uint8_t* const pages = begin_ - offset_;
        if (isForbidden) {
            ASAN_POISON_MEMORY_REGION(pages, offset_);
            ASAN_POISON_MEMORY_REGION(begin_ + size_, end - offset_ - size_);
        } else {
            ASAN_UNPOISON_MEMORY_REGION(pages, end);
        }
#endif
    }

    size_t size_;
    size_t offset_;
    MemoryFile file_;
    const uint8_t* begin_ = nullptr;
};

}  // namespace vorpel::testing
