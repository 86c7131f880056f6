// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/controller/keyboard_view_controller.h"

#include <memory>

namespace vorpel {

/// The keyboard that hosts embed. Main thread only.
///
/// It has the wide set on a phone that is held sideways and is wide enough for the set's extra keys, and
/// lays a new width out from scratch. A letter typed while shift is held ends the shift gesture, and so does
/// a finger that leaves the shift key. Only two taps on shift itself lock it. Only two taps on shift itself
/// lock it.
class VorpelKeyboardViewController : public KeyboardViewController {
public:
    /// Below this width, in points, the wide set's extra keys find no room.
    static constexpr double LEAST_WIDE_WIDTH = 606;

    static std::unique_ptr<VorpelKeyboardViewController> create(platform::Platform& platform);

    void viewDidLayoutSubviews() override;
    void keyPressedHelper(ui::Control& sender) override;
    void setupKeys() override;
    void shiftDoubleTapped(ui::Control& sender) override;

protected:
    using KeyboardViewController::KeyboardViewController;
    void selectPageForField() override;

private:
    double laidOutWidth_ = 0;
    const Key* lastDown_ = nullptr;
    const Key* downBefore_ = nullptr;  // compared only: its model may be gone
};

}  // namespace vorpel
