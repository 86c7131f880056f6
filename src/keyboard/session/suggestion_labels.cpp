// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/suggestion_labels.h"

#include "platform/characters.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vorpel {

namespace {

// What a correction is judged by: the words that may come on show.
constexpr std::size_t JUDGED_WORDS = 3;

std::string quoted(const std::string& word) {
    return '"' + word + '"';
}

/// The person's word is not to be replaced by itself, nor by several.
void judge(AnsweredWord& answer) {
    if (!answer.isCorrecting) answer.canAutoCorrect = false;
    if (!answer.isCorrecting || answer.words.empty()) return;
    const std::string typed = platform::lowercased(answer.typed);
    const auto judged = static_cast<std::ptrdiff_t>(std::min(JUDGED_WORDS, answer.words.size()));
    const auto end = answer.words.begin() + judged;
    const auto isTyped = [&typed](const std::string& word) { return platform::lowercased(word) == typed; };
    const auto isSeveral = [](const std::string& word) { return word.find(' ') != std::string::npos; };
    if (std::any_of(answer.words.begin(), end,
                    [&](const std::string& word) { return isTyped(word) || isSeveral(word); })) {
        answer.canAutoCorrect = false;
    }
    answer.words.erase(std::remove_if(answer.words.begin(), end, isTyped), end);
}

std::vector<std::string> titlesOf(const AnsweredWord& answer, LabelPlan plan) {
    std::vector<std::string> titles;
    for (const std::string& word : answer.words) {
        std::string title = answer.wordCase.applyTo(word);
        const bool isNew = title != answer.typed && std::ranges::find(titles, title) == titles.end();
        if (plan == LabelPlan::Fixed || isNew) titles.push_back(std::move(title));
    }
    return titles;
}

}  // namespace

LabelTitles labelsFor(AnsweredWord answer, LabelPlan plan) {
    judge(answer);
    const bool corrects = answer.canAutoCorrect && !answer.words.empty();
    const std::vector<std::string> titles = titlesOf(answer, plan);
    const auto title = [&titles](std::size_t index) {
        return index < titles.size() ? titles[index] : std::string();
    };
    LabelTitles labels;
    labels.autoCorrect = corrects;
    if (corrects) {
        labels.first = quoted(answer.typed);
    } else if (!titles.empty() || plan == LabelPlan::Distinct) {
        labels.first = title(0);
    }
    const bool beginsAnew = plan == LabelPlan::Fixed ? answer.isCorrecting : corrects;
    const std::size_t next = beginsAnew ? 0 : 1;
    labels.second = title(next);
    labels.third = title(next + 1);
    return labels;
}

}  // namespace vorpel
