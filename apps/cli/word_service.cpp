// SPDX-License-Identifier: Apache-2.0
#include "word_service.h"

#include "suggestion/typed_word.h"
#include "text/utf.h"

#include <chrono>
#include <stdexcept>

namespace vorpel::cli {

namespace {

using wordengine::SuggestedWord;

std::string nameOfKind(int kind) {
    switch (kind) {
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
        answer.words.push_back({toUtf8(word), word.getScore(), nameOfKind(kindOf(word))});
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

std::vector<TouchPoint> WordService::carryOver(const PlainTouches& touches) const {
    std::vector<TouchPoint> carried;
    carried.reserve(touches.points.size());
    for (const std::optional<TouchPoint>& point : touches.points) {
        carried.push_back(point ? grid_.carryOver(*point, touches.width, touches.height) : NO_TOUCH);
    }
    return carried;
}

Answer WordService::type(const std::string& word, const std::string& previous, const PlainTouches* touches,
                         const Observer& observer) {
    const TypedWord typedWord{lettersOf(word), touches ? carryOver(*touches) : std::vector<TouchPoint>()};
    Answer answer;
    double total = 0;
    typedWord.typeLetters(0, [&](const std::string& typed, TouchPoint touch) {
        answer = ask([&] { return service_->getRankedSuggestionsForWord(typed, previous, touch); });
        total += answer.microseconds;
        if (observer) observer(typed, answer);
    });
    answer.microseconds = total;
    return answer;
}

Answer WordService::predict(const std::string& previous) {
    return ask([&] { return service_->getRankedPredictions(previous); });
}

}  // namespace vorpel::cli
