// SPDX-License-Identifier: Apache-2.0
#include "capi/service.h"

#include "capi/failure.h"
#include "suggestion/language_resources.h"
#include "text/engine_constants.h"
#include "text/utf.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

using vorpel::capi::Failure;
using vorpel::capi::require;

namespace {

vorpel::TouchPoint toTouch(const vorpel_point& point) {
    const auto isPresent = [](double value) { return std::abs(value) < VORPEL_NO_TOUCH; };
    if (!isPresent(point.x) || !isPresent(point.y)) return vorpel::NO_TOUCH;
    return {point.x, point.y};
}

vorpel::TypedWord readWord(const std::string& text, std::span<const vorpel_point> points) {
    auto letters = wordengine::utf8ToUtf32(text);
    require(letters.has_value(), "the word is not UTF-8");
    require(points.size() <= letters->size(), "there are more points than letters");
    vorpel::TypedWord word{std::move(*letters), {}};
    word.touches.reserve(points.size());
    std::transform(points.begin(), points.end(), std::back_inserter(word.touches), toTouch);
    return word;
}

vorpel_status statusOf(vorpel::ResourceFault::Resource resource) {
    return resource == vorpel::ResourceFault::Resource::Dictionary ? VORPEL_ERROR_DICTIONARY
                                                                   : VORPEL_ERROR_GEOMETRY;
}

/// Nothing for what is no text of C: a dictionary may hold any code points.
std::optional<std::string> textOf(const wordengine::SuggestedWord& word) {
    const std::span codePoints(word.getCodePoint(), static_cast<std::size_t>(word.getCodePointCount()));
    const auto isCharacter = [](int codePoint) {
        const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
        return codePoint > 0 && codePoint <= 0x10FFFF && !isSurrogate;
    };
    if (!std::all_of(codePoints.begin(), codePoints.end(), isCharacter)) return std::nullopt;
    return wordengine::codePointsToUtf8(codePoints);
}

}  // namespace

vorpel_service::vorpel_service(const std::string& folder, const std::string& language,
                               const std::string& dictionary)
    : bundle_({folder}), words_(bundle_, defaults_) {
    if (language != "en" && language != "ar") {
        throw Failure(VORPEL_ERROR_LANGUAGE, "there is no language \"" + language + "\": it may be en or ar");
    }
    const std::string ownDictionary = folder + "/" + vorpel::resourcesOf(language).dictionaryFile();
    words_.initializeTheAutoCorrectionModuleForDicPath(dictionary.empty() ? ownDictionary : dictionary,
                                                       folder, language);
    words_.useTouchPoint = true;
    if (const auto fault = words_.findFault()) throw Failure(statusOf(fault->resource), fault->text);
    keyboardSize_ = words_.keyboardSize().value();
}

bool vorpel_service::goesOnFromTyped(const vorpel::TypedWord& word, const std::string& previous) const {
    if (!typed_ || typed_->previous != previous) return false;
    const vorpel::TypedWord& typed = typed_->word;
    if (word.letters.size() <= typed.letters.size() || !word.letters.starts_with(typed.letters)) return false;
    for (std::size_t i = 0; i < typed.letters.size(); ++i) {
        const vorpel::TouchPoint before = typed.touchOf(i);
        const vorpel::TouchPoint now = word.touchOf(i);
        if (before.x != now.x || before.y != now.y) return false;
    }
    return true;
}

void vorpel_service::suggest(const std::string& word, const std::string& previous,
                             std::span<const vorpel_point> points) {
    forgetAnswer();
    Typed request{readWord(word, points), previous};
    require(wordengine::isValidUtf8(previous), "the previous word is not UTF-8");
    const std::size_t length = request.word.letters.size();
    if (length == 0 || length > wordengine::WORD_LENGTH_LIMIT) return;

    const std::size_t first =
        goesOnFromTyped(request.word, previous) ? typed_->word.letters.size() : std::size_t{0};
    // Typed anew from its first letter, a word is searched anew, whatever state the last one was left in.
    typed_.reset();
    std::optional<vorpel::RankedSuggestions> ranked;
    request.word.typeLetters(first, [&](const std::string& typed, vorpel::TouchPoint touch) {
        ranked = words_.getRankedSuggestionsForWord(typed, previous, touch);
    });
    setAnswer(ranked);
    typed_ = std::move(request);
}

void vorpel_service::predict(const std::string& previous) {
    forgetAnswer();
    require(wordengine::isValidUtf8(previous), "the previous word is not UTF-8");
    setAnswer(words_.getRankedPredictions(previous));
}

void vorpel_service::forgetAnswer() {
    answer_.clear();
    mayReplace_ = false;
}

void vorpel_service::setAnswer(const std::optional<vorpel::RankedSuggestions>& ranked) {
    if (!ranked) throw Failure(VORPEL_ERROR_INTERNAL, "the request failed");
    texts_.clear();
    std::vector<vorpel_word> answer;
    bool firstIsKept = false;
    for (const wordengine::SuggestedWord& word : ranked->words) {
        auto text = textOf(word);
        // A word may be found in several ways, as a correction and as a shortcut; the best one stands for
        // all.
        if (!text || std::find(texts_.begin(), texts_.end(), *text) != texts_.end()) continue;
        firstIsKept = firstIsKept || &word == &ranked->words.front();
        texts_.push_back(std::move(*text));
        answer.push_back({nullptr, word.getScore(), vorpel::kindOf(word)});
    }
    // Only now that no text moves any more.
    for (std::size_t i = 0; i < answer.size(); ++i) answer[i].text = texts_[i].c_str();
    answer_ = std::move(answer);
    mayReplace_ = ranked->canAutoCorrect && firstIsKept;
}

vorpel_answer vorpel_service::answer() const {
    return {sizeof(vorpel_answer), answer_.empty() ? nullptr : answer_.data(),
            static_cast<int32_t>(answer_.size()), mayReplace_ ? 1 : 0};
}

vorpel_point vorpel_service::keyCenter(uint32_t letter) const {
    const auto center = words_.keyCenter(letter);
    return center ? vorpel_point{center->x, center->y} : vorpel_point{VORPEL_NO_TOUCH, VORPEL_NO_TOUCH};
}
