// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/buffer_with_extendable_buffer.h"

#include <cstdint>
#include <cstdio>
#include <vector>

namespace wordengine {

/// A hash trie in a growing store of bytes: 32-bit keys, values of up to 56 bits, and below each value,
/// where wanted, a map of the next level, so that sequences of words can be keys.
///
/// A table of up to 32 entries is packed: its bitmap, kept in the entry that leads to it, says which of
/// the 32 labels are there. Five bits of the shuffled key make the label of each depth. Tables that have
/// been outgrown wait in free lists, one for each size.
///
/// Safe on any bytes: an index is tested before it is followed, what leads outside is as if it were not
/// there, and every walk ends. A store that is full, or whose size no map can have, refuses to grow.
/// One thread at a time.
class TrieMap {
public:
    static constexpr int INVALID_INDEX = -1;
    static constexpr uint64_t MAX_VALUE = 0x00FFFFFFFFFFFFFF;

    struct Result {
        uint64_t value = 0;
        bool isValid = false;
        /// INVALID_INDEX without a next level.
        int nextLevelBitmapEntryIndex = INVALID_INDEX;
    };

    /// Where a walk stands in one table.
    struct TableIterationState {
        int tableSize;
        int tableIndex;
        int currentIndex;
    };
    using TableIterationStack = std::vector<TableIterationState>;

    class TrieMapRange;
    class TrieMapIterator;

    /// An empty map that owns its bytes.
    TrieMap();

    /// Over the bytes of somebody else, which must outlive the map.
    explicit TrieMap(ReadWriteByteArrayView buffer);

    [[nodiscard]] int getRootBitmapEntryIndex() const { return ROOT_BITMAP_ENTRY_INDEX; }

    /// Looks in the level that begins at the bitmap entry; nothing is found in INVALID_INDEX.
    [[nodiscard]] Result get(int key, int bitmapEntryIndex) const;

    /// False for a value above MAX_VALUE, for INVALID_INDEX, and when the store is full or damaged; the
    /// map is then as readable as it was.
    bool put(int key, uint64_t value, int bitmapEntryIndex);

    /// The level below a key, begun when there is none; INVALID_INDEX if the key is not there or the
    /// store is full.
    int getNextLevelBitmapEntryIndex(int key, int bitmapEntryIndex);

    bool save(std::FILE* file) const;
    [[nodiscard]] bool isNearSizeLimit() const;

    /// How many entries the store has room for: no sound walk reads more of them.
    [[nodiscard]] int getEntryCount() const;

    [[nodiscard]] TrieMapRange getEntriesInRootLevel() const;
    [[nodiscard]] TrieMapRange getEntriesInSpecifiedLevel(int bitmapEntryIndex) const;

    /// The stack with which iterateNext() walks the level; empty for an empty level.
    [[nodiscard]] TableIterationStack beginIteration(int bitmapEntryIndex) const;

    /// The next entry in the order of labels, depth first; an invalid Result at the end. Takes what it
    /// reads from `*remainingEntryCount`, and ends when that is used up.
    Result iterateNext(TableIterationStack* stack, int* remainingEntryCount, int* outKey) const;

private:
    static constexpr int FIELD0_SIZE = 4;
    static constexpr int FIELD1_SIZE = 3;
    static constexpr int ENTRY_SIZE = FIELD0_SIZE + FIELD1_SIZE;
    static constexpr uint32_t VALUE_FLAG = 0x400000;
    static constexpr uint32_t VALUE_MASK = 0x3FFFFF;
    static constexpr uint32_t TERMINAL_LINK_FLAG = 0x800000;
    static constexpr uint32_t TERMINAL_LINK_MASK = 0x7FFFFF;
    static constexpr int NUM_OF_BITS_USED_FOR_ONE_LEVEL = 5;
    static constexpr uint32_t LABEL_MASK = 0x1F;
    static constexpr int MAX_NUM_OF_ENTRIES_IN_ONE_LEVEL = 32;
    static constexpr int ROOT_BITMAP_ENTRY_INDEX = 0;
    static constexpr int ROOT_BITMAP_ENTRY_POS = 128;
    static constexpr int MAX_BUFFER_SIZE = TERMINAL_LINK_MASK * ENTRY_SIZE;
    /// Seven labels of five bits use up a key of 32.
    static constexpr int MAX_DEPTH = 7;
    /// An entry that leads to a table behind this one would read as a value.
    static constexpr int MAX_TABLE_INDEX = VALUE_MASK;

