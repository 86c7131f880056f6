// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel {

/// How a word was typed, which its suggestions follow.
struct WordCase {
    bool allCaps = false;
    bool firstCap = false;

    /// All in capitals where the word is, else with a capital where the word begins with one.
    [[nodiscard]] std::string applyTo(const std::string& suggestion) const;
};

/// A word without letters of two cases counts as one in capitals.
[[nodiscard]] WordCase caseOf(const std::string& word);

/// Neither a word without case nor one with a single capital letter is one in capitals: every sentence begins
/// with one.
[[nodiscard]] WordCase naturalCaseOf(const std::string& word);

}  // namespace vorpel
