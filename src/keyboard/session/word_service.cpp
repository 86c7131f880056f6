// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/word_service.h"

#include <utility>

namespace vorpel {

namespace {

constexpr TouchPoint NO_POINT{NO_TOUCH, NO_TOUCH};

class EngineWordService final : public WordService {
public:
    EngineWordService(std::unique_ptr<VPWordSuggestions> words, TouchUse use) : words_(std::move(words)) {
        words_->useTouchPoint = use == TouchUse::ByLetter;
    }
    ~EngineWordService() override { words_->dismissWordSuggestor(); }
    EngineWordService(const EngineWordService&) = delete;
    EngineWordService& operator=(const EngineWordService&) = delete;

    WordAnswer suggest(const WordRequest& request) override {
        WordAnswer answer;
        const auto& [word, previousWord, touchPoint, offsets] = request;
        // Live points are not the geometry's, which is drawn for one width.
        answer.words =
            words_->useTouchPoint
                ? words_->getSuggestionsForWord(word, previousWord, offsets, &answer.canAutoCorrect)
                : words_->getSuggestionsForWord(word, previousWord, {touchPoint.x, touchPoint.y},
                                                &answer.canAutoCorrect);
        return answer;
    }

    std::vector<std::string> predict(const std::string& previousWord) override {
        bool unused = false;
        return words_->getPredicWord("", previousWord, NO_POINT, &unused);
    }

private:
    std::unique_ptr<VPWordSuggestions> words_;
};

}  // namespace

WordServiceFactory wordServiceFactory(const platform::Platform& platform, TouchUse use) {
    return [&bundle = platform.bundle, &defaults = platform.userDefaults, use] {
        return std::make_unique<EngineWordService>(VPWordSuggestions::create(bundle, defaults), use);
    };
}

}  // namespace vorpel
