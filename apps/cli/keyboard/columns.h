// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/characters.h"

#include <cstddef>
#include <string>

namespace vorpel::cli {

/// The text with blanks behind it up to so many characters.
inline std::string padded(std::string text, std::size_t width) {
    const std::size_t count = platform::characterCount(text);
    if (count < width) text.append(width - count, ' ');
    return text;
}

}  // namespace vorpel::cli
