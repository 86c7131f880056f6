// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/preference_keys.h"
#include "keyboard/session/vp_keyboard_view_controller.h"
#include "platform/characters.h"
#include "text/diagnostics.h"

#include <string_view>

namespace vorpel {

namespace {

constexpr std::string_view WHITE_SPACE = " \t\r\n";

std::string trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(WHITE_SPACE);
    if (begin == std::string::npos) return {};
    return text.substr(begin, text.find_last_not_of(WHITE_SPACE) - begin + 1);
}

}  // namespace

void VPKeyboardViewController::readInputMode() {
    KTextInputMode = platform().userDefaults.boolForKey(preferences::FAKE_TEXT_FIELD_ENABLED);
}

void VPKeyboardViewController::enterText(const std::string& text) {
    if (!KTextInputMode) {
        insertText(text);
    } else if (TextInputView* const own = currentActiveInputView()) {
        own->insertText(text);
    }
}

void VPKeyboardViewController::deleteCharacter() {
    if (!KTextInputMode) {
        deleteBackward();
    } else if (TextInputView* const own = currentActiveInputView()) {
        own->deleteBackward();
    }
}

void VPKeyboardViewController::keyPressed(const Key& key, double /*firstDate*/, ui::Point position) {
    const std::string output = key.outputForCase(uppercase(shiftState()));
    backspaceTapped = false;
    readInputMode();
    if (KTextInputMode) {
        enterText(output);
        updateSearchString();
        checkTheCurrentWord(position);
        return;
    }
    const bool isSign = key.type == Key::KeyType::Character || key.type == Key::KeyType::SpecialCharacter;
    if (!isSign) {
        pressOther(output, position);
        return;
    }
    if (textBeforeInput() || keepsEveryLetter()) {
        keepLetters(output);
        commitKeptWord(true);
    }
    insertText(output);
    if (!platform().userDefaults.boolForKey(preferences::kIsNumberType)) {
        updateSearchString();
        checkTheCurrentWord(position);
    }
    commitKeptWord(true);
    if (!typingPolicy().stores) return;
    const auto kept = platform().userDefaults.stringForKey(preferences::STRING_TO_SEND);
    wordengine::Diagnostics::print("keypress last %s\n", kept.value_or("").c_str());
}

/// A space or a return: the word is finished.
void VPKeyboardViewController::pressOther(const std::string& output, ui::Point position) {
    autoCorrectWord();
    updateSearchString();
    insertText(output);
    checkTheCurrentWord(position);
    commitKeptWord(false);
}

void VPKeyboardViewController::keepLetters(const std::string& output) {
    if (!typingPolicy().stores) return;
    platform::UserDefaults& defaults = platform().userDefaults;
    const std::string kept = defaults.stringForKey(preferences::STRING_TO_SEND).value_or("");
    defaults.setString(preferences::STRING_TO_SEND, kept + output);
}

void VPKeyboardViewController::commitKeptWord(bool atSeparatorOnly) {
    if (!typingPolicy().stores) return;
    platform::UserDefaults& defaults = platform().userDefaults;
    const std::string kept = defaults.stringForKey(preferences::STRING_TO_SEND).value_or("");
    const std::string word = trimmed(kept);
    if (kept.empty() || (atSeparatorOnly && word == kept)) return;
    if (inputDelegate) inputDelegate->wordCommitted(word);
    defaults.setString(preferences::STRING_TO_SEND, "");
}

void VPKeyboardViewController::handleAutoPeriod(const Key& key) {
    // The host's text is not what was typed into; and a secret is what was typed.
    if (KTextInputMode || !typingPolicy().stores) return;
    KeyboardViewController::handleAutoPeriod(key);
}

void VPKeyboardViewController::backspaceDown(ui::Control& /*sender*/) {
    cancelBackspaceTimers();
    deleteForBackspace();
    setCapsIfNeeded();
    updateSearchString();
    checkTheCurrentWord(NO_TOUCH_POINT);
    backspaceDelayTimer =
        platform().runLoop.scheduledTimer(backspaceDelay, false, [this] { backspaceDelayCallback(); });
}

void VPKeyboardViewController::backspaceRepeatCallback() {
    playKeySound();
    deleteForBackspace();
    updateSearchString();
    checkTheCurrentWord(NO_TOUCH_POINT);
    setCapsIfNeeded();
}

void VPKeyboardViewController::deleteForBackspace() {
    backspaceTapped = true;
    readInputMode();
    deleteCharacter();
    platform::UserDefaults& defaults = platform().userDefaults;
    const std::string kept = defaults.stringForKey(preferences::STRING_TO_SEND).value_or("");
    if (kept.empty() || !textDocumentProxy().hasText() || !typingPolicy().stores) return;
    defaults.setString(preferences::STRING_TO_SEND, platform::withoutLastCharacter(kept));
}

void VPKeyboardViewController::showPopup(ui::Control& sender) {
    if (typingPolicy().showsPopups) KeyboardViewController::showPopup(sender);
}

std::string VPKeyboardViewController::searchText() const {
    const platform::TextDocumentProxy& field = textDocumentProxy();
    return field.documentContextBeforeInput().value_or("") + field.documentContextAfterInput().value_or("");
}

void VPKeyboardViewController::updateSearchString() {
    searchString = typingPolicy().stores ? searchText() : std::string();
}

}  // namespace vorpel
