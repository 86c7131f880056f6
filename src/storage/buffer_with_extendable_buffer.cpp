// SPDX-License-Identifier: Apache-2.0
#include "storage/buffer_with_extendable_buffer.h"

#include "storage/byte_array_utils.h"
#include "storage/byte_reader.h"

#include <algorithm>
#include <limits>

namespace wordengine {

BufferWithExtendableBuffer::BufferWithExtendableBuffer(ReadWriteByteArrayView originalBuffer,
                                                       int maxAdditionalBufferSize)
    : originalBuffer_(originalBuffer),
      maxAdditionalBufferSize_(static_cast<uint32_t>(std::max(maxAdditionalBufferSize, 0))) {}

BufferWithExtendableBuffer::BufferWithExtendableBuffer(int maxAdditionalBufferSize)
    : BufferWithExtendableBuffer(ReadWriteByteArrayView(), maxAdditionalBufferSize) {}

bool BufferWithExtendableBuffer::isNearSizeLimit() const {
    return additionalBuffer_.size() >=
           static_cast<uint64_t>(maxAdditionalBufferSize_) * NEAR_BUFFER_LIMIT_THRESHOLD_PERCENTILE / 100;
}

ReadOnlyByteArrayView BufferWithExtendableBuffer::getBuffer(bool usesAdditionalBuffer) const {
    if (!usesAdditionalBuffer) return originalBuffer_.readOnlyView();
    return {additionalBuffer_.data(), static_cast<size_t>(usedAdditionalBufferSize_)};
}

uint32_t BufferWithExtendableBuffer::readUint(int size, int pos) const {
    return readUintAndAdvancePosition(size, &pos);
}

uint32_t BufferWithExtendableBuffer::readUintAndAdvancePosition(int size, int* pos) const {
    if (*pos < 0) return 0;
    const int start = regionStart(*pos);
    ByteReader reader(getBuffer(isInAdditionalBuffer(*pos)), *pos - start);
    const uint32_t value = reader.readUint(size);
    if (reader.ok()) *pos = start + reader.position();
    return value;
}

void BufferWithExtendableBuffer::readCodePointsAndAdvancePosition(int maxCodePointCount, int* outCodePoints,
                                                                  int* outCodePointCount, int* pos) const {
    *outCodePointCount = 0;
    if (*pos < 0) return;
    const int start = regionStart(*pos);
    int regionPos = *pos - start;
    *outCodePointCount = ByteArrayUtils::readStringAndAdvancePosition(
        getBuffer(isInAdditionalBuffer(*pos)), maxCodePointCount, outCodePoints, &regionPos);
    *pos = start + regionPos;
}

bool BufferWithExtendableBuffer::writeUint(uint32_t data, int size, int pos) {
    return writeUintAndAdvancePosition(data, size, &pos);
}

bool BufferWithExtendableBuffer::writeUintAndAdvancePosition(uint32_t data, int size, int* pos) {
    if (size < 1 || size > 4 || !checkAndPrepareWriting(*pos, size)) return false;
    const int start = regionStart(*pos);
    int regionPos = *pos - start;
    ByteArrayUtils::writeUintAndAdvancePosition(regionBytes(*pos), data, size, &regionPos);
    *pos = start + regionPos;
    return true;
}

bool BufferWithExtendableBuffer::writeCodePointsAndAdvancePosition(const int* codePoints, int codePointCount,
                                                                   bool writesTerminator, int* pos) {
    const int size = ByteArrayUtils::calculateRequiredByteCountToStoreCodePoints(codePoints, codePointCount,
                                                                                 writesTerminator);
    if (!checkAndPrepareWriting(*pos, size)) return false;
    const int start = regionStart(*pos);
    int regionPos = *pos - start;
    ByteArrayUtils::writeCodePointsAndAdvancePosition(regionBytes(*pos), codePoints, codePointCount,
                                                      writesTerminator, &regionPos);
    *pos = start + regionPos;
    return true;
}

bool BufferWithExtendableBuffer::extend(int size) {
    return checkAndPrepareWriting(getTailPosition(), size);
}

bool BufferWithExtendableBuffer::copy(const BufferWithExtendableBuffer* source) {
    const int tail = source->getTailPosition();
    for (int pos = 0; pos < tail;) {
        int size = std::min(4, tail - pos);
        // Neither reading nor writing crosses from one region into the other.
        for (const int boundary : {source->getOriginalBufferSize(), getOriginalBufferSize()}) {
            if (pos < boundary) size = std::min(size, boundary - pos);
        }
        if (!writeUint(source->readUint(size, pos), size, pos)) return false;
        pos += size;
    }
    return true;
}

uint8_t* BufferWithExtendableBuffer::regionBytes(int pos) {
    return isInAdditionalBuffer(pos) ? additionalBuffer_.data() : originalBuffer_.data();
}

bool BufferWithExtendableBuffer::checkAndPrepareWriting(int pos, int size) {
    if (pos < 0 || size < 0) return false;
    const int64_t end = static_cast<int64_t>(pos) + size;
    if (!isInAdditionalBuffer(pos)) return end <= originalSize();
    if (end <= getTailPosition()) return true;
    if (pos != getTailPosition() || end > std::numeric_limits<int>::max()) return false;
    const int64_t extendSize = end - static_cast<int64_t>(additionalBuffer_.size()) - originalSize();
    if (extendSize > 0 && !extendBuffer(extendSize)) return false;
    usedAdditionalBufferSize_ += size;
    return true;
}

bool BufferWithExtendableBuffer::extendBuffer(int64_t size) {
    const auto presentSize = static_cast<int64_t>(additionalBuffer_.size());
    const int64_t step = std::max<int64_t>(EXTEND_ADDITIONAL_BUFFER_SIZE_STEP, size);
    const int64_t newSize = std::min<int64_t>(presentSize + step, maxAdditionalBufferSize_);
    if (newSize < presentSize + size) return false;
    additionalBuffer_.resize(static_cast<size_t>(newSize));
    return true;
}

}  // namespace wordengine
