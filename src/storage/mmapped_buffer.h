// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/byte_array_view.h"

#include <memory>

namespace wordengine {

/// A file, or a range of one, mapped into memory; unmapped by the destructor, which ends every view.
/// The mapping is private: what is written into an updatable one never reaches the file.
///
/// A range that the file does not hold is refused, since touching it would end the process. That holds
/// at the time of opening: a file that is cut while it is mapped is no longer safe to read, so files
/// are replaced, not rewritten.
class MmappedBuffer {
public:
    using MmappedBufferPtr = std::unique_ptr<const MmappedBuffer>;

    /// Maps `bufferSize` bytes from `bufferOffset` on, which need not lie on a page boundary. Null if
    /// the file cannot be opened or mapped or is no plain file, or if offset or size are negative, the
    /// size of the mapping is 0 or the range ends behind the file.
    static MmappedBufferPtr openBuffer(const char* path, int bufferOffset, int bufferSize, bool isUpdatable);

    /// Maps a whole file; an empty file gives an empty buffer with a null view. Null on failure.
    static MmappedBufferPtr openBuffer(const char* path, bool isUpdatable);

    /// Maps the whole file whose path is `basePath` followed by `suffix`; null also for a path of 1025
    /// bytes or more.
    static MmappedBufferPtr openBuffer(const char* basePath, const char* suffix, bool isUpdatable);

    ~MmappedBuffer();
    MmappedBuffer(const MmappedBuffer&) = delete;
    MmappedBuffer& operator=(const MmappedBuffer&) = delete;

    [[nodiscard]] ReadOnlyByteArrayView getReadOnlyByteArrayView() const { return view_.readOnlyView(); }

    /// May be written to only if isUpdatable().
    [[nodiscard]] ReadWriteByteArrayView getReadWriteByteArrayView() const { return view_; }

    [[nodiscard]] bool isUpdatable() const { return isUpdatable_; }

private:
    explicit MmappedBuffer(bool isUpdatable);
    MmappedBuffer(ReadWriteByteArrayView view, void* mappedAddress, int mappedSize, int fileDescriptor,
                  bool isUpdatable);

    ReadWriteByteArrayView view_;
    void* mappedAddress_;
    int mappedSize_;
    int fileDescriptor_;
    bool isUpdatable_;
};

}  // namespace wordengine
