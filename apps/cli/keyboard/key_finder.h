// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/controller/key_plane.h"

#include <optional>
#include <string>
#include <vector>

namespace vorpel::cli {

/// The key of a page that types the text or has it on its face; or that bears one of the names shift,
/// backspace, globe, emoji, space, return and dismiss. Null when there is none.
const Key* findKey(const KeyPlane& plane, int page, const std::string& text);

/// What a person would call the key.
std::string nameOfKey(const Key& key);

/// The mode keys to press, one after another, to get from a page to the nearest one with a key that types the
/// text; empty when the page has one, nothing when no page that can be reached has.
std::optional<std::vector<const Key*>> pathToKey(const KeyPlane& plane, int page, const std::string& text);

}  // namespace vorpel::cli
