// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/model/page_number.h"

#include <optional>

namespace vorpel {

/// The page that a field starts on.
struct PageSelection {
    std::optional<int> page;  ///< absent: the field's return key has none, and the page stays as it is
    bool isNumeric = false;   ///< the field takes numbers: no word is looked for
};

/// `keyboardType` and `returnType` are the values of platform::KeyboardType and platform::ReturnKeyType, or
/// any other number that a field came up with.
PageSelection selectPage(int keyboardType, int returnType, WidthSet width);

}  // namespace vorpel
