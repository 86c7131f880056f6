// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/preference_keys.h"
#include "keyboard/session/vorpel_keyboard_view_controller.h"
#include "platform/characters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

namespace vorpel {

namespace {

// Signs that stand right behind a word.
constexpr std::array<std::string_view, 16> CLOSING_SIGNS = {".", ",", "?", "!", ";", ":", ")", "]",
                                                            "}", "…", "،", "؛", "؟", "”", "»", "›"};

// So many words are left alone at a time.
constexpr std::size_t MOST_KEPT_WORDS = 16;

// A touch further from its key, as a share of the keyboard, was not meant for it.
constexpr double FARTHEST_TOUCH = 0.3;

}  // namespace

std::optional<KeyOffset> VorpelKeyboardViewController::offsetOf(const Key& key, ui::Point position) const {
    if (!options_.touchPoints) return std::nullopt;
    const auto found = std::ranges::find(keysArray, &key);
    const ui::Size size = plane().forwardingView->bounds().size();
    if (found == keysArray.end() || size.width <= 0 || size.height <= 0) return std::nullopt;
    const ui::Point center = keyFramesArray[static_cast<std::size_t>(found - keysArray.begin())].center();
    const KeyOffset offset{(position.x - center.x) / size.width, (position.y - center.y) / size.height};
    const bool isNear = std::abs(offset.x) < FARTHEST_TOUCH && std::abs(offset.y) < FARTHEST_TOUCH;
    return isNear ? std::optional(offset) : std::nullopt;
}

void VorpelKeyboardViewController::keyPressed(const Key& key, double date, ui::Point position) {
    const Blank blank = blank_;
    forgetCorrection();
    if (replacesBlank(key, blank)) return;
    pressedOffset_ = offsetOf(key, position);
    VPKeyboardViewController::keyPressed(key, date, position);
    pressedOffset_.reset();
    finishCorrection(key);
}

/// A blank that the keyboard put in makes room for what belongs to the word before it. @return whether the
/// key has nothing more to type
bool VorpelKeyboardViewController::replacesBlank(const Key& key, Blank blank) {
    if (!options_.smartSpacing || blank == Blank::Typed) return false;
    if (!sentence().value_or("").ends_with(" ") || !(KTextInputMode || record_.isSure(1))) return false;
    if (key.isSpace()) return blank == Blank::Suggestion;
    const std::string output = key.outputForCase(uppercase(shiftState()));
    if (std::ranges::find(CLOSING_SIGNS, output) != CLOSING_SIGNS.end()) deleteCharacter();
    return false;
}

/// The key that made the correction has typed its own sign too.
void VorpelKeyboardViewController::finishCorrection(const Key& key) {
    if (!lastCorrection_) return;
    lastCorrection_->entered += key.outputForCase(uppercase(shiftState()));
    if (key.isSpace()) blank_ = Blank::Correction;
}

void VorpelKeyboardViewController::handleAutoPeriod(const Key& key) {
    const auto text = textBeforeInput();
    VPKeyboardViewController::handleAutoPeriod(key);
    // What was asked about is not what stands there now.
    if (textBeforeInput() != text) checkTheCurrentWord(NO_TOUCH_POINT);
}

bool VorpelKeyboardViewController::mayCorrect(const std::string& word) const {
    const platform::TextChecker* const checker = platform().textChecker;
    // A word that was kept by hand once is a word; a closing quotation mark is no slip.
    if ((checker && checker->hasLearnedWord(word)) || word.ends_with('\'')) return false;
    const std::string text = sentence().value_or("");
    return std::ranges::none_of(keptWords_, [&](const KeptWord& kept) {
        return kept.word == word && text == kept.textBefore + word;
    });
}

void VorpelKeyboardViewController::showAnswer(const std::string& word, LabelTitles titles) {
    correctedWord_ = word;
    VPKeyboardViewController::showAnswer(word, std::move(titles));
}

void VorpelKeyboardViewController::autoCorrectWord() {
    isCorrecting_ = true;
    VPKeyboardViewController::autoCorrectWord();
    isCorrecting_ = false;
}

void VorpelKeyboardViewController::deleteAndEnterWord(const std::string& word,
                                                      const std::string& correctword) {
    // The answer may be for fewer letters than there are by now.
    if (word != correctedWord_ || !isSureOf(word) || !mayCorrect(word)) return;
    VPKeyboardViewController::deleteAndEnterWord(word, correctword);
    if (word.empty() || correctword.empty()) return;
    autoCorrectCurrentSession = false;
    replaceKeptLetters(word, correctword);
    lastCorrection_ = Correction{word, correctword + (options_.smartSpacing ? "" : " ")};
}

void VorpelKeyboardViewController::insertWordForFont(const std::string& word) {
    enterText(word);
    // The key that makes a correction types the blank.
    if (!isCorrecting_ || !options_.smartSpacing) enterText(" ");
}

void VorpelKeyboardViewController::wordTapped(const std::string& word, int tag) {
    if (!isSureOf(getCurrentWord())) {
        const platform::TextDocumentProxy& field = textDocumentProxy();
        record_.take(field.documentContextBeforeInput(), field.documentContextAfterInput());
    }
    forgetCorrection();
    VPKeyboardViewController::wordTapped(word, tag);
    blank_ = Blank::Suggestion;
    // The next letter's case hangs on the word, and so does what the next blank means.
    contextChanged();
}

void VorpelKeyboardViewController::emoctionSelectedSE(const std::string& emoji) {
    forgetCorrection();
    VPKeyboardViewController::emoctionSelectedSE(emoji);
}

void VorpelKeyboardViewController::backspaceDown(ui::Control& sender) {
    if (!undoCorrection()) {
        forgetCorrection();
        VPKeyboardViewController::backspaceDown(sender);
        return;
    }
    cancelBackspaceTimers();
    contextChanged();
    updateSearchString();
    checkTheCurrentWord(NO_TOUCH_POINT);
    backspaceDelayTimer =
        platform().runLoop.scheduledTimer(backspaceDelay, false, [this] { backspaceDelayCallback(); });
}

/// The host hears of the word that stands there, not of the slip.
void VorpelKeyboardViewController::replaceKeptLetters(const std::string& letters, const std::string& word) {
    if (!typingPolicy().stores) return;
    platform::UserDefaults& defaults = platform().userDefaults;
    const std::string kept = defaults.stringForKey(preferences::STRING_TO_SEND).value_or("");
    if (!kept.ends_with(letters)) return;
    defaults.setString(preferences::STRING_TO_SEND, kept.substr(0, kept.size() - letters.size()) + word);
}

bool VorpelKeyboardViewController::undoCorrection() {
    const auto correction = std::exchange(lastCorrection_, std::nullopt);
    if (!options_.undoOnBackspace || !correction) return false;
    blank_ = Blank::Typed;
    if (!sentence().value_or("").ends_with(correction->entered)) return false;
    if (!KTextInputMode && !record_.isSure(correction->entered.size())) return false;
    for (std::size_t left = platform::characterCount(correction->entered); left > 0; --left)
        deleteCharacter();
    if (keptWords_.size() == MOST_KEPT_WORDS) keptWords_.erase(keptWords_.begin());
    keptWords_.push_back({correction->typed, sentence().value_or("")});
    enterText(correction->typed);
    replaceKeptLetters("", correction->typed);
    return true;
}

void VorpelKeyboardViewController::switchSettingsStateWithValues(bool on, const std::string& currWord,
                                                                 const std::string& prevWord,
                                                                 ui::Point touchPoint) {
    if (!options_.distinctLabels || (!on && !currWord.empty())) {
        VPKeyboardViewController::switchSettingsStateWithValues(on, currWord, prevWord, touchPoint);
        return;
    }
    clearWords();
    if (VPSuggestionsBanner* const banner = suggestionsBanner()) banner->shuffleSettingsOptions(false);
}

}  // namespace vorpel
