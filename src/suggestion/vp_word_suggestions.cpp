// SPDX-License-Identifier: Apache-2.0
#include "suggestion/vp_word_suggestions.h"

#include "platform/bundle.h"
#include "platform/user_defaults.h"
#include "suggestion/language_resources.h"
#include "suggestion/live_keys.h"
#include "suggestion/word_request.h"
#include "text/diagnostics.h"
#include "text/utf.h"

#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>

namespace vorpel {

using wordengine::Diagnostics;

namespace {

const std::string LANGUAGE_KEY = "Language";

/// A resource that is missing has the path that it should have: opening fails, and the failure names it.
std::string pathOf(const platform::Bundle& bundle, const std::string& name, const char* extension) {
    const auto path = bundle.pathForResource(name, extension);
    return path ? *path : bundle.bundlePath() + "/" + name + "." + extension;
}

constexpr double NO_TOUCH = SuggestionProvider::NO_TOUCH_COORDINATE;

bool isAnswerable(const std::u32string& word) {
    return !word.empty() && word.size() <= wordengine::WORD_LENGTH_LIMIT;
}

SuggestionProvider::KeyCoordinate toKeyCoordinate(TouchPoint point, bool useTouchPoint) {
    constexpr float none = SuggestionProvider::NO_TOUCH_COORDINATE;
    if (!useTouchPoint) return {none, none};
    const auto narrow = [](double value) {
        constexpr double limit = std::numeric_limits<float>::max();
        return std::abs(value) <= limit ? static_cast<float>(value) : none;
    };
    return {narrow(point.x), narrow(point.y)};
}

/// Strings that are no valid UTF-8 (a dictionary may hold any code points) are left out.
std::vector<std::string> keepValid(std::vector<std::string> strings) {
    std::erase_if(strings, [](const std::string& text) { return !wordengine::isValidUtf8(text); });
    return strings;
}

}  // namespace

std::unique_ptr<VPWordSuggestions> VPWordSuggestions::create(const platform::Bundle& bundle,
                                                             const platform::UserDefaults& defaults) {
    auto service = std::make_unique<VPWordSuggestions>(bundle, defaults);
    service->setUp();
    return service;
}

std::unique_ptr<VPWordSuggestions> VPWordSuggestions::create(
    const platform::Bundle& bundle, const platform::UserDefaults& defaults,
    std::vector<std::optional<LiveKeyFrame>> keyFrames, std::vector<std::string> keyChars, double width,
    double height) {
    auto service = std::make_unique<VPWordSuggestions>(bundle, defaults);
    service->keyFrames_ = std::move(keyFrames);
    service->keyChars_ = std::move(keyChars);
    service->screenWidth_ = width;
    service->screenHeight_ = height;
    service->useTouchPoint = true;
    service->setUpWithCustomValues();
    return service;
}

VPWordSuggestions::VPWordSuggestions(const platform::Bundle& bundle, const platform::UserDefaults& defaults)
    : bundle_(bundle), defaults_(defaults) {}

VPWordSuggestions::~VPWordSuggestions() = default;

void VPWordSuggestions::setUp() {
    beginSetUp();
    const std::string language = defaults_.stringForKey(LANGUAGE_KEY).value_or(std::string());
    const LanguageResources names = resourcesOf(language);
    initializeTheAutoCorrectionModuleForDicPath(pathOf(bundle_, names.dictionary, "dic"),
                                                bundle_.bundlePath(), language);
    endSetUp("set up called for word suggestions\n");
}

void VPWordSuggestions::setUpWithCustomValues() {
    beginSetUp();
    const std::string language = defaults_.stringForKey(LANGUAGE_KEY).value_or(std::string());
    const LanguageResources names = resourcesOf(language);
    LiveKeys keys = LiveKeys::fromFrames(keyFrames_, keyChars_);
    Diagnostics::print("Set up with custom values called\n");
    language_ = language;
    geometryFolder_.reset();
    suggestor_ = std::make_unique<SuggestionProvider>(
        language, pathOf(bundle_, names.dictionary, "dic"), truncateToInt(screenWidth_),
        truncateToInt(screenHeight_), keys.count(), keys.codes.data(), keys.upperCodes.data(), keys.xs.data(),
        keys.ys.data(), keys.widths.data(), keys.heights.data(), pathOf(bundle_, names.geometry[0], "json"),
        pathOf(bundle_, names.geometry[1], "json"));
    endSetUp(nullptr);
}

void VPWordSuggestions::initializeTheAutoCorrectionModuleForDicPath(const std::string& dictionaryPath,
                                                                    const std::string& proximityDirectory,
                                                                    const std::string& language) {
    if (!isReady()) beginSetUp();
    language_ = language;
    geometryFolder_ = proximityDirectory;
    suggestor_ = std::make_unique<SuggestionProvider>(dictionaryPath, proximityDirectory, language);
}

void VPWordSuggestions::beginSetUp() {
    const std::lock_guard lock(readinessMutex_);
    isReady_ = false;
}

void VPWordSuggestions::endSetUp(const char* message) {
    {
        const std::lock_guard lock(readinessMutex_);
        isReady_ = true;
    }
    if (message) Diagnostics::print("%s", message);
}

std::optional<bool> VPWordSuggestions::isReady() const {
    const std::lock_guard lock(readinessMutex_);
    return isReady_;
}

template <typename Request>
auto VPWordSuggestions::answer(Request&& request) -> std::optional<decltype(request())> {
    // Set-up that has begun opens the gate; the caller's serial queue keeps requests behind it.
    if (!isReady() || !suggestor_) return std::nullopt;
    try {
        return request();
    } catch (const std::runtime_error& error) {
        if (std::strcmp(error.what(), "Dictionary Buffer Policy is nil.") == 0) {
            Diagnostics::print("Error Message = Buffer policy\n");
        }
        return std::nullopt;
    }
}

std::optional<RankedSuggestions> VPWordSuggestions::getRankedSuggestionsForWord(
    const std::string& word, const std::string& previousWord, TouchPoint coordinate) {
    const std::u32string typed = wordengine::utf8ToUtf32Lenient(word);
    const std::u32string previous = wordengine::utf8ToUtf32Lenient(previousWord);
    SuggestionProvider::KeyCoordinate touch = toKeyCoordinate(coordinate, useTouchPoint);
    return answer([&] {
        if (!isAnswerable(typed)) return RankedSuggestions{};
        return getRankedSuggestionForInput(typed, previous, suggestor_.get(), &touch);
    });
}

std::vector<std::string> VPWordSuggestions::getSuggestionsForWord(const std::string& word,
                                                                  const std::string& previousWord,
                                                                  TouchPoint coordinate,
                                                                  bool* canAutoCorrect) {
    const auto ranked = getRankedSuggestionsForWord(word, previousWord, coordinate);
    if (!ranked) return {};
    *canAutoCorrect = ranked->canAutoCorrect;
    return keepValid(toUtf8Strings(ranked->words));
}

std::vector<std::string> VPWordSuggestions::getSuggestionsForWord(
    const std::string& word, const std::string& previousWord,
    const std::vector<std::optional<KeyOffset>>& offsets, bool* canAutoCorrect) {
    const std::u32string typed = wordengine::utf8ToUtf32Lenient(word);
    const auto size = keyboardSize();
    TouchPoint touch{NO_TOUCH, NO_TOUCH};
    for (std::size_t i = 0; suggestor_ && isAnswerable(typed) && i < typed.size(); ++i) {
        const auto center = keyCenter(typed[i]);
        touch = {NO_TOUCH, NO_TOUCH};
        if (center && size && i < offsets.size() && offsets[i]) {
            touch.x = center->x + offsets[i]->x * size->width;
            touch.y = center->y + offsets[i]->y * size->height;
        }
        suggestor_->placeTouch(static_cast<int>(typed[i]), i, toKeyCoordinate(touch, useTouchPoint));
    }
    return getSuggestionsForWord(word, previousWord, touch, canAutoCorrect);
}

std::optional<RankedSuggestions> VPWordSuggestions::getRankedPredictions(const std::string& previousWord) {
    const std::u32string previous = wordengine::utf8ToUtf32Lenient(previousWord);
    return answer([&] { return getRankedPredictionForInput(previous, suggestor_.get()); });
}

std::vector<std::string> VPWordSuggestions::getPredicWord(const std::string& /*word*/,
                                                          const std::string& previousWord,
                                                          TouchPoint /*coordinate*/, bool* canAutoCorrect) {
    const auto ranked = getRankedPredictions(previousWord);
    if (!ranked) return {};
    *canAutoCorrect = false;
    return keepValid(toUtf8Strings(ranked->words));
}

void VPWordSuggestions::dismissWordSuggestor() {
    Diagnostics::print("delete called for word suggestions\n");
    suggestor_.reset();
}

void VPWordSuggestions::setDiagnosticsStream(std::FILE* stream) {
    Diagnostics::setStream(stream);
}

std::optional<ResourceFault> VPWordSuggestions::findFault() const {
    using Resource = ResourceFault::Resource;
    if (!suggestor_) return ResourceFault{Resource::Dictionary, "no dictionary has been opened"};
    if (auto text = suggestor_->findDictionaryFault()) return ResourceFault{Resource::Dictionary, *text};
    if (auto text = findGeometryFault()) return ResourceFault{Resource::Geometry, *text};
    return std::nullopt;
}

std::optional<std::string> VPWordSuggestions::findGeometryFault() const {
    if (!geometryFolder_) return std::nullopt;
    const LanguageResources names = resourcesOf(language_);
    for (std::size_t i = 0; i < names.geometry.size(); ++i) {
        const std::string path = *geometryFolder_ + "/" + names.geometryFile(i);
        const wordengine::ProximityInfo* const layout = suggestor_->geometry().findLayout(path);
        if (!layout) return path + ": " + std::strerror(ENOENT);
        if (layout->getKeyCount() == 0 || layout->getKeyboardWidth() <= 0 ||
            layout->getKeyboardHeight() <= 0 || layout->getProximityCharsOfCell(0, 0).empty()) {
            return path + ": describes no keyboard";
        }
    }
    return std::nullopt;
}

std::optional<KeyboardSize> VPWordSuggestions::keyboardSize() const {
    if (!suggestor_) return std::nullopt;
    if (!geometryFolder_) return KeyboardSize{screenWidth_, screenHeight_};
    const std::string path = *geometryFolder_ + "/" + resourcesOf(language_).geometryFile();
    const wordengine::ProximityInfo* const layout = suggestor_->geometry().findLayout(path);
    if (!layout) return std::nullopt;
    return KeyboardSize{static_cast<double>(layout->getKeyboardWidth()),
                        static_cast<double>(layout->getKeyboardHeight())};
}

std::optional<TouchPoint> VPWordSuggestions::keyCenter(char32_t letter) const {
    const int code = static_cast<int>(letter);
    if (!suggestor_ || !suggestor_->geometry().hasKey(code)) return std::nullopt;
    const KeyCoordinate center = suggestor_->geometry().keyCenter(code);
    return TouchPoint{center.x, center.y};
}

const wordengine::SearchStatistics* VPWordSuggestions::searchStatistics() const {
    return suggestor_ ? &suggestor_->searchStatistics() : nullptr;
}

}  // namespace vorpel
