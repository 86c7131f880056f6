// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/trie_map.h"

#include <bit>
#include <utility>

namespace wordengine {

// What changes a map. New tables are filled before the entry that leads to them is written, so that the
// map is whole wherever a write is refused; a table may be lost then.

bool TrieMap::put(int key, uint64_t value, int bitmapEntryIndex) {
    if (value > MAX_VALUE) return false;
    const auto bits = static_cast<uint32_t>(key);
    const Place place = find(bits, bitmapEntryIndex);
    if (!place.isSound) return false;
    if (place.isEmpty()) return addNewEntryByExpandingTable(bits, value, place);
    if (place.holds(bits)) return updateValue(place.entry, value, place.entryIndex);
    return addNewEntryByResolvingConflict(bits, value, place);
}

int TrieMap::getNextLevelBitmapEntryIndex(int key, int bitmapEntryIndex) {
    const auto bits = static_cast<uint32_t>(key);
    const Place place = find(bits, bitmapEntryIndex);
    if (!place.holds(bits)) return INVALID_INDEX;
    if (place.entry.hasTerminalLink()) return readResult(place.entry).nextLevelBitmapEntryIndex;
    const int tableIndex = writeLinkedEntry(bits, place.entry.inlineValue(), place.entryIndex);
    return tableIndex == INVALID_INDEX ? INVALID_INDEX : tableIndex + 1;
}

bool TrieMap::writeEntry(const Entry& entry, int entryIndex) {
    // Behind the end a write would make the store grow.
    if (entryIndex < 0 || entryIndex >= getEntryCount()) return false;
    int pos = entryPos(entryIndex);
    return buffer_.writeUintAndAdvancePosition(entry.field0, FIELD0_SIZE, &pos) &&
           buffer_.writeUint(entry.field1, FIELD1_SIZE, pos);
}

bool TrieMap::writeTerminalEntry(uint32_t key, uint64_t value, int entryIndex) {
    if (value > VALUE_MASK) return writeLinkedEntry(key, value, entryIndex) != INVALID_INDEX;
    return writeEntry({key, static_cast<uint32_t>(value) | VALUE_FLAG}, entryIndex);
}

/// Puts the value, and the root of an empty level behind it, into a table of their own; its index.
int TrieMap::writeLinkedEntry(uint32_t key, uint64_t value, int entryIndex) {
    const int tableIndex = allocateTable(2);
    if (tableIndex == INVALID_INDEX) return INVALID_INDEX;
    const bool isWritten =
        updateValue({key, static_cast<uint32_t>(tableIndex) | TERMINAL_LINK_FLAG}, value, entryIndex) &&
        writeEntry(EMPTY_BITMAP_ENTRY, tableIndex + 1) &&
        writeEntry({key, static_cast<uint32_t>(tableIndex) | TERMINAL_LINK_FLAG}, entryIndex);
    return isWritten ? tableIndex : INVALID_INDEX;
}

bool TrieMap::updateValue(const Entry& terminalEntry, uint64_t value, int entryIndex) {
    // Once linked, a value stays so: there may be a level below it.
    if (!terminalEntry.hasTerminalLink()) return writeTerminalEntry(terminalEntry.key(), value, entryIndex);
    constexpr int FIELD1_BITS = FIELD1_SIZE * 8;
    const auto field1 = static_cast<uint32_t>(value) & ((uint32_t{1} << FIELD1_BITS) - 1);
    return isTable(terminalEntry.linkIndex(), 2) &&
           writeEntry({static_cast<uint32_t>(value >> FIELD1_BITS), field1}, terminalEntry.linkIndex());
}

bool TrieMap::addNewEntryByExpandingTable(uint32_t key, uint64_t value, const Place& place) {
    const uint32_t bitmap = place.bitmapEntry.bitmap();
    const int oldTable = place.bitmapEntry.tableIndex();
    const int entryCount = std::popcount(bitmap);
    const uint32_t label = labelAt(getBitShuffledKey(key), place.depth);
    const int insertionIndex = indexInTable(bitmap, label);
    const int newTable = allocateTable(entryCount + 1);
    if (newTable == INVALID_INDEX) return false;
    for (int i = 0; i < entryCount; ++i) {
        const int newIndex = newTable + i + (i < insertionIndex ? 0 : 1);
        if (!writeEntry(readEntry(oldTable + i), newIndex)) return false;
    }
    const Entry newBitmapEntry{bitmap | uint32_t{1} << label, static_cast<uint32_t>(newTable)};
    return writeTerminalEntry(key, value, newTable + insertionIndex) &&
           writeEntry(newBitmapEntry, place.bitmapEntryIndex) &&
           (entryCount == 0 || freeTable(oldTable, entryCount));
}

bool TrieMap::addNewEntryByResolvingConflict(uint32_t key, uint64_t value, const Place& place) {
    const uint32_t shuffledKey = getBitShuffledKey(key);
    const uint32_t conflictedShuffledKey = getBitShuffledKey(place.entry.key());
    int bitmapEntryIndex = place.entryIndex;
    for (int depth = place.depth + 1; depth < MAX_DEPTH; ++depth) {
        const uint32_t label = labelAt(shuffledKey, depth);
        if (label != labelAt(conflictedShuffledKey, depth)) {
            return writeTableOfTwo(key, value, place.entry, depth, bitmapEntryIndex);
        }
        const int tableIndex = allocateTable(1);
        const Entry bitmapEntry{uint32_t{1} << label, static_cast<uint32_t>(tableIndex)};
        if (tableIndex == INVALID_INDEX || !writeEntry(place.entry, tableIndex) ||
            !writeEntry(bitmapEntry, bitmapEntryIndex)) {
            return false;
        }
        bitmapEntryIndex = tableIndex;
    }
    // Keys that differ only in labels that lie above: one of them was in the wrong place.
    return false;
}

/// Puts the table where the two keys part, and in place of the conflicted entry what leads to it.
bool TrieMap::writeTableOfTwo(uint32_t key, uint64_t value, const Entry& conflictedEntry, int depth,
                              int bitmapEntryIndex) {
    const uint32_t label = labelAt(getBitShuffledKey(key), depth);
    const uint32_t conflictedLabel = labelAt(getBitShuffledKey(conflictedEntry.key()), depth);
    const int tableIndex = allocateTable(2);
    if (tableIndex == INVALID_INDEX) return false;
    const int newIndex = tableIndex + (label < conflictedLabel ? 0 : 1);
    const int conflictedIndex = tableIndex + (label < conflictedLabel ? 1 : 0);
    const uint32_t bitmap = uint32_t{1} << label | uint32_t{1} << conflictedLabel;
    return writeEntry(conflictedEntry, conflictedIndex) && writeTerminalEntry(key, value, newIndex) &&
           writeEntry({bitmap, static_cast<uint32_t>(tableIndex)}, bitmapEntryIndex);
}

int TrieMap::allocateTable(int entryCount) {
    const int freeTableIndex = takeFreeTable(entryCount);
    if (freeTableIndex != INVALID_INDEX) return freeTableIndex;
    const int tableIndex = getEntryCount();
    // Entries that do not end where the store does would be cut in two when it grows.
    if (tableIndex == 0 || buffer_.getTailPosition() != entryPos(tableIndex)) return INVALID_INDEX;
    if (tableIndex > MAX_TABLE_INDEX || !buffer_.extend(entryCount * ENTRY_SIZE)) return INVALID_INDEX;
    return tableIndex;
}

/// INVALID_INDEX if the list is empty or begins with what can be no table.
int TrieMap::takeFreeTable(int entryCount) {
    const int tableIndex = static_cast<int>(buffer_.readUint(FIELD1_SIZE, freeListPos(entryCount)));
    if (tableIndex > MAX_TABLE_INDEX || !isTable(tableIndex, entryCount)) return INVALID_INDEX;
    const uint32_t next = readEntry(tableIndex).field0;
    return buffer_.writeUint(next, FIELD1_SIZE, freeListPos(entryCount)) ? tableIndex : INVALID_INDEX;
}

bool TrieMap::freeTable(int tableIndex, int entryCount) {
    const uint32_t next = buffer_.readUint(FIELD1_SIZE, freeListPos(entryCount));
    return writeEntry({next, 0}, tableIndex) &&
           buffer_.writeUint(static_cast<uint32_t>(tableIndex), FIELD1_SIZE, freeListPos(entryCount));
}

}  // namespace wordengine
