// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::playground {

/// What a desk's keyboard does to a text field beside typing.
enum class EditingKey { Left, Right, Up, Down, Home, End, Backspace, Delete, Return };

}  // namespace vorpel::playground
