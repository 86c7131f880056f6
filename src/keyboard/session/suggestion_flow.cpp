// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/preference_keys.h"
#include "keyboard/session/vp_keyboard_view_controller.h"
#include "platform/characters.h"
#include "text/diagnostics.h"

#include <cstdint>
#include <exception>
#include <functional>
#include <utility>

namespace vorpel {

namespace {

// The word service takes words below this many characters.
constexpr std::size_t WORD_LIMIT = 47;

// With more than these waiting, none of them is worth an answer any more.
constexpr std::size_t MOST_WAITING = 2;

// The count of uses begins anew behind this.
constexpr std::int64_t HIGHEST_COUNT = 20;

bool isAskable(const std::string& word) {
    return platform::characterCount(word) < WORD_LIMIT;
}

/// What the service says, or nothing when there is none or it fails.
template <typename Ask>
void askService(WordServiceSlot& slot, Ask ask) {
    WordService* const service = slot.current();
    if (!service) return;
    try {
        ask(*service);
    } catch (const std::exception& error) {
        wordengine::Diagnostics::print("the word service failed: %s\n", error.what());
        slot.drop();
    }
}

}  // namespace

/// Runs on the main thread if the keyboard is still there then. Any thread may call.
template <typename Block>
void VPKeyboardViewController::onMainThread(Block block) const {
    platform().runLoop.async([life = std::weak_ptr<Life>(life_), block = std::move(block)] {
        if (!life.expired()) block();
    });
}

std::optional<std::string> VPKeyboardViewController::sentence() const {
    if (!KTextInputMode) return textBeforeInput();
    const TextInputView* const own = currentActiveInputView();
    return own ? std::optional(own->text()) : std::nullopt;
}

void VPKeyboardViewController::checkTheCurrentWord(ui::Point touchPoint) {
    readInputMode();
    if (!typingPolicy().suggests) {
        forgetWords();
        if (VPSuggestionsBanner* const banner = suggestionsBanner()) banner->shuffleSettingsOptions(false);
        return;
    }
    const unsigned check = ++checks_;
    platform().globalQueue.async([this, &runLoop = platform().runLoop, life = std::weak_ptr<Life>(life_),
                                  check, text = sentence(), splitting = wordSplitting(), touchPoint] {
        SentenceWords words;
        if (text) words = getTheCurrentAndPrevWordFromSentence(*text, splitting);
        runLoop.async([this, life, check, text, words, touchPoint] {
            if (!life.expired()) takeSplitSentence(check, text, words, touchPoint);
        });
    });
}

void VPKeyboardViewController::takeSplitSentence(unsigned check, const std::optional<std::string>& text,
                                                 const SentenceWords& words, ui::Point touchPoint) {
    // Threads of the queue may overtake each other.
    if (check < lastCheck_ || !typingPolicy().suggests) return;
    lastCheck_ = check;
    const platform::UserDefaults& defaults = platform().userDefaults;
    if (!defaults.boolForKey(preferences::kWordSuggestions) || !text) {
        switchSettingsStateWithValues(false, "", "", touchPoint);
    } else if (text->empty()) {
        // What is still asked for belongs to a text that is gone.
        dropAnswers();
        switchSettingsStateWithValues(true, "", "", touchPoint);
    } else if (text->back() == '\n' || text->back() == '\r') {
        switchSettingsStateWithValues(false, "", "", touchPoint);
    } else if (words.current.empty()) {
        predictWordsFor(words.current, words.previous, touchPoint);
    } else if (platform::isAscii(platform::lastCharacter(words.current)) || isArabicModeOn()) {
        switchSettingsStateWithValues(false, words.current, words.previous, touchPoint);
    } else {
        switchSettingsStateWithValues(false, "", "", touchPoint);
    }
}

void VPKeyboardViewController::switchSettingsStateWithValues(bool on, const std::string& currWord,
                                                             const std::string& prevWord,
                                                             ui::Point touchPoint) {
    VPSuggestionsBanner* const banner = suggestionsBanner();
    if (!on) {
        if (banner) banner->shuffleSettingsOptions(true);
        suggestWordsFor(currWord, prevWord, touchPoint);
        return;
    }
    if (!banner) return;
    if (sentence().value_or("").ends_with(" ")) {
        banner->wordLabel_2.setTitle("");
        banner->wordLabel_3.setTitle("");
    }
    if (backspaceTapped) {
        for (ui::Button* const label : banner->wordLabels()) label->setTitle("");
        banner->shuffleSettingsOptions(false);
    } else {
        clearShortTitles();
    }
    autoCorrectCurrentSession = false;
    setBannerWordButtonColors(false);
}

/// What is too short to be a word, or of another script, does not outlast its text.
void VPKeyboardViewController::clearShortTitles() {
    VPSuggestionsBanner& banner = *suggestionsBanner();
    for (ui::Button* const label : {&banner.wordLabel_2, &banner.wordLabel_3}) {
        const std::string& title = label->titleForState(ui::ControlState::Normal);
        if (!platform::isAscii(title) || platform::characterCount(title) <= 1) label->setTitle("");
    }
}

void VPKeyboardViewController::addRequest(std::function<void()> operation) {
    if (serialQueue_->operationCount() > MOST_WAITING) serialQueue_->cancelAllOperations();
    serialQueue_->addOperation(std::move(operation));
}

void VPKeyboardViewController::predictWordsFor(const std::string& /*word*/, const std::string& prevWord,
                                               ui::Point /*touchPoint*/) {
    if (!serialQueue_) return;
    const unsigned request = ++requests_;
    addRequest([this, slot = indicSpellChecker_, prevWord, request] {
        std::vector<std::string> words;
        if (isAskable(prevWord)) {
            askService(*slot, [&](WordService& service) { words = service.predict(prevWord); });
        }
        onMainThread([this, request, words = std::move(words)] {
            if (request > cleared_ && typingPolicy().suggests) showPredictions(words);
        });
    });
}

void VPKeyboardViewController::showPredictions(const std::vector<std::string>& words) {
    VPSuggestionsBanner* const banner = suggestionsBanner();
    autoCorrectCurrentSession = false;
    if (!banner) return;
    if (words.empty()) {
        switchSettingsStateWithValues(true, "", "", NO_TOUCH_POINT);
    } else {
        banner->shuffleSettingsOptions(true);
    }
    std::size_t next = 0;
    for (ui::Button* const label : banner->wordLabels()) {
        label->setTitle(next < words.size() ? words[next] : std::string());
        ++next;
    }
    setBannerWordButtonColors(false);
}

void VPKeyboardViewController::suggestWordsFor(const std::string& word, const std::string& prevWord,
                                               ui::Point touchPoint) {
    if (!serialQueue_) return;
    platform::UserDefaults& defaults = platform().userDefaults;
    const std::int64_t count = defaults.integerForKey(preferences::WORD_SUGGESTION_COUNT);
    defaults.setInteger(preferences::WORD_SUGGESTION_COUNT, count >= HIGHEST_COUNT ? 0 : count + 1);
    const unsigned request = ++requests_;
    WordRequest asked{word, prevWord, touchPoint, keyOffsetsFor(word)};
    addRequest([this, slot = indicSpellChecker_, asked = std::move(asked), wordCase = wordCaseOf(word),
                plan = labelPlan(), mayReplace = mayCorrect(word) && typingPolicy().corrects, &defaults,
                request] {
        wordengine::Diagnostics::print("word: %s; prevWord: %s\n", asked.word.c_str(),
                                       asked.previousWord.c_str());
        AnsweredWord answer{asked.word, wordCase, {}, false, false};
        if (!asked.word.empty() && isAskable(asked.word)) {
            askService(*slot, [&](WordService& service) {
                WordAnswer given = service.suggest(asked);
                answer.words = std::move(given.words);
                answer.canAutoCorrect = given.canAutoCorrect && mayReplace;
            });
        }
        answer.isCorrecting = defaults.boolForKey(preferences::kAutoCorrection);
        onMainThread([this, request, word = asked.word, titles = labelsFor(std::move(answer), plan)] {
            if (request > cleared_ && typingPolicy().suggests) showAnswer(word, titles);
        });
    });
}

void VPKeyboardViewController::showAnswer(const std::string& /*word*/, LabelTitles titles) {
    VPSuggestionsBanner* const banner = suggestionsBanner();
    autoCorrectCurrentSession = titles.autoCorrect;
    if (!banner) return;
    if (titles.first) banner->wordLabel_1.setTitle(*titles.first);
    if (titles.second) banner->wordLabel_2.setTitle(*titles.second);
    if (titles.third) banner->wordLabel_3.setTitle(*titles.third);
    setBannerWordButtonColors(titles.autoCorrect);
}

void VPKeyboardViewController::setBannerWordButtonColors(bool autoCorrect) {
    if (VPSuggestionsBanner* const banner = suggestionsBanner()) banner->markCorrection(autoCorrect);
}

void VPKeyboardViewController::forgetWords() {
    lastCheck_ = ++checks_;
    clearWords();
}

void VPKeyboardViewController::clearWords() {
    dropAnswers();
    autoCorrectCurrentSession = false;
    VPSuggestionsBanner* const banner = suggestionsBanner();
    if (!banner) return;
    for (ui::Button* const label : banner->wordLabels()) label->setTitle("");
    setBannerWordButtonColors(false);
}

std::vector<std::optional<KeyOffset>> VPKeyboardViewController::keyOffsetsFor(
    const std::string& /*word*/) const {
    return {};
}

}  // namespace vorpel
