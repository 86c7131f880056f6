// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/forwarding_view.h"

#include "keyboard/keys/keyboard_key.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vorpel {

namespace {

using ui::ControlEvent;

// A timed press shorter than this, in seconds, is a tap.
constexpr double LONGEST_TAP = 0.6;

// The cursor moves one character more for each time that the velocity holds this.
constexpr float VELOCITY_PER_CHARACTER = 12427039.0F;
constexpr int GREATEST_OFFSET = 20;

bool hasActionNamed(const ui::View* view, ControlEvent event, const char* name) {
    const auto* const control = dynamic_cast<const ui::Control*>(view);
    return control && control->hasAction(event, name);
}

}  // namespace

ForwardingView::ForwardingView(platform::RunLoop& runLoop, platform::NotificationCenter& notificationCenter)
    : runLoop_(runLoop), notificationCenter_(notificationCenter) {}

ui::View* ForwardingView::hitTest(ui::Point point) {
    if (isHidden() || alpha() == 0 || !isUserInteractionEnabled()) return nullptr;
    return bounds().contains(point) ? this : nullptr;
}

void ForwardingView::handleControl(ui::View* view, ControlEvent controlEvent) {
    if (auto* const control = dynamic_cast<ui::Control*>(view)) control->sendActions(controlEvent);
}

ui::View* ForwardingView::findNearestView(ui::Point position) {
    if (!bounds().contains(position)) return nullptr;
    ui::View* nearest = nullptr;
    double least = std::numeric_limits<double>::max();
    for (ui::View* const view : subviews()) {
        // A key that found no room has no face either.
        if (view->isHidden() || view->frame().isEmpty()) continue;
        view->setAlpha(1);
        const double distance = distanceBetween(view->frame(), position);
        if (distance < least) {
            least = distance;
            nearest = view;
        }
    }
    return nearest;
}

double ForwardingView::distanceBetween(const ui::Rect& rect, ui::Point point) const {
    if (rect.contains(point)) return 0;
    // Nothing is near to what has no room.
    if (rect.isEmpty()) return std::numeric_limits<double>::infinity();
    const double x = std::clamp(point.x, rect.x, rect.right());
    const double y = std::clamp(point.y, rect.y, rect.bottom());
    return std::hypot(point.x - x, point.y - y);
}

bool ForwardingView::ownView(const ui::Touch* newTouch, ui::View* viewToOwn) {
    bool taken = false;
    if (viewToOwn) {
        const auto held =
            std::ranges::find_if(touchToView_, [&](const auto& entry) { return entry.second == viewToOwn; });
        if (held != touchToView_.end() && held->first != newTouch) {
            touchToView_.erase(held);
            taken = true;
        }
    }
    if (viewToOwn) {
        touchToView_[newTouch] = viewToOwn;
    } else {
        touchToView_.erase(newTouch);
    }
    return taken;
}

void ForwardingView::resetTrackedViews() {
    // An action may get here again.
    const auto held = std::exchange(touchToView_, {});
    const ui::ViewWatch watch(*this);
    for (const auto& [touch, view] : held) {
        if (watch.isAlive()) handleControl(view, ControlEvent::TouchCancel);
    }
}

ui::View* ForwardingView::viewOf(const ui::Touch* touch) const {
    const auto found = touchToView_.find(touch);
    return found == touchToView_.end() ? nullptr : found->second;
}

// A host that is told something by a key may take the whole keyboard away.
void ForwardingView::touchesBegan(ui::Touches touches) {
    const ui::ViewWatch watch(*this);
    for (const ui::Touch* const touch : touches) {
        if (!watch.isAlive()) return;
        ui::View* const view = findNearestView(touch->locationIn(*this));
        if (!view || ownView(touch, view)) continue;
        handleControl(view, ControlEvent::TouchDown);
        if (!watch.isAlive()) return;
        // A key that changed the page has let its touch go, and its view may be another key's by now.
        const bool isHeld = viewOf(touch) == view;
        if (isHeld && touch->tapCount() > 1) handleControl(view, ControlEvent::TouchDownRepeat);
    }
}

