// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/results/suggested_word.h"

#include <vector>

namespace vorpel {

/// One of SuggestedWord's KIND constants: the word's type without its flags.
inline int kindOf(const wordengine::SuggestedWord& word) {
    constexpr int kindMask = 0xFF;
    return word.getType() & kindMask;
}

/// One request's words, best first, and what was decided about the first of them.
struct RankedSuggestions {
    std::vector<wordengine::SuggestedWord> words;
    bool typedWordFound = false;  ///< the typed word itself was among the candidates; it is left out
    bool refused = false;         ///< the first word is on the whitelist and yet may not replace
    bool canAutoCorrect = false;  ///< the first word may replace what was typed
};

}  // namespace vorpel
