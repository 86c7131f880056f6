// SPDX-License-Identifier: Apache-2.0
#include "ui/tap_gesture.h"

#include "ui/touch.h"

#include <algorithm>
#include <cmath>

namespace vorpel::ui {

void TapGesture::touchBegan(Touch& touch) {
    if (filter_ && !filter_(touch)) return;
    fingers_.push_back({&touch, touch.locationInWindow(), touch.timestamp()});
}

void TapGesture::touchMoved(Touch& touch) {
    const auto finger = find(touch);
    if (finger != fingers_.end() && !isStillTap(*finger)) fingers_.erase(finger);
}

void TapGesture::touchEnded(Touch& touch) {
    const auto finger = find(touch);
    if (finger == fingers_.end()) return;
    const bool isTap = isStillTap(*finger);
    fingers_.erase(finger);
    if (!isTap) return;
    const Action action = action_;
    action(touch);
}

void TapGesture::touchCancelled(Touch& touch) {
    const auto finger = find(touch);
    if (finger != fingers_.end()) fingers_.erase(finger);
}

std::vector<TapGesture::Finger>::iterator TapGesture::find(const Touch& touch) {
    return std::ranges::find(fingers_, &touch, &Finger::touch);
}

bool TapGesture::isStillTap(const Finger& finger) const {
    const Point moved = finger.touch->locationInWindow() - finger.start;
    return std::hypot(moved.x, moved.y) <= FARTHEST_POINTS &&
           finger.touch->timestamp() - finger.startTime <= longestSeconds_;
}

}  // namespace vorpel::ui
