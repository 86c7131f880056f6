// SPDX-License-Identifier: Apache-2.0
#include "storage/mmapped_buffer.h"

#include "storage/file_utils.h"

#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <limits>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wordengine {

namespace {

constexpr int MAX_PATH_BUFFER_SIZE = 1025;

/// Whether all of the range lies in the file as it is now.
bool holdsRange(int fileDescriptor, int offset, int size) {
    struct stat status;
    if (fstat(fileDescriptor, &status) != 0 || !S_ISREG(status.st_mode)) return false;
    return static_cast<int64_t>(offset) + size <= static_cast<int64_t>(status.st_size);
}

}  // namespace

MmappedBuffer::MmappedBufferPtr MmappedBuffer::openBuffer(const char* path, int bufferOffset, int bufferSize,
                                                          bool isUpdatable) {
    if (bufferOffset < 0 || bufferSize < 0) return nullptr;
    const int adjustment = static_cast<int>(bufferOffset % sysconf(_SC_PAGESIZE));
    if (bufferSize > std::numeric_limits<int>::max() - adjustment) return nullptr;
    const int alignedSize = bufferSize + adjustment;
    // Without O_NONBLOCK a pipe in the place of a dictionary would be waited for.
    const int fileDescriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fileDescriptor < 0) return nullptr;
    if (!holdsRange(fileDescriptor, bufferOffset, bufferSize)) {
        close(fileDescriptor);
        return nullptr;
    }
    const int protection = isUpdatable ? PROT_READ | PROT_WRITE : PROT_READ;
    void* const mapped = mmap(nullptr, static_cast<size_t>(alignedSize), protection, MAP_PRIVATE,
                              fileDescriptor, bufferOffset - adjustment);
    if (mapped == MAP_FAILED) {
        close(fileDescriptor);
        return nullptr;
    }
    const ReadWriteByteArrayView view(static_cast<uint8_t*>(mapped) + adjustment,
                                      static_cast<size_t>(bufferSize));
    return MmappedBufferPtr(new MmappedBuffer(view, mapped, alignedSize, fileDescriptor, isUpdatable));
}

MmappedBuffer::MmappedBufferPtr MmappedBuffer::openBuffer(const char* path, bool isUpdatable) {
    const int fileSize = FileUtils::getFileSize(path);
    if (fileSize == -1) return nullptr;
    if (fileSize == 0) return MmappedBufferPtr(new MmappedBuffer(isUpdatable));
    return openBuffer(path, 0, fileSize, isUpdatable);
}

MmappedBuffer::MmappedBufferPtr MmappedBuffer::openBuffer(const char* basePath, const char* suffix,
                                                          bool isUpdatable) {
    char path[MAX_PATH_BUFFER_SIZE];
    const int length = std::snprintf(path, sizeof(path), "%s%s", basePath, suffix);
    if (length < 0 || length >= MAX_PATH_BUFFER_SIZE) return nullptr;
    return openBuffer(path, isUpdatable);
}

MmappedBuffer::MmappedBuffer(bool isUpdatable)
    : mappedAddress_(nullptr), mappedSize_(0), fileDescriptor_(0), isUpdatable_(isUpdatable) {}

MmappedBuffer::MmappedBuffer(ReadWriteByteArrayView view, void* mappedAddress, int mappedSize,
                             int fileDescriptor, bool isUpdatable)
    : view_(view),
      mappedAddress_(mappedAddress),
      mappedSize_(mappedSize),
      fileDescriptor_(fileDescriptor),
      isUpdatable_(isUpdatable) {}

MmappedBuffer::~MmappedBuffer() {
    if (mappedSize_ == 0) return;
    munmap(mappedAddress_, static_cast<size_t>(mappedSize_));
    close(fileDescriptor_);
}

}  // namespace wordengine
