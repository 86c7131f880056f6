// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_shortcuts_structure_policy.h"
#include "dictionary/v4/shortcut_dict_content.h"

namespace wordengine {

/// The shortcuts of words in a dictionary that learns. Positions are of entries in the content, which must
/// outlive it.
class Ver4ShortcutListPolicy final : public DictionaryShortcutsStructurePolicy {
public:
    explicit Ver4ShortcutListPolicy(ShortcutDictContent* shortcutDictContent)
        : shortcutDictContent_(shortcutDictContent) {}

    int getStartPos(int pos) const override { return pos; }
    void getNextShortcut(int maxCodePointCount, int* outCodePoint, int* outCodePointCount,
                         bool* outIsWhitelist, bool* outHasNext, int* pos) const override;

    /// No list stands in the way of another field.
    void skipAllShortcuts(int*) const override {}

    /// A target that is there already gets the probability, of which four bits are kept.
    bool addNewShortcut(int terminalId, const int* targetCodePoints, int targetCodePointCount,
                        int shortcutProbability);

private:
    ShortcutDictContent* shortcutDictContent_;
};

}  // namespace wordengine
