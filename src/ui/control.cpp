// SPDX-License-Identifier: Apache-2.0
#include "ui/control.h"

#include "ui/touch.h"

#include <algorithm>
#include <utility>

namespace vorpel::ui {

namespace {

// A finger that slid off by less than this still counts as on the control.
constexpr double FINGER_SLACK = 24;

}  // namespace

void Control::addTarget(const void* target, std::string_view name, ControlEvents events, Action action) {
    actions_.push_back(
        {nextNumber_++, target, name, events, std::make_shared<const Action>(std::move(action))});
}

void Control::removeTarget(const void* target) {
    std::erase_if(actions_, [&](const Entry& entry) { return entry.target == target; });
}

void Control::sendActions(ControlEvent event) {
    // What an action removes is not called any more, what it adds waits for the next event.
    ViewWatch watch(*this);
    const unsigned end = nextNumber_;
    for (unsigned next = 0; watch.isAlive();) {
        const auto found = std::ranges::find_if(actions_, [&](const Entry& entry) {
            return entry.number >= next && entry.number < end && entry.events.contains(event);
        });
        if (found == actions_.end()) return;
        next = found->number + 1;
        const auto action = found->action;
        (*action)(*this);
    }
}

bool Control::hasAction(ControlEvent event, std::string_view name) const {
    return std::ranges::any_of(
        actions_, [&](const Entry& entry) { return entry.events.contains(event) && entry.name == name; });
}

void Control::setEnabled(bool enabled) {
    if (std::exchange(enabled_, enabled) == enabled) return;
    stateChanged();
    if (!enabled && tracked_) stopTracking(ControlEvent::TouchCancel);
}

void Control::setHighlighted(bool highlighted) {
    if (std::exchange(highlighted_, highlighted) != highlighted) stateChanged();
}

void Control::setSelected(bool selected) {
    if (std::exchange(selected_, selected) != selected) stateChanged();
}

ControlState Control::state() const {
    if (!enabled_) return ControlState::Disabled;
    if (highlighted_) return ControlState::Highlighted;
    return selected_ ? ControlState::Selected : ControlState::Normal;
}

void Control::touchesBegan(Touches touches) {
    if (!enabled_ || tracked_) return;
    tracked_ = touches.front();
    trackedInside_ = true;
    setHighlighted(true);
    ViewWatch watch(*this);
    sendActions(ControlEvent::TouchDown);
    if (!watch.isAlive() || !tracked_) return;
    if (tracked_->tapCount() > 1) sendActions(ControlEvent::TouchDownRepeat);
}

void Control::touchesMoved(Touches touches) {
    if (std::ranges::find(touches, tracked_) == touches.end()) return;
    const bool inside = isNear(*tracked_);
    const bool wasInside = std::exchange(trackedInside_, inside);
    setHighlighted(inside);
    ViewWatch watch(*this);
    if (inside != wasInside) sendActions(inside ? ControlEvent::TouchDragEnter : ControlEvent::TouchDragExit);
    if (!watch.isAlive() || !tracked_) return;
    sendActions(inside ? ControlEvent::TouchDragInside : ControlEvent::TouchDragOutside);
}

void Control::touchesEnded(Touches touches) {
    if (std::ranges::find(touches, tracked_) == touches.end()) return;
    stopTracking(isNear(*tracked_) ? ControlEvent::TouchUpInside : ControlEvent::TouchUpOutside);
}

void Control::touchesCancelled(Touches touches) {
    if (std::ranges::find(touches, tracked_) == touches.end()) return;
    stopTracking(ControlEvent::TouchCancel);
}

void Control::stopTracking(ControlEvent last) {
    tracked_ = nullptr;
    setHighlighted(false);
    ViewWatch watch(*this);
    if (last == ControlEvent::TouchUpInside) tapped();
    if (watch.isAlive()) sendActions(last);
}

void Control::didMoveToWindow() {
    if (window()) return;
    // The rest of the touch will not be told here.
    tracked_ = nullptr;
    setHighlighted(false);
}

bool Control::isNear(const Touch& touch) const {
    return bounds().insetBy(-FINGER_SLACK, -FINGER_SLACK).contains(touch.locationIn(*this));
}

bool isInControl(const View* view) {
    for (; view; view = view->superview()) {
        if (dynamic_cast<const Control*>(view)) return true;
    }
    return false;
}

}  // namespace vorpel::ui
