// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_bigrams_structure_policy.h"
#include "dictionary/v4/bigram_list_content.h"
#include "dictionary/v4/terminal_position_lookup_table.h"

#include <optional>

namespace wordengine {

class BigramProperty;
class HeaderPolicy;

/// The pairs of words in a dictionary that learns, by the terminal id of the first word. Positions are of
/// entries in the content. All must outlive it.
class Ver4BigramListPolicy final : public DictionaryBigramsStructurePolicy {
public:
    Ver4BigramListPolicy(BigramListContent* bigramDictContent,
                         const TerminalPositionLookupTable* terminalPositionLookupTable,
                         const HeaderPolicy* headerPolicy)
        : bigramDictContent_(bigramDictContent),
          terminalPositionLookupTable_(terminalPositionLookupTable),
          headerPolicy_(headerPolicy) {}

    void getNextBigram(int* outBigramPos, int* outProbability, bool* outHasNext,
                       int* bigramEntryPos) const override;

    /// No list stands in the way of another field.
    bool skipAllBigrams(int*) const override { return true; }

    /// 1 to 255, or NO_PROBABILITY.
    [[nodiscard]] int getProbability(const BigramEntry& entry) const;

    /// A pair that is there already is updated, and is then no new entry.
    bool addNewEntry(int terminalId, int newTargetTerminalId, const BigramProperty* bigramProperty,
                     bool* outAddedNewEntry);

    /// False where there is no such pair.
    bool removeEntry(int terminalId, int targetTerminalId);

    /// What time has done to the pairs is written down; those that are forgotten or whose second word is gone
    /// go. False for a damaged list or a refused write.
    bool updateAllBigramEntriesAndDeleteUselessEntries(int terminalId, int* outBigramCount);

    /// The entries of the list that have a target. Spelled as it always was.
    [[nodiscard]] int getBigramEntryConut(int terminalId) const;

private:
    using FoundEntry = BigramListContent::FoundEntry;

    [[nodiscard]] BigramEntry createUpdatedBigramEntryFrom(const BigramEntry& original,
                                                           const BigramProperty& bigramProperty) const;
    [[nodiscard]] BigramEntry createEntryToSave(const BigramEntry& entry) const;

    /// The entry of the pair, else the first without a target; nothing where there is neither.
    [[nodiscard]] std::optional<FoundEntry> getEntryPosToUpdate(int targetTerminalId, int listHeadPos) const;

    BigramListContent* bigramDictContent_;
    const TerminalPositionLookupTable* terminalPositionLookupTable_;
    const HeaderPolicy* headerPolicy_;
};

}  // namespace wordengine
