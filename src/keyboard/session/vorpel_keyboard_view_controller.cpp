// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/vorpel_keyboard_view_controller.h"

#include "keyboard/model/page_number.h"

namespace vorpel {

std::unique_ptr<VorpelKeyboardViewController> VorpelKeyboardViewController::create(
    platform::Platform& platform, const TypingOptions& options) {
    std::unique_ptr<VorpelKeyboardViewController> controller(
        new VorpelKeyboardViewController(platform, options));
    controller->setUp();
    return controller;
}

void VorpelKeyboardViewController::viewWillAppear() {
    VPKeyboardViewController::viewWillAppear();
    // It may have been away from another field.
    const platform::TextDocumentProxy& field = textDocumentProxy();
    record_.take(field.documentContextBeforeInput(), field.documentContextAfterInput());
    forgetCorrection();
}

void VorpelKeyboardViewController::viewDidLoad() {
    VPKeyboardViewController::viewDidLoad();
    const platform::TextDocumentProxy& field = textDocumentProxy();
    record_.take(field.documentContextBeforeInput(), field.documentContextAfterInput());
}

void VorpelKeyboardViewController::viewDidLayoutSubviews() {
    const double width = view().bounds().width;
    if (width != laidOutWidth_) {
        laidOutWidth_ = width;
        // What was measured for the old width does not hold for the new one.
        for (KeyboardLayout* const laidOut : {layout(), arabicLayout()}) {
            if (laidOut) laidOut->otherTypeKeyWidth = 0;
        }
    }
    VPKeyboardViewController::viewDidLayoutSubviews();
}

void VorpelKeyboardViewController::selectPageForField() {
    const bool isLandscape =
        platform().host.interfaceOrientation() == platform::InterfaceOrientation::Landscape;
    const bool hasRoom = platform().screen.boundsWidth() >= LEAST_WIDE_WIDTH;
    const bool wantsWide = isLandscape && hasRoom && !isPad();
    if (wantsWide) {
        setModeForKeyboardInLandscape(keyboardType, returnType);
    } else {
        setModeForKeyboard(keyboardType, returnType);
    }
    // A return key without a page of its own leaves the page, which may be too wide or too narrow now.
    const bool isWide = currentMode() >= FIRST_WIDE_PAGE;
    if (isWide != wantsWide) setCurrentMode(currentMode() + (wantsWide ? FIRST_WIDE_PAGE : -FIRST_WIDE_PAGE));
}

void VorpelKeyboardViewController::keyPressedHelper(ui::Control& sender) {
    VPKeyboardViewController::keyPressedHelper(sender);
    // Shift was held for this letter and has nothing left to do when it is let go.
    shiftStartingState.reset();
}

void VorpelKeyboardViewController::setupKeys() {
    VPKeyboardViewController::setupKeys();
    const KeyboardLayout* const shown = plane().layout.get();
    if (!shown) return;
    for (const auto& [key, view] : shown->modelToView()) {
        view->addTarget(this, "noteKey", ui::ControlEvent::TouchDown, [this, held = key](ui::Control&) {
            downBefore_ = lastDown_;
            lastDown_ = held;
        });
        if (key->type != Key::KeyType::Shift) continue;
        // The next tap is a new gesture.
        view->addTarget(this, "shiftCancelled",
                        ui::ControlEvent::TouchCancel | ui::ControlEvent::TouchDragExit,
                        [this](ui::Control&) {
                            shiftStartingState.reset();
                            shiftWasMultitapped = false;
                        });
    }
}

void VorpelKeyboardViewController::shiftDoubleTapped(ui::Control& sender) {
    // Taps are counted by time and place: the first may have been on a letter beside shift.
    if (downBefore_ == lastDown_) VPKeyboardViewController::shiftDoubleTapped(sender);
}

}  // namespace vorpel
