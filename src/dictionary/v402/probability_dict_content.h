// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/dict_content.h"
#include "dictionary/v4/probability_content.h"
#include "dictionary/v4/terminal_id_map.h"

namespace wordengine::backward::v402 {

/// What a dictionary of the older layout knows of each word: entries of one size, in the order of the
/// terminal ids. Used as LanguageModelDictContent is.
class ProbabilityDictContent final : public SingleDictContent, public ProbabilityContent {
public:
    /// Over bytes that somebody else owns and keeps.
    ProbabilityDictContent(ReadWriteByteArrayView buffer, bool hasHistoricalInfo);
    explicit ProbabilityDictContent(bool hasHistoricalInfo);

    /// Writes the entries alone: they have a file of their own.
    bool save(std::FILE* file) const { return flush(file, Framing::BARE); }

    [[nodiscard]] ProbabilityEntry getProbabilityEntry(int terminalId) const override;

    /// Ids between the last and this one get empty entries.
    bool setProbabilityEntry(int terminalId, const ProbabilityEntry* probabilityEntry) override;
    [[nodiscard]] bool isNearSizeLimit() const override { return SingleDictContent::isNearSizeLimit(); }

    bool runGC(const TerminalIdMap* terminalIdMap, const ProbabilityContent* original,
               int* outEntryCount) override;

private:
    [[nodiscard]] int getEntrySize() const;
    [[nodiscard]] int getEntryCount() const { return getBuffer()->getTailPosition() / getEntrySize(); }
    bool appendEmptyEntries(int entryCount);
    bool writeEntry(const ProbabilityEntry& entry, int pos);

    bool hasHistoricalInfo_;
};

}  // namespace wordengine::backward::v402
