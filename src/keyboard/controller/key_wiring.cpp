// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/keyboard_view_controller.h"

namespace vorpel {

namespace {

using enum ui::ControlEvent;
using KeyType = Key::KeyType;
using Controller = KeyboardViewController;

}  // namespace

void KeyboardViewController::add(KeyboardKey& view, std::string_view name, ui::ControlEvents events,
                                 Action action) {
    view.addTarget(this, name, events, [this, action](ui::Control& sender) { (this->*action)(sender); });
}

void KeyboardViewController::add(KeyboardKey& view, std::string_view name, ui::ControlEvents events,
                                 PlainAction action) {
    view.addTarget(this, name, events, [this, action](ui::Control&) { (this->*action)(); });
}

void KeyboardViewController::setupKeys() {
    for (KeyPlane* const plane : {&english_, &arabic_}) {
        if (!plane->layout) continue;
        for (const auto& [key, view] : plane->layout->modelToView()) setupKey(*view, *key);
    }
}

// The order is that in which the actions of one event run.
void KeyboardViewController::setupKey(KeyboardKey& view, const Key& key) {
    view.removeAllTargets();
    const bool isModeKey = key.type == KeyType::ModeChange;
    // First: its own action takes away what else its view was to do.
    if (isModeKey) add(view, "playKeySound", TouchDown, &Controller::playKeySound);
    setupSpecialKey(view, key);
    if (key.isCharacter() && !isPad()) setupPopup(view);
    if (key.hasOutput()) {
        add(view, "keyPressedHelperWithSender:", TouchUpInside, &Controller::keyPressedHelper);
        add(view, "addCharacterToListWithSender:", TouchDownRepeat, &Controller::addCharacterToList);
    }
    // Their ground tells the state of shift, or changes with the page.
    if (key.type != KeyType::Shift && !isModeKey) {
        add(view, "highlightKeyWithSender:", TouchDown | TouchDragInside | TouchDragEnter,
            &Controller::highlightKey);
        add(view, "unHighlightKeyWithSender:",
            TouchUpInside | TouchUpOutside | TouchDragOutside | TouchDragExit | TouchCancel,
            &Controller::unHighlightKey);
    }
    if (!isModeKey) add(view, "playKeySound", TouchDown, &Controller::playKeySound);
}

void KeyboardViewController::setupSpecialKey(KeyboardKey& view, const Key& key) {
    switch (key.type) {
        case KeyType::LaunchEmoji:
            add(view, "launchEmojiKeyboard", TouchUpInside, &Controller::launchEmojiKeyboard);
            break;
        case KeyType::KeyboardChange:
            add(view, "advanceTappedWithSender:", TouchUpInside, &Controller::advanceTapped);
            break;
        case KeyType::Backspace:
            add(view, "backspaceDownWithSender:", TouchDown, &Controller::backspaceDown);
            add(view, "backspaceUpWithSender:",
                TouchUpInside | TouchDragExit | TouchUpOutside | TouchCancel | TouchDragOutside,
                &Controller::backspaceUp);
            break;
        case KeyType::Shift:
            add(view, "shiftDownWithSender:", TouchDown, &Controller::shiftDown);
            add(view, "shiftUpWithSender:", TouchUpInside, &Controller::shiftUp);
            add(view, "shiftDoubleTappedWithSender:", TouchDownRepeat, &Controller::shiftDoubleTapped);
            break;
        case KeyType::ModeChange:
            add(view, "modeChangeTappedWithSender:", TouchDown, &Controller::modeChangeTapped);
            break;
        case KeyType::Settings:
            view.addTarget(this, "toggleSettings:", TouchUpInside,
                           [this](ui::Control&) { toggleSettings(settingsOnShow()); });
            break;
        case KeyType::Return:
        case KeyType::Return_II:
        case KeyType::Return_Send:
        case KeyType::Return_Search:
        case KeyType::Return_Done:
            add(view, "returnClicked", TouchUpInside, &Controller::returnClicked);
            break;
        case KeyType::Space:
            add(view, "spaceKeyIdentifierFunction", TouchCancel, &Controller::spaceKeyIdentifierFunction);
            break;
        case KeyType::adjust_Left:
            add(view, "shiftTheCursorLeft", TouchUpInside, &Controller::shiftTheCursorLeft);
            break;
        case KeyType::adjust_Right:
            add(view, "shiftTheCursorRight", TouchUpInside, &Controller::shiftTheCursorRight);
            break;
        case KeyType::dismiss_Self:
            add(view, "dismissKeyboard", TouchUpInside, &Controller::dismissKeyboard);
            break;
        default:
            break;
    }
}

void KeyboardViewController::setupPopup(KeyboardKey& view) {
    add(view, "showPopupWithSender:", TouchDown | TouchDragInside | TouchDragEnter, &Controller::showPopup);
    view.addTarget(this, "hidePopup", TouchDragExit | TouchCancel,
                   [&view](ui::Control&) { view.hidePopup(); });
    add(view, "hidePopupDelayWithSender:", TouchUpInside | TouchUpOutside | TouchDragOutside,
        &Controller::hidePopupDelay);
}

}  // namespace vorpel
