// SPDX-License-Identifier: Apache-2.0
// What the keyboard that hosts embed knows of the field, and how it reads words.
#include "keyboard/model/preference_keys.h"
#include "keyboard/session/vorpel_keyboard_view_controller.h"

#include <utility>

namespace vorpel {

void VorpelKeyboardViewController::insertText(const std::string& text) {
    isTyping_ = true;
    VPKeyboardViewController::insertText(text);
    isTyping_ = false;
    if (!typingPolicy().stores) pressedOffset_.reset();
    record_.insert(text, std::exchange(pressedOffset_, std::nullopt),
                   textDocumentProxy().documentContextBeforeInput(), platform().runLoop.now());
}

void VorpelKeyboardViewController::deleteBackward() {
    const platform::TextDocumentProxy& field = textDocumentProxy();
    const bool deletesSelection = hasSelection();
    isTyping_ = true;
    VPKeyboardViewController::deleteBackward();
    isTyping_ = false;
    if (deletesSelection) {
        record_.take(field.documentContextBeforeInput(), field.documentContextAfterInput());
    } else {
        record_.deleteBackward(field.documentContextBeforeInput());
    }
}

bool VorpelKeyboardViewController::hasSelection() const {
    return !KTextInputMode && !textDocumentProxy().selectedText().value_or("").empty();
}

void VorpelKeyboardViewController::checkTheCurrentWord(ui::Point touchPoint) {
    if (!hasSelection()) return VPKeyboardViewController::checkTheCurrentWord(touchPoint);
    forgetWords();
    if (VPSuggestionsBanner* const banner = suggestionsBanner()) banner->shuffleSettingsOptions(false);
}

/// What is selected is what the next key replaces, and no part of a word.
std::string VorpelKeyboardViewController::getCurrentWord() const {
    return hasSelection() ? std::string() : VPKeyboardViewController::getCurrentWord();
}

std::optional<std::string> VorpelKeyboardViewController::textBeforeInput() const {
    return record_.before();
}

void VorpelKeyboardViewController::readField() {
    // Some fields tell of our own strokes too.
    if (isTyping_) return;
    const platform::TextDocumentProxy& field = textDocumentProxy();
    const auto told = record_.tell(field.documentContextBeforeInput(), field.documentContextAfterInput(),
                                   platform().runLoop.now());
    if (told == TextRecord::Told::Different) beginElsewhere();
}

/// The keyboard itself has moved the cursor.
void VorpelKeyboardViewController::cursorMoved(int characters) {
    const platform::TextDocumentProxy& field = textDocumentProxy();
    record_.moveCursor(characters, field.documentContextBeforeInput(), field.documentContextAfterInput());
    beginElsewhere();
    contextChanged();
}

/// What was on its way belongs to the place where the cursor was.
void VorpelKeyboardViewController::beginElsewhere() {
    forgetCorrection();
    autoCorrectCurrentSession = false;
    dropAnswers();
    platform::UserDefaults& defaults = platform().userDefaults;
    if (defaults.stringForKey(preferences::STRING_TO_SEND).value_or("") != "") {
        defaults.setString(preferences::STRING_TO_SEND, "");
    }
    checkTheCurrentWord(NO_TOUCH_POINT);
}

void VorpelKeyboardViewController::inputChanged() {
    forgetCorrection();
    VPKeyboardViewController::inputChanged();
}

void VorpelKeyboardViewController::shiftTheCursorLeft() {
    VPKeyboardViewController::shiftTheCursorLeft();
    cursorMoved(-1);
}

void VorpelKeyboardViewController::shiftTheCursorRight() {
    VPKeyboardViewController::shiftTheCursorRight();
    cursorMoved(1);
}

void VorpelKeyboardViewController::textDidChange() {
    readField();
    VPKeyboardViewController::textDidChange();
    followOffer();
}

void VorpelKeyboardViewController::selectionDidChange() {
    readField();
    VPKeyboardViewController::selectionDidChange();
}

void VorpelKeyboardViewController::forgetCorrection() {
    lastCorrection_.reset();
    blank_ = Blank::Typed;
}

/// Whether the word stands before the cursor and may be deleted.
bool VorpelKeyboardViewController::isSureOf(const std::string& word) const {
    if (KTextInputMode || record_.isSure(word.size())) return true;
    const auto answer = textDocumentProxy().documentContextBeforeInput();
    return answer && getTheCurrentWordFromSentence(*answer, wordSplitting()) == word;
}

WordServiceFactory VorpelKeyboardViewController::makeWordServiceFactory() {
    return wordServiceFactory(platform(), options_.touchPoints ? TouchUse::ByLetter : TouchUse::Ignored);
}

WordSplitting VorpelKeyboardViewController::wordSplitting() const {
    return options_.naturalWords ? WordSplitting::Natural : WordSplitting::Listed;
}

LabelPlan VorpelKeyboardViewController::labelPlan() const {
    return options_.distinctLabels ? LabelPlan::Distinct : LabelPlan::Fixed;
}

WordCase VorpelKeyboardViewController::wordCaseOf(const std::string& word) const {
    return options_.naturalWords ? naturalCaseOf(word) : caseOf(word);
}

std::vector<std::optional<KeyOffset>> VorpelKeyboardViewController::keyOffsetsFor(
    const std::string& word) const {
    if (!options_.touchPoints || KTextInputMode) return {};
    return record_.offsetsOf(word);
}

}  // namespace vorpel
