// SPDX-License-Identifier: Apache-2.0
#include "ui/window.h"

#include "ui/gesture_recognizer.h"
#include "ui/painter.h"
#include "ui/view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorpel::ui {

namespace {

// A tap counts with the one before when it comes down this soon after it, and this near to it.
constexpr double MULTIPLE_TAP_SECONDS = 0.35;
constexpr double MULTIPLE_TAP_DISTANCE = 22;

// Beyond so many rectangles one around them all is painted sooner than each of them.
constexpr std::size_t MOST_DAMAGED_RECTS = 8;

// Laying out one view may ask for another's layout again; a view that always asks must not hold up the frame.
constexpr int MOST_LAYOUT_PASSES = 4;

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
    damageHandler_ = nullptr;
    setRoot(nullptr);
}

void Window::setRoot(View* root) {
    cancelAllTouches();
    if (root_) {
        damageAll();
        root_->window_ = nullptr;
        root_->tellMovedToWindow();
    }
    root_ = root;
    if (!root_) return;
    root_->window_ = this;
    root_->tellMovedToWindow();
    damageAll();
    requestLayout();
}

void Window::touchDown(int finger, Point point) {
    touchCancelled(finger);
    if (!root_) return;
    const auto touch = std::make_shared<Touch>();
    touch->finger_ = finger;
    touch->location_ = touch->previousLocation_ = point;
    touch->timestamp_ = runLoop_.now();
    touch->tapCount_ = lastTapCount_ = countTaps(point);
    lastDownTime_ = touch->timestamp_;
    lastDownPoint_ = point;
    touch->view_ = touch->receiver_ = root_->hitTest(point - root_->frame().origin());
    if (!touch->view_) return;
    for (const View* view = touch->view_; view; view = view->superview()) {
        touch->recognizers_.insert(touch->recognizers_.end(), view->recognizers_.begin(),
                                   view->recognizers_.end());
    }
    touches_.push_back(touch);
    deliver(*touch, Phase::Began);
}

void Window::touchMoved(int finger, Point point) {
    const SharedTouch touch = findTouch(finger);
    if (!touch || touch->location_ == point) return;
    touch->previousLocation_ = touch->location_;
    touch->location_ = point;
    touch->timestamp_ = runLoop_.now();
    deliver(*touch, Phase::Moved);
}

void Window::touchUp(int finger, Point point) {
    const SharedTouch touch = findTouch(finger);
    if (!touch) return;
    touch->previousLocation_ = touch->location_;
    touch->location_ = point;
    touch->timestamp_ = runLoop_.now();
    finish(touch, Phase::Ended);
}

void Window::touchCancelled(int finger) {
    if (const SharedTouch touch = findTouch(finger)) finish(touch, Phase::Cancelled);
}

void Window::cancelAllTouches() {
    // Anew from the front each time: those who are told may begin and end touches.
    const auto isDown = [](const SharedTouch& touch) { return !touch->ended_; };
    for (auto found = std::ranges::find_if(touches_, isDown); found != touches_.end();
         found = std::ranges::find_if(touches_, isDown)) {
        finish(SharedTouch(*found), Phase::Cancelled);
    }
}

std::size_t Window::touchCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(touches_, [](const SharedTouch& touch) { return !touch->ended_; }));
}

void Window::deliver(Touch& touch, Phase phase) {
    const bool ended = touch.ended_;
    for (std::size_t i = 0; i < touch.recognizers_.size(); ++i) {
        GestureRecognizer* const recognizer = touch.recognizers_[i];
        if (!recognizer) continue;
        if (phase == Phase::Began) recognizer->touchBegan(touch);
        if (phase == Phase::Moved) recognizer->touchMoved(touch);
        if (phase == Phase::Ended) recognizer->touchEnded(touch);
        if (phase == Phase::Cancelled) recognizer->touchCancelled(touch);
        // What the recognizer set off may have cancelled it, and all know.
        if (touch.ended_ != ended) return;
    }
    View* const receiver = touch.receiver_;
    if (!receiver) return;
    touch.told_ = true;
    Touch* const only = &touch;
    if (phase == Phase::Began) receiver->touchesBegan({&only, 1});
    if (phase == Phase::Moved) receiver->touchesMoved({&only, 1});
    if (phase == Phase::Ended) receiver->touchesEnded({&only, 1});
    if (phase == Phase::Cancelled) receiver->touchesCancelled({&only, 1});
}

