// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/bigram_list_content.h"

namespace wordengine::backward::v402 {

/// Pairs in lists that lie in one piece: each entry says whether another follows. So a list is copied to
/// the tail when an entry is put before it.
class BigramDictContent final : public BigramListContent {
public:
    BigramDictContent(const BufferViews& buffers, bool hasHistoricalInfo)
        : BigramListContent(buffers, hasHistoricalInfo) {}
    explicit BigramDictContent(bool hasHistoricalInfo) : BigramListContent(hasHistoricalInfo) {}

    /// Copies a list and marks the end of the copy. `outTailEntryPos` becomes the place of its last entry,
    /// NO_DICT_POS if there was none to copy.
    bool copyBigramList(int bigramListPos, int toPos, int* outTailEntryPos);

    /// False for a place without an entry.
    bool updateHasNextFlag(bool hasNext, int bigramEntryPos);

private:
    [[nodiscard]] std::optional<BigramEntry> readEntry(int* pos, int* remainingEntryCount) const override;
    [[nodiscard]] int flagsOf(const BigramEntry& entry) const override;
    bool continueList(int headPos) override;
};

}  // namespace wordengine::backward::v402
