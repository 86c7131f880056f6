// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/buffer_with_extendable_buffer.h"
#include "storage/byte_reader.h"

namespace wordengine {

/// Reads a record in whichever region of a buffer it begins; no record lies in both. Positions are those of
/// the whole buffer. Short-lived: the next write may move the bytes.
class BufferCursor {
public:
    BufferCursor(const BufferWithExtendableBuffer* buffer, int pos)
        : regionStart_(buffer->isInAdditionalBuffer(pos) ? buffer->getOriginalBufferSize() : 0),
          reader_(buffer->getBuffer(buffer->isInAdditionalBuffer(pos)), pos < 0 ? -1 : pos - regionStart_) {}

    [[nodiscard]] ByteReader* reader() { return &reader_; }
    [[nodiscard]] bool ok() const { return reader_.ok(); }
    [[nodiscard]] int pos() const { return regionStart_ + reader_.position(); }

private:
    int regionStart_;
    ByteReader reader_;
};

}  // namespace wordengine
