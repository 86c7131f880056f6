// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/keyboard_view_controller.h"
#include "keyboard/controller/programming_fault.h"

#include <string>

namespace vorpel {

namespace {

using platform::InterfaceOrientation;

constexpr double PAD_PORTRAIT = 264;
constexpr double PAD_LANDSCAPE = 352;
constexpr double PHONE_PORTRAIT = 216;
constexpr double LARGE_PHONE_PORTRAIT = 226;
constexpr double PHONE_LANDSCAPE = 162;
constexpr double LARGE_PHONE_WIDTH = 400;

}  // namespace

double KeyboardViewController::metric(std::string_view name) const {
    if (name == "topBanner") return 45;
    if (name == "topBar") return 55;
    if (name == "customView") return 226;
    programmingFault("no bar has the name \"" + std::string(name) + "\"");
}

double KeyboardViewController::getheightForOrientation(InterfaceOrientation orientation, bool withTopBanner,
                                                       bool withTopBar, bool withCustomView,
                                                       bool withKeyboardView) const {
    const platform::Screen& screen = platform().screen;
    const bool isPortrait = orientation == InterfaceOrientation::Portrait;
    // As the device is held upright, however it is held now.
    const double actualScreenWidth = screen.nativeBoundsWidth() / screen.nativeScale();
    double height = 0;
    if (withKeyboardView && originalKeyboardHeight) {
        height = *originalKeyboardHeight;
    } else if (withKeyboardView && isPad()) {
        height = isPortrait ? PAD_PORTRAIT : PAD_LANDSCAPE;
    } else if (withKeyboardView && isPortrait) {
        height = actualScreenWidth >= LARGE_PHONE_WIDTH ? LARGE_PHONE_PORTRAIT : PHONE_PORTRAIT;
    } else if (withKeyboardView) {
        height = PHONE_LANDSCAPE;
    }
    if (withTopBanner) height += metric("topBanner");
    if (withTopBar) height += metric("topBar");
    const ui::View* const custom = withCustomView ? ifStillHere(customView) : nullptr;
    if (custom) height += custom->frame().height;
    return height;
}

double KeyboardViewController::heightForOrientation(InterfaceOrientation orientation,
                                                    bool withTopBanner) const {
    return getheightForOrientation(orientation, withTopBanner, false, false, true);
}

double KeyboardViewController::keysHeight() const {
    return heightForOrientation(platform().host.interfaceOrientation(), false);
}

void KeyboardViewController::setHeight(double height) {
    if (heightConstraint_ && heightConstraint_->constant == height) return;
    if (!heightConstraint_) heightConstraint_.emplace();
    heightConstraint_->constant = height;
    platform().host.setHeight(height);
}

}  // namespace vorpel
