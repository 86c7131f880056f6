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
    actions_.push_back({target, name, events, std::move(action)});
}

void Control::removeTarget(const void* target) {
    std::erase_if(actions_, [&](const Entry& entry) { return entry.target == target; });
}

void Control::sendActions(ControlEvent event) {
    // An action may add and remove targets. What it removed is not called, what it added waits for the next
    // event.
    const std::size_t count = actions_.size();
    for (std::size_t i = 0; i < count && i < actions_.size(); ++i) {
        if (!actions_[i].events.contains(event)) continue;
        const Action action = actions_[i].action;
        action(*this);
    }
}

bool Control::hasAction(ControlEvent event, std::string_view name) const {
    return std::ranges::any_of(
        actions_, [&](const Entry& entry) { return entry.events.contains(event) && entry.name == name; });
}

void Control::setEnabled(bool enabled) {
    if (std::exchange(enabled_, enabled) != enabled) stateChanged();
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
    sendActions(ControlEvent::TouchDown);
    if (tracked_ && tracked_->tapCount() > 1) sendActions(ControlEvent::TouchDownRepeat);
}

void Control::touchesMoved(Touches touches) {
    if (std::ranges::find(touches, tracked_) == touches.end()) return;
    const bool inside = isNear(*tracked_);
    const bool wasInside = std::exchange(trackedInside_, inside);
    setHighlighted(inside);
    if (inside != wasInside) sendActions(inside ? ControlEvent::TouchDragEnter : ControlEvent::TouchDragExit);
    sendActions(inside ? ControlEvent::TouchDragInside : ControlEvent::TouchDragOutside);
}

void Control::touchesEnded(Touches touches) {
    if (std::ranges::find(touches, tracked_) == touches.end()) return;
    const bool inside = isNear(*tracked_);
    tracked_ = nullptr;
    setHighlighted(false);
    sendActions(inside ? ControlEvent::TouchUpInside : ControlEvent::TouchUpOutside);
}

void Control::touchesCancelled(Touches touches) {
    if (std::ranges::find(touches, tracked_) == touches.end()) return;
    tracked_ = nullptr;
    setHighlighted(false);
    sendActions(ControlEvent::TouchCancel);
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

}  // namespace vorpel::ui
