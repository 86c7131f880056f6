// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "word_service.h"

#include <string>
#include <vector>

namespace vorpel::cli {

/// One word of an evaluation set: what came out of the keys, and what was meant.
struct EvaluationRow {
    std::string typed;
    std::string intended;
    std::string group;  ///< the row's level, else its source
    std::string previous;
    PlainTouches touches;
};

/// Reads a table with a header line: tab-separated columns `typed` and `intended`, and as far as
/// present `level` or `source`, `prev` and `points`. Throws std::runtime_error with file and line.
std::vector<EvaluationRow> readEvaluationRows(const std::string& path);

/// Reads sentences, one a line, as their words: runs of letters, marks and digits, apostrophes and
/// hyphens between them included. Throws std::runtime_error with file and line.
std::vector<std::vector<std::string>> readSentences(const std::string& path);

}  // namespace vorpel::cli
