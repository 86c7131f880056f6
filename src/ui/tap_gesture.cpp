// SPDX-License-Identifier: Apache-2.0
#include "ui/tap_gesture.h"

#include "ui/touch.h"

#include <cmath>

namespace vorpel::ui {

void TapGesture::touchBegan(Touch& touch) {
    if (filter_ && !filter_(touch)) return;
    // A second finger makes it something other than a tap.
    if (tracked_) {
        tracked_ = nullptr;
        return;
    }
    tracked_ = &touch;
    start_ = touch.locationInWindow();
    startTime_ = touch.timestamp();
}

void TapGesture::touchMoved(Touch& touch) {
    if (&touch == tracked_ && !isStillTap(touch)) tracked_ = nullptr;
}

void TapGesture::touchEnded(Touch& touch) {
    if (&touch != tracked_) return;
    tracked_ = nullptr;
    if (!isStillTap(touch)) return;
    const Action action = action_;
    action(touch);
}

void TapGesture::touchCancelled(Touch& touch) {
    if (&touch == tracked_) tracked_ = nullptr;
}

bool TapGesture::isStillTap(const Touch& touch) const {
    const Point moved = touch.locationInWindow() - start_;
    return std::hypot(moved.x, moved.y) <= FARTHEST_POINTS &&
           touch.timestamp() - startTime_ <= LONGEST_SECONDS;
}

}  // namespace vorpel::ui
