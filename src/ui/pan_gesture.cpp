// SPDX-License-Identifier: Apache-2.0
#include "ui/pan_gesture.h"

#include "ui/touch.h"
#include "ui/view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorpel::ui {

namespace {

// The hand's speed at the end counts, not that of the whole way.
constexpr double VELOCITY_SECONDS = 0.1;

}  // namespace

void PanGesture::touchBegan(Touch& touch) {
    if (tracked_) return;
    tracked_ = &touch;
    start_ = touch.locationInWindow();
    samples_.clear();
    addSample(touch);
    if (handler_.panTouched()) hold(touch);
}

bool PanGesture::isGoingOurWay(Point moved) const {
    return std::hypot(moved.x, moved.y) > SLOP && handler_.panShouldBegin(moved);
}

void PanGesture::touchMoved(Touch& touch) {
    if (&touch != tracked_) return;
    addSample(touch);
    const Point moved = touch.locationInWindow() - start_;
    if (!panning_) {
        if (isGoingOurWay(moved)) begin(touch);
        return;
    }
    if (held_ && isGoingOurWay(moved)) {
        held_ = false;
        const ViewWatch watch(*view());
        claim(touch);
        if (!watch.isAlive() || !panning_) return;
    }
    handler_.panMoved(moved);
}

void PanGesture::touchEnded(Touch& touch) {
    if (&touch != tracked_) return;
    addSample(touch);
    tracked_ = nullptr;
    held_ = false;
    if (std::exchange(panning_, false)) handler_.panEnded(velocity());
}

void PanGesture::touchCancelled(Touch& touch) {
    if (&touch == tracked_) reset();
}

void PanGesture::reset() {
    tracked_ = nullptr;
    held_ = false;
    if (std::exchange(panning_, false)) handler_.panEnded({});
}

void PanGesture::begin(Touch& touch) {
    // From here, so that the content does not leap by the slop.
    start_ = touch.locationInWindow();
    // Those who lose the touch may take the view out of the tree, or destroy it and this with it.
    ViewWatch watch(*view());
    claim(touch);
    if (!watch.isAlive() || tracked_ != &touch) return;
    panning_ = true;
    handler_.panBegan();
}

void PanGesture::hold(Touch& touch) {
    ViewWatch watch(*view());
    GestureRecognizer::hold(touch);
    if (!watch.isAlive() || tracked_ != &touch) return;
    panning_ = held_ = true;
    handler_.panBegan();
}

void PanGesture::addSample(const Touch& touch) {
    const double now = touch.timestamp();
    const auto isOld = [&](const Sample& sample) { return sample.time < now - VELOCITY_SECONDS; };
    std::erase_if(samples_, isOld);
    samples_.push_back({now, touch.locationInWindow()});
}

Point PanGesture::velocity() const {
    const Sample& first = samples_.front();
    const Sample& last = samples_.back();
    const double seconds = last.time - first.time;
    if (!(seconds > 0)) return {};
    const Point moved = last.location - first.location;
    return {moved.x / seconds, moved.y / seconds};
}

}  // namespace vorpel::ui
