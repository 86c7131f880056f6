// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace vorpel::testing {

/// A file that has a path and no place on a disk, for readers that want a path. Gone with the object.
class MemoryFile {
public:
    explicit MemoryFile(std::string_view content = {}) : descriptor_(memfd_create("vorpel", MFD_CLOEXEC)) {
        if (descriptor_ < 0) throw std::runtime_error("no file in memory");
        write(content);
    }
    explicit MemoryFile(std::span<const uint8_t> content)
        : MemoryFile(std::string_view(reinterpret_cast<const char*>(content.data()), content.size())) {}
    ~MemoryFile() { ::close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    void write(std::string_view content) const {
        const auto size = static_cast<ssize_t>(content.size());
        if (::write(descriptor_, content.data(), content.size()) != size) {
            throw std::runtime_error("no room for a file in memory");
        }
    }

    int descriptor_;
};

}  // namespace vorpel::testing
