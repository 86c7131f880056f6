// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/byte_array_view.h"

#include <cstdint>
#include <vector>

namespace wordengine {

/// A store of bytes that grows: an original region of fixed size that somebody else owns (usually a
/// mapped file), and behind it an additional region that it owns. Both make one address space; bytes
/// can be changed anywhere and added only at the tail.
///
/// A write that does not fit writes nothing and returns false. A read of bytes that are not all there,
/// or that straddle the two regions, gives 0. One thread at a time; the original region must outlive
/// the store.
class BufferWithExtendableBuffer {
public:
    static constexpr int DEFAULT_MAX_ADDITIONAL_BUFFER_SIZE = 1024 * 1024;
    static constexpr int EXTEND_ADDITIONAL_BUFFER_SIZE_STEP = 128 * 1024;
    static constexpr int NEAR_BUFFER_LIMIT_THRESHOLD_PERCENTILE = 90;

    BufferWithExtendableBuffer(ReadWriteByteArrayView originalBuffer, int maxAdditionalBufferSize);

    /// With an empty original region.
    explicit BufferWithExtendableBuffer(int maxAdditionalBufferSize);

    [[nodiscard]] int getTailPosition() const { return originalSize() + usedAdditionalBufferSize_; }
    [[nodiscard]] int getOriginalBufferSize() const { return originalSize(); }
    [[nodiscard]] int getUsedAdditionalBufferSize() const { return usedAdditionalBufferSize_; }
    [[nodiscard]] bool isInAdditionalBuffer(int pos) const { return pos >= originalSize(); }
    [[nodiscard]] bool isNearSizeLimit() const;

    /// The used bytes of the region that is asked for. That of the additional region ends with the next
    /// write, which may move it.
    [[nodiscard]] ReadOnlyByteArrayView getBuffer(bool usesAdditionalBuffer) const;

    /// An unsigned big-endian integer of `size` bytes, 1 to 4; 0 for another size.
    [[nodiscard]] uint32_t readUint(int size, int pos) const;

    /// As readUint; moves `*pos` by `size` when the bytes are there, else leaves it.
    uint32_t readUintAndAdvancePosition(int size, int* pos) const;

    /// Reads a string of at most `maxCodePointCount` code points as ByteReader::readString does, within
    /// the region that holds `*pos`.
    void readCodePointsAndAdvancePosition(int maxCodePointCount, int* outCodePoints, int* outCodePointCount,
                                          int* pos) const;

    bool writeUint(uint32_t data, int size, int pos);
    bool writeUintAndAdvancePosition(uint32_t data, int size, int* pos);
    bool writeCodePointsAndAdvancePosition(const int* codePoints, int codePointCount, bool writesTerminator,
                                           int* pos);

    /// Adds `size` zero bytes at the tail.
    bool extend(int size);

    /// Writes all of `source` over this store from position 0 on; false at the first write that fails.
    bool copy(const BufferWithExtendableBuffer* source);

private:
    [[nodiscard]] int originalSize() const { return static_cast<int>(originalBuffer_.size()); }
    [[nodiscard]] uint8_t* regionBytes(int pos);
    [[nodiscard]] int regionStart(int pos) const { return isInAdditionalBuffer(pos) ? originalSize() : 0; }
    bool checkAndPrepareWriting(int pos, int size);
    bool extendBuffer(int64_t size);

    ReadWriteByteArrayView originalBuffer_;
    std::vector<uint8_t> additionalBuffer_;
    int usedAdditionalBufferSize_ = 0;
    uint32_t maxAdditionalBufferSize_;
};

}  // namespace wordengine