void Window::finish(const SharedTouch& touch, Phase phase) {
    touch->ended_ = true;
    deliver(*touch, phase);
    std::erase(touches_, touch);
}

void Window::takeTouch(Touch& touch, GestureRecognizer& taker,
                       const std::function<bool(const GestureRecognizer&)>& loses) {
    View* const receiver = std::exchange(touch.receiver_, nullptr);
    for (std::size_t i = 0; i < touch.recognizers_.size(); ++i) {
        GestureRecognizer* const other = touch.recognizers_[i];
        if (!other || other == &taker || !loses(*other)) continue;
        touch.recognizers_[i] = nullptr;
        other->touchCancelled(touch);
    }
    if (!receiver || !touch.told_) return;
    Touch* const only = &touch;
    receiver->touchesCancelled({&only, 1});
}

void Window::layoutIfNeeded() {
    layingOut_ = true;
    for (int pass = 0; root_ && needsLayout_ && pass < MOST_LAYOUT_PASSES; ++pass) {
        needsLayout_ = false;
        root_->layoutIfNeeded();
    }
    layingOut_ = false;
}

void Window::paint(Painter& painter) {
    if (!needsPaint()) return;
    painter_ = &painter;
    layoutIfNeeded();
    needsLayout_ = false;
    // A view that asks to be painted while it is painted waits for the next frame.
    painting_.swap(damage_);
    const Point origin = root_ ? root_->frame().origin() : Point{};
    for (const Rect& rect : painting_) {
        painter.save();
        const Rect repainted = painter.beginRepaint(rect);
        painter.translate(origin);
        if (root_) root_->paintTree(painter, repainted.offsetBy({-origin.x, -origin.y}));
        painter.restore();
    }
    painting_.clear();
    painter_ = nullptr;
}

void Window::damageAll() {
    if (root_) root_->damageWhole();
}

void Window::addDamage(const Rect& rect) {
    if (rect.isEmpty()) return;
    const bool due = needsPaint();
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
    damage_.push_back(merged);
    if (!due) askForFrame();
}

void Window::requestLayout() {
    const bool due = needsPaint();
    needsLayout_ = true;
    if (!due) askForFrame();
}

void Window::askForFrame() {
    // What comes up while laying out belongs to the frame that was asked for.
    if (damageHandler_ && !layingOut_) damageHandler_();
}

void Window::rootDestroyed(const View& root) {
    viewLeft(root, nullptr);
    root_ = nullptr;
}

void Window::viewLeft(const View& view, View* parent) {
    for (std::size_t i = 0; i < touches_.size(); ++i) {
        const SharedTouch touch = touches_[i];
        if (isInside(touch->view_, view)) touch->view_ = nullptr;
        if (isInside(touch->receiver_, view)) touch->receiver_ = parent;
        for (GestureRecognizer*& held : touch->recognizers_) {
            if (!held || !isInside(held->view(), view)) continue;
            std::exchange(held, nullptr)->reset();
        }
    }
}

void Window::recognizerLeft(const GestureRecognizer& recognizer) {
    for (const SharedTouch& touch : touches_) std::ranges::replace(touch->recognizers_, &recognizer, nullptr);
}

Window::SharedTouch Window::findTouch(int finger) const {
    const auto found = std::ranges::find_if(
        touches_, [&](const SharedTouch& touch) { return touch->finger_ == finger && !touch->ended_; });
    return found == touches_.end() ? nullptr : *found;
}

int Window::countTaps(Point point) const {
    const double distance = std::hypot(point.x - lastDownPoint_.x, point.y - lastDownPoint_.y);
    const bool follows = lastTapCount_ > 0 && runLoop_.now() - lastDownTime_ <= MULTIPLE_TAP_SECONDS &&
                         distance <= MULTIPLE_TAP_DISTANCE;
    return follows ? lastTapCount_ + 1 : 1;
}

}  // namespace vorpel::ui
