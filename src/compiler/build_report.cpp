// SPDX-License-Identifier: Apache-2.0
#include "compiler/build_report.h"

#include <utility>

namespace vorpel::compiler {

std::string BuildReport::summary() const {
    const std::pair<const char*, int> lines[] = {
        {"words", words},
        {"not-a-word entries", notWords},
        {"offensive words", offensiveWords},
        {"pairs", pairs},
        {"pairs written by hand", seedPairs},
        {"corrections", corrections},
        {"shortcuts", shortcuts},
        {"entries of sources that cannot be words", unusableEntries},
        {"capitalised twins dropped", caseTwinsDropped},
        {"words excluded", excludedWords},
        {"words that are more often a slip", slipsDropped},
        {"words beyond the limit", wordsBeyondLimit},
        {"pairs below the minimum", pairsBelowMinimum},
        {"pairs that tell nothing", pairsThatTellNothing},
        {"pairs beyond those a word may have", pairsBeyondPerWord},
        {"pairs beyond the limit", pairsBeyondLimit},
        {"pairs written by hand skipped", seedPairsSkipped},
        {"corrections skipped", correctionsSkipped},
        {"offensive words that are not in the dictionary", unknownOffensiveWords},
        {"missing sources", static_cast<int>(missingSources.size())},
    };
    std::string text;
    for (const auto& [name, count] : lines) {
        if (count != 0) text += std::to_string(count) + " " + name + "\n";
    }
    return text;
}

}  // namespace vorpel::compiler
