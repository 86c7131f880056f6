// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "word_service.h"

#include <json/json.h>

#include <string>

namespace vorpel::cli {

/// An answer as the JSON that the tool speaks: words, scores and kinds in parallel, and autocorrect.
Json::Value toJson(const Answer& answer);

/// One line of JSON, with letters as they are rather than escaped.
std::string toLine(const Json::Value& value);

/// A table for a person: rank, word, score and kind a line.
void printWords(const Answer& answer);

}  // namespace vorpel::cli
