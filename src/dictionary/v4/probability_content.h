// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/probability_entry.h"
#include "dictionary/v4/terminal_id_map.h"

namespace wordengine {

/// What a dictionary that learns knows of each word, by its terminal id, however its layout keeps it.
class ProbabilityContent {
public:
    virtual ~ProbabilityContent() = default;
    ProbabilityContent(const ProbabilityContent&) = delete;
    ProbabilityContent& operator=(const ProbabilityContent&) = delete;

    /// A default entry for a word that is not there.
    [[nodiscard]] virtual ProbabilityEntry getProbabilityEntry(int terminalId) const = 0;

    /// False for a negative id, a probability that cannot be stored, and when there is no room.
    virtual bool setProbabilityEntry(int terminalId, const ProbabilityEntry* probabilityEntry) = 0;

    [[nodiscard]] virtual bool isNearSizeLimit() const = 0;

    /// Copies into this empty content what `original`, of the same layout, has of the words that are kept,
    /// under their new ids. `outEntryCount`, if given, becomes the count of entries. False if this content is
    /// full or the original damaged.
    virtual bool runGC(const TerminalIdMap* terminalIdMap, const ProbabilityContent* original,
                       int* outEntryCount) = 0;

protected:
    ProbabilityContent() = default;
};

}  // namespace wordengine
