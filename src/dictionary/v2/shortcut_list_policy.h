// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_shortcuts_structure_policy.h"
#include "storage/byte_array_view.h"

namespace wordengine {

/// The shortcut lists of the read-only format. The body must outlive it.
class ShortcutListPolicy final : public DictionaryShortcutsStructurePolicy {
public:
    explicit ShortcutListPolicy(ReadOnlyByteArrayView body) : body_(body) {}

    int getStartPos(int pos) const override;
    void getNextShortcut(int maxCodePointCount, int* outCodePoint, int* outCodePointCount,
                         bool* outIsWhitelist, bool* outHasNext, int* pos) const override;
    /// A list that does not fit into the body leaves NO_DICT_POS.
    void skipAllShortcuts(int* pos) const override;

private:
    ReadOnlyByteArrayView body_;
};

}  // namespace wordengine
