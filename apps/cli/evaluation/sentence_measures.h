// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "evaluation/latencies.h"
#include "word_service.h"

#include <json/json.h>

#include <string>
#include <vector>

namespace vorpel::cli {

/// One word of a sentence as it was typed, with all that was offered on the way.
struct ForeseenWord {
    std::string word;
    bool hasPrevious = false;     ///< a word stands before it in the sentence
    Answer predicted;             ///< before its first letter; empty without a word before it
    std::vector<Answer> answers;  ///< after each of its letters
};

/// Types a sentence into the service, word by word.
std::vector<ForeseenWord> typeSentence(const std::vector<std::string>& sentence, WordService& service,
                                       Latencies& latencies);

/// How well the words of running text are foreseen, and how many strokes that saves.
class SentenceMeasures {
public:
    /// With `foldHamza` alefs with and without hamza count as one letter.
    explicit SentenceMeasures(bool foldHamza) : foldHamza_(foldHamza) {}

    void add(const std::vector<ForeseenWord>& sentence);

    /// Shares in percent, counts as they are.
    [[nodiscard]] Json::Value toJson() const;

private:
    [[nodiscard]] std::size_t rankOf(const std::string& word, const Answer& answer) const;
    [[nodiscard]] int strokesFor(const ForeseenWord& word) const;

    bool foldHamza_;
    int words_ = 0;
    int foreseeable_ = 0;  ///< words with one before them in the sentence
    int inTop1_ = 0;
    int inTop3_ = 0;
    long strokesPlain_ = 0;  ///< every letter, and a space behind each word
    long strokesUsed_ = 0;
};

}  // namespace vorpel::cli
