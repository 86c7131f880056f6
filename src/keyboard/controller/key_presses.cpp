// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/keyboard_view_controller.h"
#include "keyboard/controller/programming_fault.h"
#include "keyboard/controller/sentence.h"
#include "keyboard/model/page_selection.h"
#include "keyboard/model/preference_keys.h"

namespace vorpel {

void KeyboardViewController::keyPressedHelper(ui::Control& sender) {
    const KeyboardLayout* const layout = plane().layout.get();
    if (const Key* const model = layout ? layout->keyForView(sender) : nullptr) {
        if (!firstDate) firstDate = platform().runLoop.now();
        const auto& view = static_cast<const KeyboardKey&>(sender);
        keyPressed(*model, *firstDate, view.touchedAtPosition.value_or(ui::Point{}));
        handleAutoPeriod(*model);
    }
    setCapsIfNeeded();
}

void KeyboardViewController::keyPressed(const Key& key, double /*firstDate*/, ui::Point /*position*/) {
    insertText(key.outputForCase(uppercase(shiftState_)));
}

void KeyboardViewController::handleAutoPeriod(const Key& key) {
    if (!platform().userDefaults.boolForKey(preferences::kPeriodShortcut)) return;
    const AutoPeriodState state = autoPeriodState_;
    const bool isFirstSpace = state == AutoPeriodState::NoSpace && key.isSpace();
    autoPeriodState_ = isFirstSpace ? AutoPeriodState::FirstSpace : AutoPeriodState::NoSpace;
    if (state != AutoPeriodState::FirstSpace || !key.isSpace()) return;
    if (!mayBecomePeriod(textBeforeInput())) return;
    deleteBackward();
    deleteBackward();
    insertText(".");
    insertText(" ");
}

void KeyboardViewController::modeChangeTapped(ui::Control& sender) {
    const KeyboardLayout* const layout = plane().layout.get();
    const Key* const model = layout ? layout->keyForView(sender) : nullptr;
    if (model && model->toMode) setCurrentMode(*model->toMode);
}

void KeyboardViewController::setCurrentMode(int mode) {
    if (mode == currentMode_) return;
    previousMode_ = currentMode_;
    currentMode_ = mode;
    if (isArabicModeOn_) {
        arabicSetMode(mode);
    } else {
        setMode(mode);
    }
}

void KeyboardViewController::setMode(int /*mode*/) {
    showPage(english_);
}

void KeyboardViewController::arabicSetMode(int /*mode*/) {
    showPage(arabic_);
}

void KeyboardViewController::showPage(KeyPlane& plane) {
    if (!plane.forwardingView) programmingFault("a page is shown without a view for its keys");
    plane.forwardingView->resetTrackedViews();
    shiftStartingState.reset();
    shiftWasMultitapped = false;
    if (!plane.layout) return;
    // The view that waits may soon show another key, or none.
    hidePopupCallback();
    const bool capitals = uppercase(shiftState_);
    plane.layout->layoutKeys(currentMode_, capitals, characterUppercase(capitals), shiftState_,
                             [this](const PageGeometry& geometry) {
                                 keysArray = geometry.keys;
                                 keyFramesArray = geometry.frames;
                                 keyCharArray = geometry.characters;
                                 if (!keyFramesArray.empty()) keyFramesValuesChanged();
                             });
    setupKeys();
}

void KeyboardViewController::setModeForKeyboard(int fieldType, int fieldReturnType) {
    selectFrom(fieldType, fieldReturnType, WidthSet::Ordinary);
}

void KeyboardViewController::setModeForKeyboardInLandscape(int fieldType, int fieldReturnType) {
    selectFrom(fieldType, fieldReturnType, WidthSet::Wide);
}

void KeyboardViewController::selectFrom(int fieldType, int fieldReturnType, WidthSet width) {
    const PageSelection selection = selectPage(fieldType, fieldReturnType, width);
    if (selection.isNumeric) platform().userDefaults.setBool(preferences::kIsNumberType, true);
    if (selection.page) setCurrentMode(*selection.page);
}

void KeyboardViewController::highlightKey(ui::Control& sender) {
    sender.setHighlighted(true);
}

void KeyboardViewController::unHighlightKey(ui::Control& sender) {
    sender.setHighlighted(false);
}

void KeyboardViewController::advanceTapped(ui::Control& /*sender*/) {
    if (!plane().forwardingView) programmingFault("keyboards are switched without a view for the keys");
    plane().forwardingView->resetTrackedViews();
    shiftStartingState.reset();
    shiftWasMultitapped = false;
    platform().host.advanceToNextInputMode();
}

void KeyboardViewController::returnClicked() {
    firstDate = platform().runLoop.now();
}

void KeyboardViewController::shiftTheCursorLeft() {
    textDocumentProxy().adjustTextPositionByCharacterOffset(-1);
}

void KeyboardViewController::shiftTheCursorRight() {
    textDocumentProxy().adjustTextPositionByCharacterOffset(1);
}

void KeyboardViewController::dismissKeyboard() {
    platform().host.dismissKeyboard();
}

void KeyboardViewController::playKeySound() {
    // The number of the click among the system's sounds.
    constexpr int KEY_CLICK = 1104;
    platform::SystemSound* const sound = platform().systemSound;
    if (!sound || !platform().userDefaults.boolForKey(preferences::kKeyboardClicks)) return;
    platform().globalQueue.async([sound] { sound->play(KEY_CLICK); });
}

}  // namespace vorpel
