// SPDX-License-Identifier: Apache-2.0
#include "ui/view.h"

#include "ui/painter.h"
#include "ui/window.h"

#include <algorithm>

namespace vorpel::ui {

View::~View() {
    removeFromSuperview();
    if (window_) window_->rootDestroyed();
    for (View* const view : subviews_) view->superview_ = nullptr;
}

void View::setFrame(const Rect& frame) {
    if (frame == frame_) return;
    damageWhole();
    if (frame.size() != frame_.size()) needsLayout_ = true;
    frame_ = frame;
    damageWhole();
}

void View::setHidden(bool hidden) {
    if (hidden == hidden_) return;
    damageWhole();
    hidden_ = hidden;
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
    setNeedsDisplay();
}

void View::setClipsToBounds(bool clips) {
    clipsToBounds_ = clips;
    damageWhole();
}

void View::addSubview(View& view) {
    view.removeFromSuperview();
    insertSubview(view, subviews_.size());
}

void View::insertSubview(View& view, std::size_t index) {
    view.removeFromSuperview();
    view.superview_ = this;
    subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(std::min(index, subviews_.size())),
                     &view);
    view.damageWhole();
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
    std::erase(superview_->subviews_, this);
    Window* const left = window();
    superview_ = nullptr;
    if (left) left->viewLeft(*this);
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
    setNeedsDisplay();
}

void View::layoutIfNeeded() {
    if (needsLayout_) {
        needsLayout_ = false;
        layoutSubviews();
    }
    for (View* const view : subviews_) {
        if (!view->hidden_) view->layoutIfNeeded();
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
    const EdgeInsets out = drawingOutsets();
    return {-out.left, -out.top, frame_.width + out.left + out.right, frame_.height + out.top + out.bottom};
}

void View::tellMovedToWindow() {
    didMoveToWindow();
    for (View* const view : subviews_) view->tellMovedToWindow();
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

void View::paintTree(Painter& painter, const Rect& damage) {
    if (hidden_ || alpha_ <= 0) return;
    painter.save();
    if (clipsToBounds_) painter.clip(bounds());
    if (alpha_ < 1) painter.beginLayer();
    if (drawnRect().intersects(damage)) draw(painter);
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
