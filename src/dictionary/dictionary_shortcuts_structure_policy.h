// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// How a format stores the other words that a word stands for.
class DictionaryShortcutsStructurePolicy {
public:
    virtual ~DictionaryShortcutsStructurePolicy() = default;
    DictionaryShortcutsStructurePolicy(const DictionaryShortcutsStructurePolicy&) = delete;
    DictionaryShortcutsStructurePolicy& operator=(const DictionaryShortcutsStructurePolicy&) = delete;

    /// The position of the first entry of the list at `pos`; NO_DICT_POS stays as it is.
    virtual int getStartPos(int pos) const = 0;

    /// Reads the entry at `*pos` and moves the position behind what was read. Any result may be null;
    /// with a null `outCodePoint` the target is neither read nor skipped. `outCodePoint` holds
    /// `maxCodePointCount`. Past the bytes the target is empty and nothing follows.
    virtual void getNextShortcut(int maxCodePointCount, int* outCodePoint, int* outCodePointCount,
                                 bool* outIsWhitelist, bool* outHasNext, int* pos) const = 0;

    /// Moves `*pos` behind the list that begins there; never backwards.
    virtual void skipAllShortcuts(int* pos) const = 0;

protected:
    DictionaryShortcutsStructurePolicy() = default;
};

}  // namespace wordengine
