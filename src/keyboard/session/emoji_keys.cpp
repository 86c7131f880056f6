// SPDX-License-Identifier: Apache-2.0
// How the typing session and the emoji keyboard work together.
#include "keyboard/session/vp_keyboard_view_controller.h"

namespace vorpel {

VPEmoticonKeyboardView& VPKeyboardViewController::getSecondEmoction_Keyboardview() {
    if (!second_emoction_) {
        second_emoction_ =
            std::make_unique<VPEmoticonKeyboardView>(plane().forwardingView->frame(), platform());
        second_emoction_->delegate = this;
        second_emoction_->mayRemember = [this] { return typingPolicy().stores; };
    }
    return *second_emoction_;
}

bool VPKeyboardViewController::emojiOnShow() const {
    return second_emoction_ && second_emoction_->superview();
}

void VPKeyboardViewController::launchEmoji() {
    if (emojiOnShow()) return;
    if (settingsOnShow()) toggleSettings(true);
    plane().forwardingView->resetTrackedViews();
    hidePopupCallback();
    VPEmoticonKeyboardView& emoji = getSecondEmoction_Keyboardview();
    emoji.open();
    emoji.setDark_mode(darkMode());
    emoji.setFrame(plane().forwardingView->frame());
    view().addSubview(emoji);
    setupInitialState();
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
    setCapsIfNeeded();
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

void VPKeyboardViewController::updateAppearance() {
    KeyboardViewController::updateAppearance();
    if (second_emoction_) second_emoction_->setDark_mode(darkMode());
}

}  // namespace vorpel
