// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/bigram_list_content.h"

namespace wordengine {

/// Pairs in lists that are linked: an entry goes on with what lies behind it, be it an entry or a link to
/// the place of the next; a link to nowhere ends the list. So a new entry is put before a list without
/// moving it.
class BigramDictContent final : public BigramListContent {
public:
    static constexpr int INVALID_LINKED_ENTRY_POS = Ver4DictConstants::NOT_A_TERMINAL_ID;

    BigramDictContent(const BufferViews& buffers, bool hasHistoricalInfo)
        : BigramListContent(buffers, hasHistoricalInfo) {}
    explicit BigramDictContent(bool hasHistoricalInfo) : BigramListContent(hasHistoricalInfo) {}

    /// False, with nothing written, for a position that three bytes do not hold.
    bool writeLink(int linkedEntryPos, int pos);
    bool writeTerminator(int pos) { return writeLink(INVALID_LINKED_ENTRY_POS, pos); }

private:
    [[nodiscard]] std::optional<BigramEntry> readEntry(int* pos, int* remainingEntryCount) const override;
    [[nodiscard]] int flagsOf(const BigramEntry&) const override { return 0; }
    bool continueList(int headPos) override;
};

}  // namespace wordengine
