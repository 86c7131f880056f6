// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/results/suggested_word.h"
#include "text/engine_constants.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel::testing {

/// For promises that hold whatever the input: a broken one ends a test, or a fuzzer's run.
inline void require(bool isKept, const char* promise) {
    if (!isKept) throw std::logic_error(std::string("broken promise: ") + promise);
}

/// What is true of the words of every request, worst first as the results give them.
inline void checkAnswer(const std::vector<wordengine::SuggestedWord>& words, size_t maxCount) {
    require(words.size() <= maxCount, "no more words than were asked for");
    for (size_t i = 0; i < words.size(); ++i) {
        const int length = words[i].getCodePointCount();
        require(length > 0 && length <= wordengine::WORD_LENGTH_LIMIT, "words of 1 to 48 code points");
        require(i == 0 || words[i - 1].getScore() <= words[i].getScore(), "words in the order of scores");
    }
}

}  // namespace vorpel::testing
