// SPDX-License-Identifier: Apache-2.0
#include "evaluation/sentence_measures.h"

#include "evaluation/percent.h"
#include "evaluation/word_comparison.h"
#include "text/utf.h"

namespace vorpel::cli {

namespace {

constexpr std::size_t SHOWN_WORDS = 3;

int letterCount(const std::string& word) {
    return static_cast<int>(wordengine::utf8ToUtf32Lenient(word).size());
}

}  // namespace

std::size_t SentenceMeasures::rankOf(const std::string& word, const Answer& answer) const {
    const std::u32string wanted = comparable(word, foldHamza_);
    for (std::size_t i = 0; i < answer.words.size(); ++i) {
        if (comparable(answer.words[i].word, foldHamza_) == wanted) return i;
    }
    return answer.words.size() + SHOWN_WORDS;
}

int SentenceMeasures::strokesFor(const std::string& word, const std::string& previous,
                                 const Answer& predicted, WordService& service, Latencies& latencies) const {
    if (rankOf(word, predicted) < SHOWN_WORDS) return 1;
    const int letters = letterCount(word);
    int typed = 0;
    int strokes = letters + 1;
    service.type(word, previous, nullptr, [&](const std::string&, const Answer& answer) {
        latencies.add(answer.microseconds);
        ++typed;
        // Picking costs one stroke, which gives the space too.
        const bool picked = rankOf(word, answer) < SHOWN_WORDS;
        if (picked && strokes == letters + 1) strokes = typed + 1;
    });
    return strokes;
}

void SentenceMeasures::add(const std::vector<std::string>& sentence, WordService& service,
                           Latencies& latencies) {
    std::string previous;
    for (const std::string& word : sentence) {
        Answer predicted;
        if (!previous.empty()) {
            predicted = service.predict(previous);
            const std::size_t rank = rankOf(word, predicted);
            ++foreseeable_;
            inTop1_ += rank < 1;
            inTop3_ += rank < SHOWN_WORDS;
        }
        ++words_;
        strokesPlain_ += letterCount(word) + 1;
        strokesUsed_ += strokesFor(word, previous, predicted, service, latencies);
        previous = word;
    }
}

Json::Value SentenceMeasures::toJson() const {
    Json::Value json(Json::objectValue);
    json["words"] = words_;
    json["next_word_top1"] = percent(inTop1_, foreseeable_);
    json["next_word_top3"] = percent(inTop3_, foreseeable_);
    const auto plain = static_cast<double>(strokesPlain_);
    json["keystroke_savings"] = percent(plain - static_cast<double>(strokesUsed_), plain);
    return json;
}

}  // namespace vorpel::cli
