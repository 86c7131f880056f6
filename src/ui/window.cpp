// SPDX-License-Identifier: Apache-2.0
#include "ui/window.h"

#include "ui/painter.h"
#include "ui/view.h"

#include <algorithm>
#include <cmath>

namespace vorpel::ui {

namespace {

// A tap counts with the one before when it comes down this soon after it, and this near to it.
constexpr double MULTIPLE_TAP_SECONDS = 0.35;
constexpr double MULTIPLE_TAP_DISTANCE = 22;

// Beyond so many rectangles one around them all is painted sooner than each of them.
constexpr std::size_t MOST_DAMAGED_RECTS = 8;

bool isInside(const View* view, const View& tree) {
    for (; view; view = view->superview()) {
        if (view == &tree) return true;
    }
    return false;
}

}  // namespace

Point Touch::locationIn(const View& view) const {
    return view.convertFromWindow(location_);
}

Point Touch::previousLocationIn(const View& view) const {
    return view.convertFromWindow(previousLocation_);
}

Window::~Window() {
    setRoot(nullptr);
}

void Window::setRoot(View* root) {
    cancelAllTouches();
    if (root_) {
        root_->window_ = nullptr;
        root_->tellMovedToWindow();
    }
    root_ = root;
    if (!root_) return;
    root_->window_ = this;
    root_->tellMovedToWindow();
    damageAll();
}

void Window::touchDown(int finger, Point point) {
    if (!root_) return;
    touchCancelled(finger);
    auto touch = std::make_unique<Touch>();
    touch->finger_ = finger;
    touch->location_ = touch->previousLocation_ = point;
    touch->timestamp_ = runLoop_.now();
    touch->tapCount_ = lastTapCount_ = countTaps(point);
    lastDownTime_ = touch->timestamp_;
    lastDownPoint_ = point;
    touch->view_ = root_->hitTest(point - root_->frame().origin());
    if (!touch->view_) return;
    Touch* const began = touches_.emplace_back(std::move(touch)).get();
    began->view_->touchesBegan({&began, 1});
}

void Window::touchMoved(int finger, Point point) {
    Touch* touch = findTouch(finger);
    if (!touch || touch->location_ == point) return;
    touch->previousLocation_ = touch->location_;
    touch->location_ = point;
    touch->timestamp_ = runLoop_.now();
    if (touch->view_) touch->view_->touchesMoved({&touch, 1});
}

void Window::touchUp(int finger, Point point) {
    Touch* touch = findTouch(finger);
    if (!touch) return;
    // The end of a touch is no move: it ends where it was, wherever the finger is lifted.
    touch->previousLocation_ = touch->location_;
    touch->location_ = point;
    touch->timestamp_ = runLoop_.now();
    if (touch->view_) touch->view_->touchesEnded({&touch, 1});
    removeTouch(touch);
}

void Window::touchCancelled(int finger) {
    Touch* touch = findTouch(finger);
    if (!touch) return;
    if (touch->view_) touch->view_->touchesCancelled({&touch, 1});
    removeTouch(touch);
}

void Window::cancelAllTouches() {
    while (!touches_.empty()) touchCancelled(touches_.back()->finger_);
}

void Window::paint(Painter& painter) {
    if (!root_) return;
    root_->layoutIfNeeded();
    if (damage_.empty()) return;
    const Point origin = root_->frame().origin();
    for (const Rect& rect : damage_) {
        painter.save();
        const Rect repainted = painter.beginRepaint(rect);
        painter.translate(origin);
        root_->paintTree(painter, repainted.offsetBy({-origin.x, -origin.y}));
        painter.restore();
    }
    damage_.clear();
}

void Window::damageAll() {
    if (root_) addDamage(root_->frame());
}

void Window::addDamage(const Rect& rect) {
    if (rect.isEmpty()) return;
    Rect merged = rect;
    // Rectangles that meet are painted as one, so that nothing is painted twice.
    for (std::size_t i = 0; i < damage_.size();) {
        if (!damage_[i].intersects(merged) && damage_.size() < MOST_DAMAGED_RECTS) {
            ++i;
            continue;
        }
        merged = merged.unionWith(damage_[i]);
        damage_.erase(damage_.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0;
    }
    const bool first = damage_.empty();
    damage_.push_back(merged);
    if (first && damageHandler_) damageHandler_();
}

void Window::viewLeft(const View& view) {
    for (const auto& touch : touches_) {
        if (isInside(touch->view_, view)) touch->view_ = nullptr;
    }
}

Touch* Window::findTouch(int finger) {
    const auto found = std::ranges::find(touches_, finger, [](const auto& touch) { return touch->finger_; });
    return found == touches_.end() ? nullptr : found->get();
}

void Window::removeTouch(Touch* touch) {
    std::erase_if(touches_, [&](const auto& held) { return held.get() == touch; });
}

int Window::countTaps(Point point) const {
    const double distance = std::hypot(point.x - lastDownPoint_.x, point.y - lastDownPoint_.y);
    const bool follows = lastTapCount_ > 0 && runLoop_.now() - lastDownTime_ <= MULTIPLE_TAP_SECONDS &&
                         distance <= MULTIPLE_TAP_DISTANCE;
    return follows ? lastTapCount_ + 1 : 1;
}

}  // namespace vorpel::ui
