// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/buffer_with_extendable_buffer.h"

#include <cstdint>

namespace wordengine {

/// From ids of 0 and more to 32-bit values, in little room where most ids have none. The index table
/// has a block number, or NOT_EXIST, for each run of `blockSize` ids; the content table has the blocks,
/// with all bits set where an id has no value.
///
/// Owns neither table; both must outlive it. What a damaged table leads outside to is as if it were not
/// there. One thread at a time.
class SparseTable {
public:
    static constexpr int NOT_EXIST = -1;
    static constexpr int INDEX_SIZE = 4;

    /// `dataSize` is the size of a value in bytes, 4 at most.
    SparseTable(BufferWithExtendableBuffer* indexTable, BufferWithExtendableBuffer* contentTable,
                int blockSize, int dataSize);

    /// Whether the run of ids has a block, be it without a value for this one.
    [[nodiscard]] bool contains(int id) const;

    /// NO_DICT_POS if the id has no value.
    [[nodiscard]] int get(int id) const;

    /// False, with no other value changed, for a negative id and when a table is full or damaged.
    bool set(int id, uint32_t value);

private:
    [[nodiscard]] int getPosInIndexTable(int id) const;
    [[nodiscard]] int getPosInContentTable(int id, int blockNumber) const;
    [[nodiscard]] int getIndexFromContentTablePos(int pos) const;
    [[nodiscard]] int getBlockNumber(int id) const;
    bool extendIndexTable(int id);
    int appendBlock();

    BufferWithExtendableBuffer* indexTable_;
    BufferWithExtendableBuffer* contentTable_;
    int blockSize_;
    int dataSize_;
};

}  // namespace wordengine
