// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/keyboard_view_controller.h"

namespace vorpel {

namespace {

// A popup stays for so long after its key, in seconds: a short tap shows what was typed.
constexpr double POPUP_DELAY = 0.05;

}  // namespace

void KeyboardViewController::backspaceDown(ui::Control& /*sender*/) {
    cancelBackspaceTimers();
    deleteBackward();
    setCapsIfNeeded();
    // The first tick of the repeat comes one repeat later, at the delay that was asked for.
    backspaceDelayTimer = platform().runLoop.scheduledTimer(backspaceDelay - backspaceRepeat, false,
                                                            [this] { backspaceDelayCallback(); });
}

void KeyboardViewController::backspaceDelayCallback() {
    backspaceDelayTimer.invalidate();
    backspaceRepeatTimer =
        platform().runLoop.scheduledTimer(backspaceRepeat, true, [this] { backspaceRepeatCallback(); });
}

void KeyboardViewController::backspaceRepeatCallback() {
    playKeySound();
    deleteBackward();
    setCapsIfNeeded();
}

void KeyboardViewController::backspaceUp(ui::Control& /*sender*/) {
    cancelBackspaceTimers();
}

void KeyboardViewController::cancelBackspaceTimers() {
    backspaceDelayTimer.invalidate();
    backspaceRepeatTimer.invalidate();
}

void KeyboardViewController::showPopup(ui::Control& sender) {
    auto& key = static_cast<KeyboardKey&>(sender);
    firstDate = platform().runLoop.now();
    if (&key == keyWithDelayedPopup) popupDelayTimer.invalidate();
    key.showPopup();
}

void KeyboardViewController::hidePopupDelay(ui::Control& sender) {
    auto& key = static_cast<KeyboardKey&>(sender);
    popupDelayTimer.invalidate();
    if (keyWithDelayedPopup != &key) {
        if (keyWithDelayedPopup) keyWithDelayedPopup->hidePopup();
        keyWithDelayedPopup = &key;
    }
    if (!key.hasPopup()) return;
    popupDelayTimer = platform().runLoop.scheduledTimer(POPUP_DELAY, false, [this] { hidePopupCallback(); });
}

void KeyboardViewController::hidePopupCallback() {
    if (keyWithDelayedPopup) keyWithDelayedPopup->hidePopup();
    keyWithDelayedPopup = nullptr;
    popupDelayTimer.invalidate();
}

}  // namespace vorpel
