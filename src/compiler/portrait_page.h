// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/key_frame.h"

#include <string>
#include <vector>

namespace vorpel::compiler {

/// One key of a row before it has a frame.
struct RowKey {
    enum class Kind {
        Character,  ///< types its code point
        Space,      ///< types a blank and takes what room its row leaves
        Special     ///< takes room and types nothing that a dictionary holds
    };
    Kind kind = Kind::Special;
    int codePoint = 0;
};

using KeyRow = std::vector<RowKey>;

/// The rows of the letters page of a language ("en" or "ar"), capitals where the page has them.
/// Throws std::invalid_argument for another language.
std::vector<KeyRow> letterRows(const std::string& language);

/// Lays rows out in portrait and keeps the keys that type. Widths are those of a phone's screen held
/// upright, from 320 points; frames are snapped to the pixels of a screen of scale 2.
/// Throws std::invalid_argument for a size that leaves no room for the keys.
KeyPage layOutPortraitPage(const std::vector<KeyRow>& rows, double width, double height);

/// Adds the letters that a long press gives, in the frame of the key that is held: a touch there may mean
/// any of them. Keys that the page does not have are passed over.
void addHeldLetters(const std::string& language, KeyPage* page);

}  // namespace vorpel::compiler
