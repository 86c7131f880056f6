// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/key_frame.h"

#include <string>

namespace vorpel::compiler {

/// The typing keys of a page as the keyboard lays them out on a screen of that width, at scale 2: those whose
/// output is one code point, capitals where the page has them. Languages are "en" and "ar".
/// Throws std::invalid_argument for another language, a page that does not exist, or a size that leaves no
/// room for the keys.
KeyPage layOutKeyPage(const std::string& language, int page, double width, double height);

/// Adds the letters that a long press gives, in the frame of the key that is held: a touch there may mean
/// any of them. Keys that the page does not have are passed over.
void addHeldLetters(const std::string& language, KeyPage* page);

}  // namespace vorpel::compiler
