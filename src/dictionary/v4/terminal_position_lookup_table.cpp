// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/terminal_position_lookup_table.h"

#include "text/engine_constants.h"

namespace wordengine {

TerminalPositionLookupTable::TerminalPositionLookupTable(ReadWriteByteArrayView buffer)
    : SingleDictContent(buffer), size_(getBuffer()->getTailPosition() / ENTRY_SIZE) {}

int TerminalPositionLookupTable::getTerminalPtNodePosition(int terminalId) const {
    if (terminalId < 0 || terminalId >= size_) return NO_DICT_POS;
    const auto pos = static_cast<int>(getBuffer()->readUint(ENTRY_SIZE, getEntryPos(terminalId)));
    return pos == Ver4DictConstants::NOT_A_TERMINAL_ADDRESS ? NO_DICT_POS : pos;
}

bool TerminalPositionLookupTable::setTerminalPtNodePosition(int terminalId, int terminalPtNodePos) {
    if (terminalId < 0) return true;
    const int address =
        terminalPtNodePos == NO_DICT_POS ? Ver4DictConstants::NOT_A_TERMINAL_ADDRESS : terminalPtNodePos;
    if (address < 0 || address > MAX_ADDRESS) return false;
    for (; terminalId >= size_; ++size_) {
        if (!getWritableBuffer()->writeUint(Ver4DictConstants::NOT_A_TERMINAL_ADDRESS, ENTRY_SIZE,
                                            getEntryPos(size_))) {
            return false;
        }
    }
    return getWritableBuffer()->writeUint(static_cast<uint32_t>(address), ENTRY_SIZE,
                                          getEntryPos(terminalId));
}

bool TerminalPositionLookupTable::flushToFile(std::FILE* file, Framing framing) const {
    if (getEntryPos(size_) == getBuffer()->getTailPosition()) return flush(file, framing);
    TerminalPositionLookupTable compact;
    for (int id = 0; id < size_; ++id) {
        if (!compact.setTerminalPtNodePosition(id, getTerminalPtNodePosition(id))) return false;
    }
    return compact.flush(file, framing);
}

bool TerminalPositionLookupTable::runGCTerminalIds(TerminalIdMap* terminalIdMap) {
    int nextId = 0;
    for (int id = 0; id < size_; ++id) {
        const int pos = getTerminalPtNodePosition(id);
        if (pos == NO_DICT_POS) continue;
        if (!setTerminalPtNodePosition(nextId, pos)) return false;
        (*terminalIdMap)[id] = nextId++;
    }
    size_ = nextId;
    return true;
}

}  // namespace wordengine
