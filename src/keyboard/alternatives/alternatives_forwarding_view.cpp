// SPDX-License-Identifier: Apache-2.0
#include "keyboard/alternatives/alternatives_forwarding_view.h"

namespace vorpel {

using ui::ControlEvent;

AlternativesForwardingView::AlternativesForwardingView(platform::RunLoop& runLoop,
                                                       platform::NotificationCenter& notificationCenter,
                                                       AlternativesSource& source)
    : ForwardingView(runLoop, notificationCenter), runLoop_(runLoop), source_(source) {}

void AlternativesForwardingView::touchesBegan(ui::Touches touches) {
    const ui::ViewWatch watch(*this);
    ForwardingView::touchesBegan(touches);
    if (watch.isAlive() && !row()) beginHold(touches.back());
}

void AlternativesForwardingView::touchesMoved(ui::Touches touches) {
    const ui::ViewWatch watch(*this);
    for (ui::Touch* const touch : touches) {
        if (!watch.isAlive()) return;
        if (row() && isHolding(touch)) {
            row_.slideTo(touch->locationIn(*row_.superview()));
            continue;
        }
        ForwardingView::touchesMoved({&touch, 1});
        // A finger that has rolled on to another key begins to rest there.
        if (watch.isAlive() && isHolding(touch) && viewOf(touch) != hold_->key) beginHold(touch);
    }
}

void AlternativesForwardingView::touchesEnded(ui::Touches touches) {
    const ui::ViewWatch watch(*this);
    for (ui::Touch* const touch : touches) {
        if (!watch.isAlive()) return;
        if (row() && isHolding(touch)) {
            leaveRow(*touch);
            continue;
        }
        if (isHolding(touch)) endHold();
        ForwardingView::touchesEnded({&touch, 1});
    }
}

void AlternativesForwardingView::touchesCancelled(ui::Touches touches) {
    for (const ui::Touch* const touch : touches) {
        if (isHolding(touch)) endHold();
    }
    ForwardingView::touchesCancelled(touches);
}

bool AlternativesForwardingView::ownView(const ui::Touch* newTouch, ui::View* viewToOwn) {
    if (hold_ && viewToOwn == hold_->key && newTouch != hold_->touch) endHold();
    return ForwardingView::ownView(newTouch, viewToOwn);
}

void AlternativesForwardingView::resetTrackedViews() {
    endHold();
    ForwardingView::resetTrackedViews();
}

void AlternativesForwardingView::beginHold(const ui::Touch* touch) {
    endHold();
    auto* const key = dynamic_cast<KeyboardKey*>(viewOf(touch));
    if (!key) return;
    hold_ = {touch, key, {}};
    holdTimer_ = runLoop_.scheduledTimer(HOLD, false, [this] { openRow(); });
}

void AlternativesForwardingView::endHold() {
    holdTimer_.invalidate();
    hold_.reset();
    row_.removeFromSuperview();
}

void AlternativesForwardingView::openRow() {
    if (!fillRow()) return;
    hold_->openedAt = hold_->touch->locationIn(*this);
    row_.start(hold_->touch->locationIn(*row_.superview()));
    hold_->key->hidePopup();
}

/// @return whether there is something to show
bool AlternativesForwardingView::fillRow() {
    const auto offer = source_.offerOf(*hold_->key);
    if (!offer) return false;
    const KeyboardKey& key = *hold_->key;
    const ui::Point origin = offer->layer.convertFromWindow(key.convertToWindow({0, 0}));
    row_.setContent(offer->texts, offer->look, {origin.x, origin.y, key.frame().width, key.frame().height},
                    offer->layer.bounds());
    if (!row()) offer->layer.addSubview(row_);
    return true;
}

void AlternativesForwardingView::offerChanged() {
    if (row() && !fillRow()) endHold();
}

/// The key's own letter is typed as by a short press, with the place where it was pressed: the finger may
/// have slid along the row and back.
void AlternativesForwardingView::leaveRow(const ui::Touch& touch) {
    row_.slideTo(touch.locationIn(*row_.superview()));
    const auto chosen = row_.chosen();
    const std::string text = chosen ? row_.texts()[*chosen] : "";
    const Hold held = *hold_;
    endHold();
    ownView(&touch, nullptr);
    if (chosen == 0) {
        held.key->touchedAtPosition = held.openedAt;
        handleControl(held.key, ControlEvent::TouchUpInside);
        return;
    }
    const ui::ViewWatch watch(*this);
    handleControl(held.key, ControlEvent::TouchCancel);
    if (chosen && watch.isAlive()) source_.enterAlternative(text);
}

}  // namespace vorpel
