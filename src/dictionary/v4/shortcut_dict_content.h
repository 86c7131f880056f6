// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/dict_content.h"
#include "dictionary/v4/terminal_id_map.h"

namespace wordengine {

/// The shortcuts of words: under a word's terminal id a list of targets, each with a probability of four
/// bits and the mark that another follows.
class ShortcutDictContent final : public SparseTableDictContent {
public:
    ShortcutDictContent();
    explicit ShortcutDictContent(const BufferViews& buffers);

    /// Reads the entry at `pos`, without a next one and with an empty target if `pos` lies outside. The
    /// target is read if both its outputs are given; any output may be null.
    void getShortcutEntry(int maxCodePointCount, int* outCodePoints, int* outCodePointCount,
                          int* outProbability, bool* outHasNext, int pos) const;

    /// As getShortcutEntry; moves `*pos` behind what was read.
    void getShortcutEntryAndAdvancePosition(int maxCodePointCount, int* outCodePoints, int* outCodePointCount,
                                            int* outProbability, bool* outHasNext, int* pos) const;

    /// NO_DICT_POS for a word without shortcuts.
    [[nodiscard]] int getShortcutListHeadPos(int terminalId) const { return getListHeadPos(terminalId); }
    [[nodiscard]] int getContentTailPos() const { return getContentBuffer()->getTailPosition(); }

    /// False, with nothing written, for a target that would not be read back as it is.
    bool writeShortcutEntry(const int* codePoints, int codePointCount, int probability, bool hasNext,
                            int pos);
    bool writeShortcutEntryAndAdvancePosition(const int* codePoints, int codePointCount, int probability,
                                              bool hasNext, int* pos);

    bool copyShortcutList(int shortcutListPos, int toPos);
    bool copyShortcutListFromDictContent(int shortcutListPos, const ShortcutDictContent* sourceContent,
                                         int toPos);

    /// Makes the tail of the content the head of the word's list.
    bool createNewShortcutList(int terminalId) {
        return setShortcutListHead(terminalId, getContentTailPos());
    }

    /// The word's list is the one that begins there.
    bool setShortcutListHead(int terminalId, int listPos);

    /// Where the entry with this target lies in the list; NO_DICT_POS if it is not there.
    [[nodiscard]] int findShortcutEntryAndGetPos(int shortcutListPos, const int* targetCodePoints,
                                                 int codePointCount) const;

    bool setProbability(int probability, int shortcutEntryPos);

    /// Copies into this empty content the lists that `original` has of words that are kept, under their
    /// new ids.
    bool runGC(const TerminalIdMap* terminalIdMap, const ShortcutDictContent* original);

private:
    static int createAndGetShortcutFlags(int probability, bool hasNext);
};

}  // namespace wordengine
