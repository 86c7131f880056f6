// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/bigram_entry.h"
#include "dictionary/v4/dict_content.h"
#include "dictionary/v4/terminal_id_map.h"

#include <optional>

namespace wordengine {

/// The pairs of words: under the terminal id of the first word a list of entries of one size. How a list
/// goes on and ends is the matter of the layout that derives from this.
///
/// A list is walked with
///
///     int remainingEntryCount = content->getMaxEntryCount();
///     int pos = content->getBigramListHeadPos(terminalId);
///     while (const auto found = content->readNextEntry(&pos, &remainingEntryCount)) { ... }
///
/// which ends on any bytes.
class BigramListContent : public SparseTableDictContent {
public:
    struct FoundEntry {
        /// Where to write what takes its place.
        int pos;
        BigramEntry entry;
    };

    virtual ~BigramListContent() = default;

    [[nodiscard]] bool hasHistoricalInfo() const { return hasHistoricalInfo_; }
    [[nodiscard]] int getEntrySize() const;
    [[nodiscard]] int getContentTailPos() const { return getContentBuffer()->getTailPosition(); }

    /// How many entries there is room for: all sound lists together have no more.
    [[nodiscard]] int getMaxEntryCount() const { return getContentTailPos() / getEntrySize(); }

    /// NO_DICT_POS for a word without a list.
    [[nodiscard]] int getBigramListHeadPos(int terminalId) const { return getListHeadPos(terminalId); }

    /// An entry without target and without a next one at the end of a list and outside the content.
    [[nodiscard]] BigramEntry getBigramEntry(int pos) const { return getBigramEntryAndAdvancePosition(&pos); }
    [[nodiscard]] BigramEntry getBigramEntryAndAdvancePosition(int* pos) const;

    /// The next entry of a list, valid or not; `*pos` becomes where to go on, NO_DICT_POS behind the last
    /// entry. Nothing at the end. Takes what it reads from `*remainingEntryCount`; a walk that would take
    /// more ends too and leaves -1, which happens only where lists are damaged.
    std::optional<FoundEntry> readNextEntry(int* pos, int* remainingEntryCount) const;

    /// Writes over an entry, or one more at the tail. False, with nothing written, for a target, or
    /// without history a probability, that does not fit into its field.
    bool writeBigramEntry(const BigramEntry* bigramEntry, int pos) {
        return writeBigramEntryAndAdvancePosition(bigramEntry, &pos);
    }
    bool writeBigramEntryAndAdvancePosition(const BigramEntry* bigramEntry, int* pos);

    /// Makes the tail of the content, as it is now, the head of the word's list.
    bool createNewBigramList(int terminalId) { return setListHead(terminalId, getContentTailPos()); }

    /// Puts the entry before those of the word's list, or begins one. False leaves the list as it was.
    bool addNewBigramEntry(int terminalId, const BigramEntry* bigramEntry);

    /// Copies into this empty content the pairs that `original`, of the same layout, has of words that are
    /// kept, under their new ids. `outBigramCount` becomes their count. False if this content is full or
    /// the original damaged.
    bool runGC(const TerminalIdMap* terminalIdMap, const BigramListContent* original, int* outBigramCount);

    /// Copies what is kept of the list at `bigramListPos` to the tail; `outEntryCount` becomes the count
    /// of entries written, and nothing at all is written for none.
    bool runGCBigramList(int bigramListPos, const BigramListContent* source,
                         const TerminalIdMap* terminalIdMap, int* remainingEntryCount, int* outEntryCount);

protected:
    /// An entry as it stands in the content.
    struct Record {
        int flags;
        BigramEntry entry;
    };

    BigramListContent(const BufferViews& buffers, bool hasHistoricalInfo);
    explicit BigramListContent(bool hasHistoricalInfo);

    /// Nothing, with `*pos` where it was, if the record is not there to its end or the count is used up.
    [[nodiscard]] std::optional<Record> readRecordAndAdvancePosition(int* pos,
                                                                     int* remainingEntryCount) const;

    /// All or nothing.
    bool writeRecordAndAdvancePosition(int flags, const BigramEntry& entry, int* pos);

private:
    /// Moves `*pos` behind the entry, wherever in the content that lies.
    [[nodiscard]] virtual std::optional<BigramEntry> readEntry(int* pos, int* remainingEntryCount) const = 0;
    [[nodiscard]] virtual int flagsOf(const BigramEntry& entry) const = 0;
    /// Lets the list that ends with what was written last go on with that at `headPos`, or ends it there
    /// if that is NO_DICT_POS.
    virtual bool continueList(int headPos) = 0;

    [[nodiscard]] bool isInOneRegion(int recordPos) const;
    bool setListHead(int terminalId, int headPos);
    [[nodiscard]] bool canBeStored(const BigramEntry& entry) const;

    bool hasHistoricalInfo_;
};

}  // namespace wordengine
