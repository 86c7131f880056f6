// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/keyboard_view_controller.h"
#include "keyboard/controller/sentence.h"
#include "keyboard/model/preference_keys.h"

namespace vorpel {

void KeyboardViewController::insertText(const std::string& text) {
    textDocumentProxy().insertText(text);
}

void KeyboardViewController::deleteBackward() {
    textDocumentProxy().deleteBackward();
}

std::optional<std::string> KeyboardViewController::textBeforeInput() const {
    return textDocumentProxy().documentContextBeforeInput();
}

void KeyboardViewController::setShiftState(ShiftState state) {
    shiftState_ = state;
    const bool capitals = uppercase(state);
    if (isArabicModeOn_) {
        arabicupdateKeyCaps(capitals);
    } else {
        updateKeyCaps(capitals);
    }
}

void KeyboardViewController::updateKeyCaps(bool capitals) {
    updateCaps(english_, capitals);
}

void KeyboardViewController::arabicupdateKeyCaps(bool capitals) {
    updateCaps(arabic_, capitals);
}

void KeyboardViewController::updateCaps(KeyPlane& plane, bool capitals) {
    if (!plane.layout) return;
    plane.layout->updateKeyCaps(false, capitals, characterUppercase(capitals), shiftState_);
}

/// Without small letters on the faces they show capitals at all times, as a desk's keyboard does.
bool KeyboardViewController::characterUppercase(bool capitals) const {
    return !platform().userDefaults.boolForKey(preferences::kSmallLowercase) || capitals;
}

void KeyboardViewController::toggleShift(ui::Control& sender) {
    const bool isDisabled = shiftState_ == ShiftState::Disabled;
    setShiftState(isDisabled ? ShiftState::Enabled : ShiftState::Disabled);
    auto& key = static_cast<KeyboardKey&>(sender);
    if (auto* const shape = dynamic_cast<ShiftShape*>(key.shape())) shape->setWithLock(false);
}

void KeyboardViewController::shiftDown(ui::Control& sender) {
    shiftStartingState = shiftState_;
    // From capitals the press acts on release, so that a double tap can lock them.
    if (!uppercase(shiftState_)) toggleShift(sender);
}

void KeyboardViewController::shiftUp(ui::Control& sender) {
    if (!shiftWasMultitapped && shiftStartingState && uppercase(*shiftStartingState)) toggleShift(sender);
    shiftStartingState.reset();
    shiftWasMultitapped = false;
}

void KeyboardViewController::shiftDoubleTapped(ui::Control& /*sender*/) {
    if (swipeKeyMode) return;
    shiftWasMultitapped = true;
    const bool isLocked = shiftState_ == ShiftState::Locked;
    setShiftState(isLocked ? ShiftState::Disabled : ShiftState::Locked);
}

bool KeyboardViewController::setCapsIfNeeded() {
    const bool capitals = shouldAutoCapitalize();
    if (shiftState_ != ShiftState::Locked) {
        setShiftState(capitals ? ShiftState::Enabled : ShiftState::Disabled);
    }
    return capitals;
}

bool KeyboardViewController::shouldAutoCapitalize() const {
    if (!platform().userDefaults.boolForKey(preferences::kAutoCapitalization)) return false;
    const auto type = textDocumentProxy().autocapitalizationType();
    if (!type) return false;
    switch (*type) {
        case platform::AutocapitalizationType::None:
            return false;
        case platform::AutocapitalizationType::Words:
            return beginsWord(textBeforeInput());
        case platform::AutocapitalizationType::Sentences:
            return beginsSentence(textBeforeInput());
        case platform::AutocapitalizationType::AllCharacters:
            return true;
    }
    return false;
}

void KeyboardViewController::contextChanged() {
    setCapsIfNeeded();
    autoPeriodState_ = AutoPeriodState::NoSpace;
}

void KeyboardViewController::textDidChange() {
    InputViewController::textDidChange();
    const platform::TextDocumentProxy& proxy = textDocumentProxy();
    if (!proxy.documentContextBeforeInput() && !proxy.documentContextAfterInput()) {
        resetTheUpdateAndSearchString();
    }
    const auto fieldReturnType = proxy.returnKeyType();
    if (!fieldReturnType) return;
    returnType = static_cast<int>(*fieldReturnType);
    const auto fieldType = proxy.keyboardType();
    if (!fieldType) return;
    keyboardType = static_cast<int>(*fieldType);
    platform().userDefaults.setBool(preferences::kIsNumberType, false);
    selectPageForField();
    contextChanged();
}

void KeyboardViewController::selectPageForField() {
    // Wider screens have room for the wide set; devices with these figures in their names have not.
    constexpr double WIDEST_ORDINARY_SCREEN = 440;
    const bool isNarrowModel = modelName.find_first_of("45") != std::string::npos;
    if (isPad() || isNarrowModel || platform().screen.boundsWidth() <= WIDEST_ORDINARY_SCREEN) {
        setModeForKeyboard(keyboardType, returnType);
    } else {
        setModeForKeyboardInLandscape(keyboardType, returnType);
    }
}

}  // namespace vorpel
