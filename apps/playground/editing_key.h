// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::playground {

/// What a desk's keyboard does to a text field beside typing.
enum class EditingKey { Left, Right, Up, Down, Home, End, SelectAll, Backspace, Delete, Return };

/// A key, and whether the selection is to reach to where it moves the cursor.
struct EditingStroke {
    EditingKey key;
    bool selects;

    EditingStroke(EditingKey pressed, bool withSelection = false) : key(pressed), selects(withSelection) {}
};

}  // namespace vorpel::playground
