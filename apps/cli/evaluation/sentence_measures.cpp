// SPDX-License-Identifier: Apache-2.0
#include "evaluation/sentence_measures.h"

#include "evaluation/percent.h"
#include "evaluation/word_comparison.h"

namespace vorpel::cli {

namespace {

constexpr std::size_t SHOWN_WORDS = 3;

}  // namespace

std::vector<ForeseenWord> typeSentence(const std::vector<std::string>& sentence, WordService& service,
                                       Latencies& latencies) {
    std::vector<ForeseenWord> typed;
    std::string previous;
    for (const std::string& word : sentence) {
        ForeseenWord& foreseen = typed.emplace_back();
        foreseen.word = word;
        foreseen.hasPrevious = !previous.empty();
        if (foreseen.hasPrevious) foreseen.predicted = service.predict(previous);
        service.type(word, previous, nullptr, [&](const std::string&, const Answer& answer) {
            latencies.add(answer.microseconds);
            foreseen.answers.push_back(answer);
        });
        previous = word;
    }
    return typed;
}

std::size_t SentenceMeasures::rankOf(const std::string& word, const Answer& answer) const {
    const std::u32string wanted = comparable(word, foldHamza_);
    for (std::size_t i = 0; i < answer.words.size(); ++i) {
        if (comparable(answer.words[i].word, foldHamza_) == wanted) return i;
    }
    return answer.words.size() + SHOWN_WORDS;
}

int SentenceMeasures::strokesFor(const ForeseenWord& word) const {
    // Picking costs one stroke, which gives the space too.
    if (rankOf(word.word, word.predicted) < SHOWN_WORDS) return 1;
    const int letters = static_cast<int>(word.answers.size());
    for (int typed = 1; typed <= letters; ++typed) {
        const Answer& answer = word.answers[static_cast<std::size_t>(typed - 1)];
        if (rankOf(word.word, answer) < SHOWN_WORDS) return typed + 1;
    }
    return letters + 1;
}

void SentenceMeasures::add(const std::vector<ForeseenWord>& sentence) {
    for (const ForeseenWord& word : sentence) {
        if (word.hasPrevious) {
            const std::size_t rank = rankOf(word.word, word.predicted);
            ++foreseeable_;
            inTop1_ += rank < 1;
            inTop3_ += rank < SHOWN_WORDS;
        }
        ++words_;
        strokesPlain_ += static_cast<long>(word.answers.size()) + 1;
        strokesUsed_ += strokesFor(word);
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
