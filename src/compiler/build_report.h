// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace vorpel::compiler {

/// What a build did and what it left out. Counts of what is in the dictionary come first, then counts of
/// what is not.
struct BuildReport {
    int words = 0;
    int notWords = 0;
    int pairs = 0;
    int seedPairs = 0;
    int corrections = 0;
    int shortcuts = 0;
    int offensiveWords = 0;

    int unusableEntries = 0;
    int caseTwinsDropped = 0;
    int excludedWords = 0;
    int slipsDropped = 0;
    int wordsBeyondLimit = 0;
    int pairsBelowMinimum = 0;
    int pairsThatTellNothing = 0;
    int pairsBeyondPerWord = 0;
    int pairsBeyondLimit = 0;
    int seedPairsSkipped = 0;
    int correctionsSkipped = 0;
    int unknownOffensiveWords = 0;

    std::vector<std::string> missingSources;
    /// One line each, with file and line where there is one.
    std::vector<std::string> warnings;

    /// The counts as text for a person, one line each, those of 0 left out; without the warnings.
    [[nodiscard]] std::string summary() const;
};

}  // namespace vorpel::compiler
