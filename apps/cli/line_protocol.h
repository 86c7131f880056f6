// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "word_service.h"

#include <cstddef>
#include <functional>
#include <istream>
#include <string>

namespace vorpel::cli {

/// Some dozen times what the longest word with its points takes.
inline constexpr std::size_t LONGEST_REQUEST_LINE = 1 << 20;

/// Reads the next line without its end. Of a longer one than LONGEST_REQUEST_LINE only one byte more than
/// that is kept, and answerLine() refuses it. False behind the last line.
bool readRequestLine(std::istream& input, std::string* line);

/// The answer to one line of the protocol, without a line end: one JSON object, with "error" for any line
/// that cannot be answered. The function opens the service of a language, "en" or "ar", and may throw.
std::string answerLine(const std::string& line, const std::string& defaultLanguage,
                       const std::function<WordService&(const std::string& language)>& serviceFor);

}  // namespace vorpel::cli
