// SPDX-License-Identifier: Apache-2.0
#include "word_service.h"

#include "suggestion/suggestion_provider.h"
#include "text/utf.h"

#include <chrono>
#include <stdexcept>

namespace vorpel::cli {

namespace {

using wordengine::SuggestedWord;

std::string nameOfKind(int type) {
    constexpr int kindMask = 0xFF;
    switch (type & kindMask) {
        case SuggestedWord::KIND_CORRECTION:
            return "correction";
        case SuggestedWord::KIND_WHITELIST:
            return "whitelist";
        case SuggestedWord::KIND_SHORTCUT:
            return "shortcut";
        case SuggestedWord::KIND_PREDICTION:
            return "prediction";
        default:
            return "unknown";
    }
}

/// Asks a question of the service and times it.
template <typename Question>
Answer ask(Question&& question) {
    const auto start = std::chrono::steady_clock::now();
    const std::optional<RankedSuggestions> ranked = question();
    const std::chrono::duration<double, std::micro> spent = std::chrono::steady_clock::now() - start;
    Answer answer;
    answer.microseconds = spent.count();
    if (!ranked) return answer;
    answer.autoCorrects = ranked->canAutoCorrect;
    for (const SuggestedWord& word : ranked->words) {
        answer.words.push_back({toUtf8(word), word.getScore(), nameOfKind(word.getType())});
    }
    return answer;
}

std::u32string lettersOf(const std::string& word) {
    const auto letters = wordengine::utf8ToUtf32(word);
    if (!letters) throw std::runtime_error("the word is not UTF-8");
    return *letters;
}

}  // namespace

WordService::WordService(const LanguageFiles& files)
    : bundle_({files.geometryFolder}),
      service_(std::make_unique<VPWordSuggestions>(bundle_, defaults_)),
      grid_(files.language, files.geometryFile()) {
    service_->initializeTheAutoCorrectionModuleForDicPath(files.dictionary, files.geometryFolder,
                                                          files.language);
    service_->useTouchPoint = true;
}

TouchPoint WordService::touchOf(std::size_t letter, const PlainTouches* touches) const {
    constexpr TouchPoint none{SuggestionProvider::NO_TOUCH_COORDINATE,
                              SuggestionProvider::NO_TOUCH_COORDINATE};
    if (!touches || letter >= touches->points.size() || !touches->points[letter]) return none;
    return grid_.carryOver(*touches->points[letter], touches->width, touches->height);
}

Answer WordService::type(const std::string& word, const std::string& previous, const PlainTouches* touches,
                         const Observer& observer) {
    const std::u32string letters = lettersOf(word);
    Answer answer;
    double total = 0;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const std::string typed = wordengine::utf32ToUtf8(letters.substr(0, i + 1));
        const TouchPoint touch = touchOf(i, touches);
        answer = ask([&] { return service_->getRankedSuggestionsForWord(typed, previous, touch); });
        total += answer.microseconds;
        if (observer) observer(typed, answer);
    }
    answer.microseconds = total;
    return answer;
}

Answer WordService::predict(const std::string& previous) {
    return ask([&] { return service_->getRankedPredictions(previous); });
}

}  // namespace vorpel::cli
