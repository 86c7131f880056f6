// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace vorpel {

/// Where words end.
enum class WordSplitting {
    Listed,  ///< at the signs of a fixed list
    Natural  ///< also at line ends, tabs and Arabic marks, but not at an apostrophe between letters
};

/// The word before the cursor and the one before that; empty where there is none.
struct SentenceWords {
    std::string current;
    std::string previous;

    friend bool operator==(const SentenceWords&, const SentenceWords&) = default;
};

/// What stands behind the last separator; the whole sentence without one. UTF-8; any thread.
[[nodiscard]] std::string getTheCurrentWordFromSentence(std::string_view sentence, WordSplitting splitting);

/// The listed splitting finds no previous word behind two separators in a row; the natural one passes over
/// all of them, but not over the end of a sentence. Any thread.
[[nodiscard]] SentenceWords getTheCurrentAndPrevWordFromSentence(std::string_view sentence,
                                                                 WordSplitting splitting);

}  // namespace vorpel
