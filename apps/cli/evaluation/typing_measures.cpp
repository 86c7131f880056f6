// SPDX-License-Identifier: Apache-2.0
#include "evaluation/typing_measures.h"

#include "evaluation/percent.h"
#include "evaluation/word_comparison.h"

#include <algorithm>
#include <cmath>

namespace vorpel::cli {

namespace {

constexpr std::size_t NOT_FOUND = 1000;

}  // namespace

void TypingMeasures::add(const EvaluationRow& row, const Answer& answer,
                         const std::function<bool()>& isKnown) {
    const std::u32string typed = comparable(row.typed, foldHamza_);
    const std::u32string intended = comparable(row.intended, foldHamza_);
    const bool replaced = answer.autoCorrects && !answer.words.empty();
    const std::u32string final = replaced ? comparable(answer.words.front().word, foldHamza_) : typed;
    const bool isError = typed != intended;

    ++rows_;
    errors_ += isError;
    wrongAtLast_ += final != intended;
    changes_ += final != typed;
    rightChanges_ += final != typed && final == intended;
    mended_ += isError && final == intended;
    falseFires_ += !isError && final != intended;
    const std::size_t shown = std::min<std::size_t>(answer.words.size(), 3);
    keptVisible_ +=
        std::any_of(answer.words.begin(), answer.words.begin() + static_cast<std::ptrdiff_t>(shown),
                    [&](const ScoredWord& word) { return comparable(word.word, foldHamza_) == typed; });
    countRanks(intended, answer, isError, isKnown);
}

void TypingMeasures::countRanks(const std::u32string& intended, const Answer& answer, bool isError,
                                const std::function<bool()>& isKnown) {
    const auto found = std::find_if(answer.words.begin(), answer.words.end(), [&](const ScoredWord& word) {
        return comparable(word.word, foldHamza_) == intended;
    });
    const std::size_t rank =
        found == answer.words.end() ? NOT_FOUND : static_cast<std::size_t>(found - answer.words.begin());
    foundInTop1_ += rank < 1;
    foundInTop3_ += rank < 3;
    foundInTop10_ += rank < 10;
    if (!isError) return;
    errorsInTop1_ += rank < 1;
    errorsInTop3_ += rank < 3;
    errorsInTop10_ += rank < 10;
    if (rank == 0) return;
    if (rank != NOT_FOUND) {
        ++missedLower_;
    } else if (isKnown()) {
        ++missedUnfound_;
    } else {
        ++missedUnknown_;
    }
}

Json::Value TypingMeasures::toJson() const {
    Json::Value json(Json::objectValue);
    json["rows"] = rows_;
    json["errors"] = errors_;
    json["top1"] = percent(foundInTop1_, rows_);
    json["top3"] = percent(foundInTop3_, rows_);
    json["top10"] = percent(foundInTop10_, rows_);
    json["errors_top1"] = percent(errorsInTop1_, errors_);
    json["errors_top3"] = percent(errorsInTop3_, errors_);
    json["errors_top10"] = percent(errorsInTop10_, errors_);
    json["wer_raw"] = percent(errors_, rows_);
    json["wer"] = percent(wrongAtLast_, rows_);
    const double precision = percent(rightChanges_, changes_);
    const double recall = percent(mended_, errors_);
    json["precision"] = precision;
    json["recall"] = recall;
    const double denominator = 0.81 * precision + recall;
    json["f09"] = denominator > 0 ? std::round(181 * precision * recall / denominator) / 100 : 0.0;
    json["false_fire"] = percent(falseFires_, rows_ - errors_);
    json["changed"] = percent(changes_, rows_);
    json["typed_in_top3"] = percent(keptVisible_, rows_);
    json["missed_unknown_word"] = missedUnknown_;
    json["missed_not_found"] = missedUnfound_;
    json["missed_ranked_lower"] = missedLower_;
    return json;
}

}  // namespace vorpel::cli