    struct Entry {
        uint32_t field0;
        uint32_t field1;

        /// Tested in this order: a link may have the bit of VALUE_FLAG in its index.
        [[nodiscard]] bool hasTerminalLink() const { return (field1 & TERMINAL_LINK_FLAG) != 0; }
        [[nodiscard]] bool isBitmapEntry() const { return (field1 & (TERMINAL_LINK_FLAG | VALUE_FLAG)) == 0; }

        [[nodiscard]] uint32_t key() const { return field0; }
        [[nodiscard]] uint32_t bitmap() const { return field0; }
        [[nodiscard]] int tableIndex() const { return static_cast<int>(field1); }
        [[nodiscard]] int linkIndex() const { return static_cast<int>(field1 & TERMINAL_LINK_MASK); }
        [[nodiscard]] uint32_t inlineValue() const { return field1 & VALUE_MASK; }
    };
    static constexpr Entry EMPTY_BITMAP_ENTRY{0, 0};

    /// Where the way of a key down one level ends.
    struct Place {
        /// False where the level cannot be followed to its end.
        bool isSound = false;
        int depth = 0;
        /// What leads to the last table on the way.
        int bitmapEntryIndex = INVALID_INDEX;
        Entry bitmapEntry = EMPTY_BITMAP_ENTRY;
        /// What stands there under the label of the key, of this key or another; INVALID_INDEX if nothing.
        int entryIndex = INVALID_INDEX;
        Entry entry = EMPTY_BITMAP_ENTRY;

        [[nodiscard]] bool isEmpty() const { return entryIndex == INVALID_INDEX; }
        [[nodiscard]] bool holds(uint32_t key) const { return isSound && !isEmpty() && entry.key() == key; }
    };

    static uint32_t getBitShuffledKey(uint32_t key);
    static uint32_t labelAt(uint32_t shuffledKey, int depth) {
        return shuffledKey >> (depth * NUM_OF_BITS_USED_FOR_ONE_LEVEL) & LABEL_MASK;
    }
    /// Tables are packed in the order of labels.
    static int indexInTable(uint32_t bitmap, uint32_t label);
    static int entryPos(int entryIndex) { return ROOT_BITMAP_ENTRY_POS + entryIndex * ENTRY_SIZE; }
    static int freeListPos(int entryCount) { return (entryCount - 1) * FIELD1_SIZE; }

    [[nodiscard]] bool isTable(int tableIndex, int entryCount) const;
    [[nodiscard]] Entry readEntry(int entryIndex) const;
    [[nodiscard]] Result readResult(const Entry& terminalEntry) const;
    [[nodiscard]] Place find(uint32_t key, int bitmapEntryIndex) const;

    bool writeEntry(const Entry& entry, int entryIndex);
    bool writeTerminalEntry(uint32_t key, uint64_t value, int entryIndex);
    int writeLinkedEntry(uint32_t key, uint64_t value, int entryIndex);
    bool updateValue(const Entry& terminalEntry, uint64_t value, int entryIndex);
    bool addNewEntryByExpandingTable(uint32_t key, uint64_t value, const Place& place);
    bool addNewEntryByResolvingConflict(uint32_t key, uint64_t value, const Place& place);
    bool writeTableOfTwo(uint32_t key, uint64_t value, const Entry& conflictedEntry, int depth,
                         int bitmapEntryIndex);
    int allocateTable(int entryCount);
    int takeFreeTable(int entryCount);
    bool freeTable(int tableIndex, int entryCount);

    BufferWithExtendableBuffer buffer_;
};

}  // namespace wordengine
