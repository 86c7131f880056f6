// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/controller/forwarding_view.h"
#include "keyboard/layout/keyboard_layout.h"
#include "keyboard/model/keyboard.h"

#include <memory>

namespace vorpel {

/// One language's keys: what exists, where it lies, and the view that takes its touches.
struct KeyPlane {
    Keyboard model;
    std::unique_ptr<ui::View> popupLayer;  ///< over the keys and what is above them; takes no touches
    std::unique_ptr<ForwardingView> forwardingView;
    std::unique_ptr<KeyboardLayout> layout;  ///< absent until the first layout pass
};

}  // namespace vorpel
