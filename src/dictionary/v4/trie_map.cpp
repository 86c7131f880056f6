// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/trie_map.h"

#include "dictionary/v4/trie_map_iterator.h"
#include "storage/dict_file_writing_utils.h"

#include <algorithm>
#include <bit>

namespace wordengine {

TrieMap::TrieMap() : buffer_(MAX_BUFFER_SIZE) {
    buffer_.extend(ROOT_BITMAP_ENTRY_POS + ENTRY_SIZE);
    writeEntry(EMPTY_BITMAP_ENTRY, ROOT_BITMAP_ENTRY_INDEX);
}

TrieMap::TrieMap(ReadWriteByteArrayView buffer)
    : buffer_(buffer, BufferWithExtendableBuffer::DEFAULT_MAX_ADDITIONAL_BUFFER_SIZE) {}

TrieMap::Result TrieMap::get(int key, int bitmapEntryIndex) const {
    const Place place = find(static_cast<uint32_t>(key), bitmapEntryIndex);
    return place.holds(static_cast<uint32_t>(key)) ? readResult(place.entry) : Result();
}

bool TrieMap::save(std::FILE* file) const {
    return DictFileWritingUtils::writeBufferToFileTail(file, &buffer_);
}

bool TrieMap::isNearSizeLimit() const {
    // The reach of a table's index can end long before the room in the store does.
    constexpr int64_t PERCENTILE = BufferWithExtendableBuffer::NEAR_BUFFER_LIMIT_THRESHOLD_PERCENTILE;
    return buffer_.isNearSizeLimit() || getEntryCount() >= MAX_TABLE_INDEX * PERCENTILE / 100;
}

int TrieMap::getEntryCount() const {
    return std::max(buffer_.getTailPosition() - ROOT_BITMAP_ENTRY_POS, 0) / ENTRY_SIZE;
}

TrieMap::TrieMapRange TrieMap::getEntriesInRootLevel() const {
    return getEntriesInSpecifiedLevel(ROOT_BITMAP_ENTRY_INDEX);
}

TrieMap::TrieMapRange TrieMap::getEntriesInSpecifiedLevel(int bitmapEntryIndex) const {
    return {this, bitmapEntryIndex};
}

TrieMap::TableIterationStack TrieMap::beginIteration(int bitmapEntryIndex) const {
    TableIterationStack stack;
    const Entry entry = readEntry(bitmapEntryIndex);
    const int tableSize = std::popcount(entry.bitmap());
    if (entry.isBitmapEntry() && isTable(entry.tableIndex(), tableSize)) {
        stack.push_back({tableSize, entry.tableIndex(), 0});
    }
    return stack;
}

TrieMap::Result TrieMap::iterateNext(TableIterationStack* stack, int* remainingEntryCount,
                                     int* outKey) const {
    while (!stack->empty()) {
        TableIterationState& state = stack->back();
        if (state.currentIndex >= state.tableSize) {
            stack->pop_back();
            continue;
        }
        if (*remainingEntryCount <= 0) break;
        --*remainingEntryCount;
        const Entry entry = readEntry(state.tableIndex + state.currentIndex);
        ++state.currentIndex;
        if (entry.isBitmapEntry()) {
            const int tableSize = std::popcount(entry.bitmap());
            if (stack->size() < MAX_DEPTH && isTable(entry.tableIndex(), tableSize)) {
                stack->push_back({tableSize, entry.tableIndex(), 0});
            }
            continue;
        }
        const Result result = readResult(entry);
        if (!result.isValid) continue;
        *outKey = static_cast<int>(entry.key());
        return result;
    }
    return {};
}

/// Spreads the bits of the key evenly over the labels. Every bit has a place of its own, so that keys
/// that differ still differ.
uint32_t TrieMap::getBitShuffledKey(uint32_t key) {
    uint32_t shuffledKey = 0;
    for (int i = 0; i < 4; ++i) {
        const uint32_t b = key >> (i * 8) & 0xFF;
        shuffledKey ^= ((b ^ (b << 7) ^ (b << 14) ^ (b << 21)) & 0x11111111) << i;
    }
    return shuffledKey;
}

int TrieMap::indexInTable(uint32_t bitmap, uint32_t label) {
    return std::popcount(bitmap & ((uint32_t{1} << label) - 1));
}

/// Whether the entries are there, apart from the root, which no table may hold.
bool TrieMap::isTable(int tableIndex, int entryCount) const {
    return tableIndex > ROOT_BITMAP_ENTRY_INDEX && tableIndex <= getEntryCount() - entryCount;
}

/// The empty bitmap entry where there is none.
TrieMap::Entry TrieMap::readEntry(int entryIndex) const {
    if (entryIndex < 0 || entryIndex >= getEntryCount()) return EMPTY_BITMAP_ENTRY;
    int pos = entryPos(entryIndex);
    Entry entry = EMPTY_BITMAP_ENTRY;
    entry.field0 = buffer_.readUintAndAdvancePosition(FIELD0_SIZE, &pos);
    entry.field1 = buffer_.readUint(FIELD1_SIZE, pos);
    return entry;
}

TrieMap::Result TrieMap::readResult(const Entry& terminalEntry) const {
    if (!terminalEntry.hasTerminalLink()) return {terminalEntry.inlineValue(), true, INVALID_INDEX};
    const int linkIndex = terminalEntry.linkIndex();
    if (!isTable(linkIndex, 2)) return {};
    const Entry valueEntry = readEntry(linkIndex);
    const uint64_t value = (uint64_t{valueEntry.field0} << (FIELD1_SIZE * 8)) | valueEntry.field1;
    return {value, true, linkIndex + 1};
}

TrieMap::Place TrieMap::find(uint32_t key, int bitmapEntryIndex) const {
    Place place;
    if (bitmapEntryIndex < 0 || bitmapEntryIndex >= getEntryCount()) return place;
    const uint32_t shuffledKey = getBitShuffledKey(key);
    int entryIndex = bitmapEntryIndex;
    Entry entry = readEntry(entryIndex);
    for (place.depth = 0; place.depth < MAX_DEPTH && entry.isBitmapEntry(); ++place.depth) {
        place.bitmapEntryIndex = entryIndex;
        place.bitmapEntry = entry;
        const int entryCount = std::popcount(entry.bitmap());
        if (entryCount > 0 && !isTable(entry.tableIndex(), entryCount)) return place;
        const uint32_t label = labelAt(shuffledKey, place.depth);
        if ((entry.bitmap() >> label & 1) == 0) {
            place.isSound = true;
            return place;
        }
        entryIndex = entry.tableIndex() + indexInTable(entry.bitmap(), label);
        entry = readEntry(entryIndex);
        if (!entry.isBitmapEntry()) {
            place.isSound = true;
            place.entryIndex = entryIndex;
            place.entry = entry;
            return place;
        }
    }
    return place;
}

}  // namespace wordengine
