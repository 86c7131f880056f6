// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/sparse_table.h"

#include "text/engine_constants.h"

namespace wordengine {

namespace {

constexpr uint32_t ALL_BITS = 0xFFFFFFFF;

}  // namespace

SparseTable::SparseTable(BufferWithExtendableBuffer* indexTable, BufferWithExtendableBuffer* contentTable,
                         int blockSize, int dataSize)
    : indexTable_(indexTable), contentTable_(contentTable), blockSize_(blockSize), dataSize_(dataSize) {}

bool SparseTable::contains(int id) const {
    return getBlockNumber(id) != NOT_EXIST;
}

int SparseTable::get(int id) const {
    const int blockNumber = getBlockNumber(id);
    const int pos = blockNumber == NOT_EXIST ? NO_DICT_POS : getPosInContentTable(id, blockNumber);
    if (pos == NO_DICT_POS) return NO_DICT_POS;
    const uint32_t value = contentTable_->readUint(dataSize_, pos);
    return value == ALL_BITS >> (32 - 8 * dataSize_) ? NO_DICT_POS : static_cast<int>(value);
}

bool SparseTable::set(int id, uint32_t value) {
    if (id < 0 || !extendIndexTable(id)) return false;
    int blockNumber = getBlockNumber(id);
    if (blockNumber == NOT_EXIST) {
        // The block comes first: a table without room for it must not be led to.
        blockNumber = appendBlock();
        if (blockNumber == NOT_EXIST ||
            !indexTable_->writeUint(static_cast<uint32_t>(blockNumber), INDEX_SIZE, getPosInIndexTable(id))) {
            return false;
        }
    }
    const int pos = getPosInContentTable(id, blockNumber);
    return pos != NO_DICT_POS && contentTable_->writeUint(value, dataSize_, pos);
}

int SparseTable::getPosInIndexTable(int id) const {
    return id / blockSize_ * INDEX_SIZE;
}

/// NO_DICT_POS if the block is not there to its end.
int SparseTable::getPosInContentTable(int id, int blockNumber) const {
    const int64_t blockBytes = int64_t{blockSize_} * dataSize_;
    const int64_t blockPos = blockNumber * blockBytes;
    if (blockNumber < 0 || blockPos + blockBytes > contentTable_->getTailPosition()) return NO_DICT_POS;
    return static_cast<int>(blockPos) + id % blockSize_ * dataSize_;
}

int SparseTable::getIndexFromContentTablePos(int pos) const {
    return pos / dataSize_ / blockSize_;
}

int SparseTable::getBlockNumber(int id) const {
    if (id < 0) return NOT_EXIST;
    const int pos = getPosInIndexTable(id);
    if (pos > indexTable_->getTailPosition() - INDEX_SIZE) return NOT_EXIST;
    return static_cast<int>(indexTable_->readUint(INDEX_SIZE, pos));
}

bool SparseTable::extendIndexTable(int id) {
    const int pos = getPosInIndexTable(id);
    int tail = indexTable_->getTailPosition();
    // An entry that was cut in two would lie across the end of the original region.
    if (tail % INDEX_SIZE != 0) return false;
    while (tail <= pos) {
        if (!indexTable_->writeUintAndAdvancePosition(static_cast<uint32_t>(NOT_EXIST), INDEX_SIZE, &tail)) {
            return false;
        }
    }
    return true;
}

int SparseTable::appendBlock() {
    const int blockBytes = blockSize_ * dataSize_;
    int pos = contentTable_->getTailPosition();
    const int blockNumber = getIndexFromContentTablePos(pos);
    if (pos % blockBytes != 0 || !contentTable_->extend(blockBytes)) return NOT_EXIST;
    for (int i = 0; i < blockSize_; ++i) {
        contentTable_->writeUintAndAdvancePosition(ALL_BITS, dataSize_, &pos);
    }
    return blockNumber;
}

}  // namespace wordengine
