// SPDX-License-Identifier: Apache-2.0
#include "ui/view.h"

#include "ui/gesture_recognizer.h"
#include "ui/painter.h"
#include "ui/window.h"

#include <algorithm>
#include <utility>

namespace vorpel::ui {

View::~View() {
    for (ViewWatch* watch = watches_; watch; watch = watch->next_) watch->view_ = nullptr;
    removeFromSuperview();
    if (window_) {
        damageWhole();
        std::exchange(window_, nullptr)->rootDestroyed(*this);
        tellMovedToWindow();
    }
    for (View* const view : subviews_) view->superview_ = nullptr;
    for (GestureRecognizer* const recognizer : recognizers_) recognizer->view_ = nullptr;
}

void View::setFrame(const Rect& frame) {
    if (frame == frame_) return;
    damageWhole();
    const bool resized = frame.size() != frame_.size();
    frame_ = frame;
    if (resized) setNeedsLayout();
    damageWhole();
}

void View::setHidden(bool hidden) {
    if (hidden == hidden_) return;
    damageWhole();
    hidden_ = hidden;
    if (!hidden) requestLayout();
    damageWhole();
}

void View::setAlpha(double alpha) {
    if (alpha == alpha_) return;
    damageWhole();
    alpha_ = alpha;
    damageWhole();
}

void View::setBackgroundColor(const Color& color) {
    if (color == backgroundColor_) return;
    backgroundColor_ = color;
    setNeedsDisplay(bounds());
}

void View::setClipsToBounds(bool clips) {
    if (clips == clipsToBounds_) return;
    damageWhole();
    clipsToBounds_ = clips;
    damageWhole();
}

void View::addSubview(View& view) {
    insertSubview(view, subviews_.size());
}

void View::insertSubview(View& view, std::size_t index) {
    view.removeFromSuperview();
    view.superview_ = this;
    subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(std::min(index, subviews_.size())),
                     &view);
    view.damageWhole();
    view.requestLayout();
    view.tellMovedToWindow();
}

void View::bringSubviewToFront(View& view) {
    const auto found = std::ranges::find(subviews_, &view);
    if (found == subviews_.end() || found + 1 == subviews_.end()) return;
    std::rotate(found, found + 1, subviews_.end());
    view.damageWhole();
}

void View::removeFromSuperview() {
    if (!superview_) return;
    damageWhole();
    Window* const left = window();
    View* const parent = std::exchange(superview_, nullptr);
    std::erase(parent->subviews_, this);
    if (left) left->viewLeft(*this, parent);
    tellMovedToWindow();
}

Window* View::window() const {
    const View* top = this;
    while (top->superview_) top = top->superview_;
    return top->window_;
}

Point View::convertToWindow(Point point) const {
    for (const View* view = this; view; view = view->superview_) point = point + view->frame_.origin();
    return point;
}

Point View::convertFromWindow(Point point) const {
    return point - convertToWindow({0, 0});
}

View* View::hitTest(Point point) {
    if (hidden_ || alpha_ <= 0 || !userInteractionEnabled_ || !bounds().contains(point)) return nullptr;
    for (auto view = subviews_.rbegin(); view != subviews_.rend(); ++view) {
        if (View* const hit = (*view)->hitTest(point - (*view)->frame_.origin())) return hit;
    }
    return this;
}

void View::draw(Painter& painter) {
    if (!backgroundColor_.isClear()) painter.fill(bounds(), backgroundColor_);
}

void View::setNeedsLayout() {
    needsLayout_ = true;
    requestLayout();
}

void View::requestLayout() {
    if (Window* const shown = window()) shown->requestLayout();
}

void View::layoutIfNeeded() {
    // Laying out asks who knows what is to be shown, and may bring in views and take away any, this one too.
    const ViewWatch watch(*this);
    if (needsLayout_) {
        needsLayout_ = false;
        layoutSubviews();
    }
    for (std::size_t i = 0; watch.isAlive() && i < subviews_.size(); ++i) {
        if (!subviews_[i]->hidden_) subviews_[i]->layoutIfNeeded();
    }
}

void View::setNeedsDisplay(const Rect& rect) {
    Rect damaged = rect;
    const View* view = this;
    for (;; view = view->superview_) {
        if (view->hidden_ || view->alpha_ <= 0 || damaged.isEmpty()) return;
        if (view->clipsToBounds_) damaged = damaged.intersection(view->bounds());
        damaged = damaged.offsetBy(view->frame_.origin());
        if (!view->superview_) break;
    }
    if (view->window_) view->window_->addDamage(damaged);
}

void View::damageWhole() {
    setNeedsDisplay(drawnRect());
    // What a view lets out of its bounds is damaged on its own.
    if (clipsToBounds_ || hidden_) return;
    for (View* const view : subviews_) view->damageWhole();
}

Rect View::drawnRect() const {
    const EdgeInsets now = drawingOutsets();
    const EdgeInsets& before = paintedOutsets_;
    const double left = std::max(now.left, before.left);
    const double top = std::max(now.top, before.top);
    return {-left, -top, frame_.width + left + std::max(now.right, before.right),
            frame_.height + top + std::max(now.bottom, before.bottom)};
}

void View::tellMovedToWindow() {
    didMoveToWindow();
    for (std::size_t i = 0; i < subviews_.size(); ++i) subviews_[i]->tellMovedToWindow();
}

void View::touchesBegan(Touches touches) {
    if (superview_) superview_->touchesBegan(touches);
}

void View::touchesMoved(Touches touches) {
    if (superview_) superview_->touchesMoved(touches);
}

void View::touchesEnded(Touches touches) {
    if (superview_) superview_->touchesEnded(touches);
}

void View::touchesCancelled(Touches touches) {
    if (superview_) superview_->touchesCancelled(touches);
}

void View::paintTree(Painter& painter, const Rect& damaged) {
    if (hidden_ || alpha_ <= 0) return;
    const Rect damage = clipsToBounds_ ? damaged.intersection(bounds()) : damaged;
    if (damage.isEmpty()) return;
    painter.save();
    if (clipsToBounds_) painter.clip(bounds());
    if (alpha_ < 1) painter.beginLayer();
    if (drawnRect().intersects(damage)) {
        paintedOutsets_ = drawingOutsets();
        draw(painter);
    }
    for (View* const view : subviews_) {
        const Point origin = view->frame_.origin();
        painter.save();
        painter.translate(origin);
        view->paintTree(painter, damage.offsetBy({-origin.x, -origin.y}));
        painter.restore();
    }
    if (alpha_ < 1) painter.endLayer(alpha_);
    painter.restore();
}

}  // namespace vorpel::ui
