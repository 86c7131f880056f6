// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/model/keyboard.h"

namespace vorpel {

// The whole Latin and the whole Arabic keyboard: 159 pages by the numbers of PageNumber, of which 108 have
// their four rows and the others none. What a field asks for only selects among them, and so both arguments
// are passed over.

Keyboard defaultKeyboard(int keyboardType, int returnKeyType);
Keyboard arabicKeyboard(int keyboardType, int returnKeyType);

}  // namespace vorpel