void ForwardingView::touchesMoved(ui::Touches touches) {
    const ui::ViewWatch watch(*this);
    for (const ui::Touch* const touch : touches) {
        if (!watch.isAlive()) return;
        ui::View* const oldView = viewOf(touch);
        ui::View* const newView = oldView ? findNearestView(touch->locationIn(*this)) : nullptr;
        if (!newView) continue;
        if (oldView == newView) {
            handleControl(oldView, ControlEvent::TouchDragInside);
            continue;
        }
        if (timerOn) {
            timer.invalidate();
            startTime.reset();
        }
        handleControl(oldView, ControlEvent::TouchDragExit);
        // The key that was left may have let the touch go, with all others.
        if (!watch.isAlive() || viewOf(touch) != oldView) continue;
        const bool taken = ownView(touch, newView);
        handleControl(newView, taken ? ControlEvent::TouchDragInside : ControlEvent::TouchDragEnter);
    }
}

void ForwardingView::touchesEnded(ui::Touches touches) {
    const ui::ViewWatch watch(*this);
    for (const ui::Touch* const touch : touches) {
        if (!watch.isAlive()) return;
        ui::View* const view = viewOf(touch);
        touchToView_.erase(touch);
        if (std::exchange(timerOn, false)) {
            endTimedPress(view);
        } else {
            endTouch(*touch, view);
        }
    }
}

void ForwardingView::endTouch(const ui::Touch& touch, ui::View* view) {
    const ui::Point position = touch.locationIn(*this);
    if (!bounds().contains(position)) {
        handleControl(view, ControlEvent::TouchCancel);
    } else if (auto* const key = dynamic_cast<KeyboardKey*>(view)) {
        key->touchedAtPosition = position;
        handleControl(key, ControlEvent::TouchUpInside);
    }
}

void ForwardingView::endTimedPress(ui::View* view) {
    timer.invalidate();
    const bool isTap = startTime && runLoop_.now() - *startTime < LONGEST_TAP;
    startTime.reset();
    const ui::ViewWatch watch(*this);
    if (isTap) notificationCenter_.post({"open Emoji Keyboard", {}});
    if (watch.isAlive()) handleControl(view, ControlEvent::TouchCancel);
}

void ForwardingView::touchesCancelled(ui::Touches touches) {
    const ui::ViewWatch watch(*this);
    for (const ui::Touch* const touch : touches) {
        if (!watch.isAlive()) return;
        ui::View* const view = viewOf(touch);
        touchToView_.erase(touch);
        handleControl(view, ControlEvent::TouchCancel);
    }
}

void ForwardingView::didMoveToWindow() {
    if (!window()) resetTrackedViews();
}

// The controller names its action otherwise: only a subclass that uses this name is known.
bool ForwardingView::isBackspaceButton(const ui::View* view) const {
    return hasActionNamed(view, ControlEvent::TouchDown, "backspaceDown:");
}

bool ForwardingView::isSpaceButton(const ui::View* view) const {
    return hasActionNamed(view, ControlEvent::TouchCancel, "spaceKeyIdentifierFunction");
}

double ForwardingView::getVelocity(ui::Point initialPoint, ui::Point finalPoint, double time) const {
    const double dx = initialPoint.x - finalPoint.x;
    const double dy = initialPoint.y - finalPoint.y;
    return (dx * dx + dy * dy) / time;
}

SwipeDirection ForwardingView::getDirectionWithHorizontal(ui::Point initialPoint,
                                                          ui::Point finalPoint) const {
    return initialPoint.x > finalPoint.x ? SwipeDirection::Left : SwipeDirection::Right;
}

int ForwardingView::getOffsetForVelocity(double velocity) const {
    const float steps = static_cast<float>(velocity) / VELOCITY_PER_CHARACTER;
    // Two samples of one moment give no number that an offset could be made of.
    if (!(steps < static_cast<float>(GREATEST_OFFSET))) return GREATEST_OFFSET;
    return std::min(static_cast<int>(steps) + 1, GREATEST_OFFSET);
}

void ForwardingView::performCursorMovement(double currentTime, ui::Point currentLoc) {
    if (previousTime && cachedLocation) {
        velocityArray.push_back(getVelocity(*cachedLocation, currentLoc, currentTime - *previousTime));
    }
    cachedLocation = currentLoc;
    previousTime = currentTime;
}

}  // namespace vorpel
