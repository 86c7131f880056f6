// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/sparse_table.h"
#include "dictionary/v4/ver4_dict_constants.h"
#include "storage/buffer_with_extendable_buffer.h"
#include "storage/byte_array_view.h"

#include <array>
#include <cstdio>

namespace wordengine {

/// One part of a dictionary that can be updated, over buffers of its own. A part that is opened reads the
/// bytes of somebody else, who must keep them, and adds its own behind. One thread at a time.
class DictContent {
public:
    /// How a buffer goes to a file: where several share one, each is preceded by its size.
    enum class Framing { SIZE_FIRST, BARE };

    DictContent(const DictContent&) = delete;
    DictContent& operator=(const DictContent&) = delete;

protected:
    DictContent() = default;
    ~DictContent() = default;

    static bool flushBuffer(std::FILE* file, const BufferWithExtendableBuffer* buffer, Framing framing);
};

/// A part of one buffer.
class SingleDictContent : public DictContent {
public:
    [[nodiscard]] const BufferWithExtendableBuffer* getBuffer() const { return &buffer_; }
    [[nodiscard]] bool isNearSizeLimit() const { return buffer_.isNearSizeLimit(); }

protected:
    explicit SingleDictContent(ReadWriteByteArrayView buffer)
        : buffer_(buffer, Ver4DictConstants::MAX_DICT_EXTENDED_REGION_SIZE) {}
    SingleDictContent() : buffer_(Ver4DictConstants::MAX_DICTIONARY_SIZE) {}
    ~SingleDictContent() = default;

    [[nodiscard]] BufferWithExtendableBuffer* getWritableBuffer() { return &buffer_; }
    bool flush(std::FILE* file, Framing framing) const { return flushBuffer(file, &buffer_, framing); }

private:
    BufferWithExtendableBuffer buffer_;
};

/// A part of lists that are found by the terminal id of a word, which few words have: the two tables of a
/// SparseTable, which gives the place of a word's list, and the content with the lists.
class SparseTableDictContent : public DictContent {
public:
    static constexpr int LOOKUP_TABLE_BUFFER_INDEX = 0;
    static constexpr int ADDRESS_TABLE_BUFFER_INDEX = 1;
    static constexpr int CONTENT_BUFFER_INDEX = 2;
    static constexpr int BUFFER_COUNT = 3;

    /// In the order of the indices above.
    using BufferViews = std::array<ReadWriteByteArrayView, BUFFER_COUNT>;

    [[nodiscard]] const SparseTable* getAddressLookupTable() const { return &addressLookupTable_; }
    [[nodiscard]] const BufferWithExtendableBuffer* getContentBuffer() const {
        return &buffers_[CONTENT_BUFFER_INDEX];
    }
    [[nodiscard]] bool isNearSizeLimit() const;

    /// Writes all three buffers, each preceded by its size.
    bool flushToFile(std::FILE* file) const;

    /// Writes the bytes of one buffer, for formats with a file for each.
    bool flushBufferToFile(std::FILE* file, int bufferIndex) const;

protected:
    SparseTableDictContent(const BufferViews& buffers, int blockSize, int dataSize);
    SparseTableDictContent(int blockSize, int dataSize);
    ~SparseTableDictContent() = default;

    [[nodiscard]] SparseTable* getUpdatableAddressLookupTable() { return &addressLookupTable_; }
    [[nodiscard]] BufferWithExtendableBuffer* getWritableContentBuffer() {
        return &buffers_[CONTENT_BUFFER_INDEX];
    }

    /// Where the list of the word begins; NO_DICT_POS if it has none, or none within the content.
    [[nodiscard]] int getListHeadPos(int terminalId) const;

private:
    std::array<BufferWithExtendableBuffer, BUFFER_COUNT> buffers_;
    SparseTable addressLookupTable_;
};

}  // namespace wordengine
