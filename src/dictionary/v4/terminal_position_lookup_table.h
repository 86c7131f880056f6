// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/dict_content.h"
#include "dictionary/v4/terminal_id_map.h"

namespace wordengine {

/// Where the node of each terminal id lies in the trie: three bytes an id, 0 for an id whose word is gone.
class TerminalPositionLookupTable final : public SingleDictContent {
public:
    TerminalPositionLookupTable() = default;
    explicit TerminalPositionLookupTable(ReadWriteByteArrayView buffer);

    /// NO_DICT_POS for an id that has no node.
    [[nodiscard]] int getTerminalPtNodePosition(int terminalId) const;

    /// NO_DICT_POS takes the node away. Changes nothing and is true for a negative id, so that callers
    /// need not ask whether a node has one; false for a position that three bytes do not hold.
    bool setTerminalPtNodePosition(int terminalId, int terminalPtNodePos);

    /// The id for the next new word.
    [[nodiscard]] int getNextTerminalId() const { return size_; }

    /// Writes the ids there are, and no room that a garbage collection left.
    bool flushToFile(std::FILE* file, Framing framing = Framing::SIZE_FIRST) const;

    /// Moves the ids together and tells the new id of each; ids without a node go.
    bool runGCTerminalIds(TerminalIdMap* terminalIdMap);

private:
    static constexpr int ENTRY_SIZE = Ver4DictConstants::TERMINAL_ADDRESS_TABLE_ADDRESS_SIZE;
    static constexpr int MAX_ADDRESS = 0xFFFFFF;

    static int getEntryPos(int terminalId) { return terminalId * ENTRY_SIZE; }

    int size_ = 0;
};

}  // namespace wordengine
