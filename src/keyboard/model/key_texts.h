// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/model/page_number.h"

#include <span>
#include <string_view>

namespace vorpel {

/// A row that differs on one page from what its table says.
struct RowException {
    int page;
    std::size_t row;
    std::string_view texts;
};

/// What one language writes on its keys. A row is one string with a blank between keys.
struct KeyTexts {
    std::string_view letters[3];
    std::string_view digits;
    std::string_view textNumbers;  ///< row 1 of the numbers page of text fields
    std::string_view textSymbols;  ///< row 1 of the symbols page of text fields
    std::string_view spaceCap;
    std::string_view returnCap;
    std::string_view sendCap;
    std::span<const RowException> exceptions;
    bool (*hasShift)(const PageNumber& page);
};

extern const KeyTexts LATIN_TEXTS;
extern const KeyTexts ARABIC_TEXTS;

/// The characters of rows 0 to 2 of a page, without the keys at the ends.
std::string_view charactersOfRow(const KeyTexts& texts, const PageNumber& page, std::size_t row);

}  // namespace vorpel
