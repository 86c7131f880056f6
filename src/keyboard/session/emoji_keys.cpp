// SPDX-License-Identifier: Apache-2.0
// How the typing session and the emoji keyboard work together.
#include "keyboard/model/preference_keys.h"
#include "keyboard/session/vp_keyboard_view_controller.h"

#include <algorithm>
#include <cstddef>

namespace vorpel {

VPEmoticonKeyboardView& VPKeyboardViewController::getSecondEmoction_Keyboardview() {
    if (!second_emoction_) {
        second_emoction_ =
            std::make_unique<VPEmoticonKeyboardView>(plane().forwardingView->frame(), platform());
        second_emoction_->delegate = this;
        second_emoction_->mayRemember = [this] {
            readInputMode();
            return typingPolicy().stores;
        };
    }
    return *second_emoction_;
}

bool VPKeyboardViewController::emojiOnShow() const {
    return second_emoction_ && second_emoction_->superview();
}

void VPKeyboardViewController::launchEmoji() {
    if (settingsOnShow()) toggleSettings(true);
    // Where there are no keys there is no place for what stands in for them.
    if (emojiOnShow() || keysAreHidden()) return;
    plane().forwardingView->resetTrackedViews();
    hidePopupCallback();
    VPEmoticonKeyboardView& emoji = getSecondEmoction_Keyboardview();
    emoji.open();
    emoji.setDark_mode(darkMode());
    view().addSubview(emoji);
    layoutPass();
}

void VPKeyboardViewController::closeEmoji() {
    if (!emojiOnShow()) return;
    cancelBackspaceTimers();
    second_emoction_->removeFromSuperview();
    setupInitialState();
    // The capitals of the next word hang on what was entered meanwhile.
    setShiftState(shiftState());
}

void VPKeyboardViewController::dismissTheEmoction() {
    playKeySound();
    closeEmoji();
    // It may have been opened from a page of signs.
    selectPageForField();
}

void VPKeyboardViewController::emoctionSelectedSE(const std::string& emoji) {
    playKeySound();
    readInputMode();
    backspaceTapped = false;
    autoCorrectCurrentSession = false;
    dropAnswers();
    // A word ends where a picture begins.
    if (!KTextInputMode) commitKeptWord(false);
    enterText(emoji);
    // The next letter's case hangs on it, and so does what the next blank means.
    contextChanged();
    if (platform().userDefaults.boolForKey(preferences::kIsNumberType)) return;
    updateSearchString();
    checkTheCurrentWord(NO_TOUCH_POINT);
}

void VPKeyboardViewController::backspaceDownEmoction() {
    playKeySound();
    backspaceDown(second_emoction_->backSpaceButton());
}

void VPKeyboardViewController::backspaceUpEmoction() {
    backspaceUp(second_emoction_->backSpaceButton());
}

void VPKeyboardViewController::viewDidLayoutSubviews() {
    KeyboardViewController::viewDidLayoutSubviews();
    if (emojiOnShow()) second_emoction_->setFrame(plane().forwardingView->frame());
}

void VPKeyboardViewController::traitCollectionDidChange() {
    KeyboardViewController::traitCollectionDidChange();
    closeEmojiWithoutKey();
}

/// The field may have become one of another kind, which has no use for emoji.
void VPKeyboardViewController::closeEmojiWithoutKey() {
    const auto isEmojiKey = [](const auto& key) { return key->type == Key::KeyType::LaunchEmoji; };
    const auto hasOne = [&](const KeyRow& row) { return std::ranges::any_of(row, isEmojiKey); };
    const Page& page = plane().model.pages.at(static_cast<std::size_t>(currentMode()));
    if (emojiOnShow() && std::ranges::none_of(page.rows, hasOne)) closeEmoji();
}

void VPKeyboardViewController::updateAppearance() {
    KeyboardViewController::updateAppearance();
    if (second_emoction_) second_emoction_->setDark_mode(darkMode());
}

}  // namespace vorpel
