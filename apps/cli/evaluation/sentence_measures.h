// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "evaluation/latencies.h"
#include "word_service.h"

#include <json/json.h>

#include <string>
#include <vector>

namespace vorpel::cli {

/// How well the words of running text are foreseen, and how many strokes that saves.
class SentenceMeasures {
public:
    explicit SentenceMeasures(bool foldHamza) : foldHamza_(foldHamza) {}

    void add(const std::vector<std::string>& sentence, WordService& service, Latencies& latencies);

    /// Shares in percent, counts as they are.
    [[nodiscard]] Json::Value toJson() const;

private:
    [[nodiscard]] std::size_t rankOf(const std::string& word, const Answer& answer) const;
    [[nodiscard]] int strokesFor(const std::string& word, const std::string& previous,
                                 const Answer& predicted, WordService& service, Latencies& latencies) const;

    bool foldHamza_;
    int words_ = 0;
    int foreseeable_ = 0;  ///< words with one before them in the sentence
    int inTop1_ = 0;
    int inTop3_ = 0;
    long strokesPlain_ = 0;  ///< every letter, and a space behind each word
    long strokesUsed_ = 0;
};

}  // namespace vorpel::cli
