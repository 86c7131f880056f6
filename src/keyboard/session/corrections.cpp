// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/vp_keyboard_view_controller.h"
#include "platform/characters.h"

#include <cstddef>

namespace vorpel {

std::string VPKeyboardViewController::getCurrentWord() const {
    return getTheCurrentWordFromSentence(sentence().value_or(""), wordSplitting());
}

void VPKeyboardViewController::autoCorrectWord() {
    const VPSuggestionsBanner* const banner = suggestionsBanner();
    if (!autoCorrectCurrentSession || !banner || !typingPolicy().corrects) return;
    const std::string title = banner->wordLabel_2.titleForState(ui::ControlState::Normal);
    const std::string current = getCurrentWord();
    // Arabic words are never replaced unasked.
    if (platform::isAscii(current)) deleteAndEnterWord(current, title);
}

void VPKeyboardViewController::deleteAndEnterWord(const std::string& word, const std::string& correctword) {
    if (word.empty() || correctword.empty()) return;
    for (std::size_t left = platform::characterCount(word); left > 0; --left) deleteCharacter();
    insertWordForFont(correctword);
}

void VPKeyboardViewController::insertWordForFont(const std::string& word) {
    enterText(word);
    enterText(" ");
}

}  // namespace vorpel
