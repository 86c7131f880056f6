// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/preference_keys.h"
#include "keyboard/session/vp_keyboard_view_controller.h"
#include "platform/characters.h"

#include <cstddef>

namespace vorpel {

std::unique_ptr<ExtraView> VPKeyboardViewController::createBanner() {
    auto banner = std::make_unique<VPSuggestionsBanner>(
        globalColors(), darkMode(), solidColorMode(),
        BannerParts{platform().bundle, platform().userDefaults, platform().textChecker});
    banner->delegate = this;
    banner->mayLearn = [this] { return typingPolicy().stores; };
    return banner;
}

VPSuggestionsBanner* VPKeyboardViewController::suggestionsBanner() const {
    return dynamic_cast<VPSuggestionsBanner*>(bannerView());
}

void VPKeyboardViewController::setBanner(ui::View& view) {
    if (VPSuggestionsBanner* const banner = suggestionsBanner()) banner->setSuggestionView(view);
}

void VPKeyboardViewController::toggleSettingsView(bool shown) {
    toggleSettings(!shown);
}

void VPKeyboardViewController::toggleSettings(bool hide) {
    if (!hide) closeEmoji();
    KeyboardViewController::toggleSettings(hide);
    if (VPSuggestionsBanner* const banner = suggestionsBanner()) banner->settingsToggled(settingsOnShow());
    // What may be suggested and corrected may be another by now.
    if (hide) checkTheCurrentWord(NO_TOUCH_POINT);
}

void VPKeyboardViewController::wordTapped(const std::string& word, int /*tag*/) {
    readInputMode();
    // It was shown before the field became one that shows none.
    if (!typingPolicy().suggests) return checkTheCurrentWord(NO_TOUCH_POINT);
    const std::string current = getCurrentWord();
    if (typingPolicy().stores) {
        if (inputDelegate) inputDelegate->wordCommitted(word);
        platform().userDefaults.setString(preferences::STRING_TO_SEND, "");
    }
    VPSuggestionsBanner* const banner = suggestionsBanner();
    if (banner && !platform::isEmoji(word)) {
        banner->wordLabel_2.setTitle("");
        banner->wordLabel_3.setTitle("");
    }
    autoCorrectCurrentSession = false;
    dropAnswers();
    setBannerWordButtonColors(false);
    for (std::size_t left = platform::characterCount(current); left > 0; --left) deleteCharacter();
    insertWordForFont(word);
    checkTheCurrentWord(NO_TOUCH_POINT);
    updateSearchString();
}

}  // namespace vorpel
