// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_shortcuts_structure_policy.h"
#include "text/engine_constants.h"

namespace wordengine {

/// Walks one shortcut list: while `hasNext`, call `next`.
class BinaryDictionaryShortcutIterator {
public:
    /// `shortcutPos` is the list's position as the dictionary gives it; NO_DICT_POS is an empty list.
    BinaryDictionaryShortcutIterator(const DictionaryShortcutsStructurePolicy* shortcutStructurePolicy,
                                     int shortcutPos)
        : shortcutStructurePolicy_(shortcutStructurePolicy),
          pos_(shortcutStructurePolicy->getStartPos(shortcutPos)),
          hasNext_(shortcutPos != NO_DICT_POS) {}

    bool hasNext() const { return hasNext_; }

    /// `outTarget` holds WORD_LENGTH_LIMIT code points. `outIsWhitelist` may be null.
    void next(int* outTarget, int* outTargetLength, bool* outIsWhitelist) {
        shortcutStructurePolicy_->getNextShortcut(WORD_LENGTH_LIMIT, outTarget, outTargetLength,
                                                  outIsWhitelist, &hasNext_, &pos_);
    }

private:
    const DictionaryShortcutsStructurePolicy* shortcutStructurePolicy_;
    int pos_;
    bool hasNext_;
};

}  // namespace wordengine
