// SPDX-License-Identifier: Apache-2.0
// How a paged scroll view moves, and what it tells of that.
#include "ui/paged_scroll_view.h"
#include "ui/window.h"

#include <cmath>

namespace vorpel::ui {

namespace {

constexpr double CHANGE_SECONDS = 0.3;

// Lengths that do not divide evenly leave an offset this near to the whole one that is meant.
constexpr double OFFSET_SLACK = 1e-6;

// A delegate that goes on to another item each time it is told of one is left alone after so many.
constexpr int MOST_CHANGES_TOLD = 4;

double snapped(double offset) {
    const double whole = std::round(offset);
    return std::abs(offset - whole) < OFFSET_SLACK ? whole : offset;
}

}  // namespace

void PagedScrollView::setScrollOffset(double offset) {
    travel_.cancel();
    moveTo(offset);
}

void PagedScrollView::setCurrentItemIndex(int index) {
    scrollToItemAtIndex(index, animatesChanges_ ? CHANGE_SECONDS : 0);
}

void PagedScrollView::setCurrentPage(int page) {
    scrollToPage(page, animatesChanges_ ? CHANGE_SECONDS : 0);
}

void PagedScrollView::scrollByOffset(double offset, double duration) {
    const double start = scrollOffset();
    const double end = isEndless() ? start + offset : reachable(start + offset);
    if (!(duration > 0)) return setScrollOffset(end);
    if (!window() || window()->actionsDisabled()) {
        const ViewWatch watch(*this);
        setScrollOffset(end);
        if (watch.isAlive()) arrived();
        return;
    }
    travelEnd_ = end;
    const auto step = [this, start, end](double progress) { moveTo(start + (end - start) * progress); };
    travel_ = animate(window()->runLoop(), duration, AnimationCurve::EaseInOut, step, [this] { arrived(); });
}

void PagedScrollView::scrollToOffset(double offset, double duration) {
    scrollByOffset(strip_.minScrollDistanceFromOffset(scrollOffset(), offset), duration);
}

void PagedScrollView::scrollByNumberOfItems(int count, double duration) {
    const double offset = scrollOffset();
    double from = std::round(offset);
    if (duration > 0 && count > 0) from = std::floor(offset);
    if (duration > 0 && count < 0) from = std::ceil(offset);
    scrollByOffset(from + count - offset, duration);
}

void PagedScrollView::scrollToItemAtIndex(int index, double duration) {
    scrollToOffset(index, duration);
}

void PagedScrollView::scrollToPage(int page, double duration) {
    scrollToOffset(strip_.offsetOfPage(page), duration);
}

void PagedScrollView::moveTo(double offset) {
    const double before = scrollOffset();
    const double target = snapped(reachable(offset));
    if (!isEndless()) {
        position_ = target;
    } else if (isDragging()) {
        // The finger's way is counted from where it came down: that round goes on.
        position_ += strip_.minScrollDistanceFromOffset(before, target);
    } else {
        position_ = strip_.pageStartAt(target);
    }
    if (itemLength() > 0) applyPosition();
    if (scrollOffset() != before) return didScroll();
    layOutItemViews();
}

void PagedScrollView::didScroll() {
    layOutItemViews();
    const ViewWatch watch(*this);
    if (delegate_ && !tellingScroll_) {
        tellingScroll_ = true;
        delegate_->pagedScrollViewDidScroll(*this);
        if (!watch.isAlive()) return;
        tellingScroll_ = false;
    }
    loadIfDue();
    if (watch.isAlive()) tellCurrentItem();
}

void PagedScrollView::tellCurrentItem() {
    if (tellingItem_) return;
    const ViewWatch watch(*this);
    for (int told = 0; told < MOST_CHANGES_TOLD && currentItemIndex() != previousItemIndex_; ++told) {
        previousItemIndex_ = currentItemIndex();
        if (!delegate_) return;
        tellingItem_ = true;
        delegate_->pagedScrollViewCurrentItemIndexDidChange(*this);
        if (!watch.isAlive()) return;
        tellingItem_ = false;
    }
}

void PagedScrollView::arrived() {
    if (!delegate_ || tellingArrival_) return;
    const ViewWatch watch(*this);
    tellingArrival_ = true;
    delegate_->pagedScrollViewDidEndScrollingAnimation(*this);
    if (watch.isAlive()) tellingArrival_ = false;
}

void PagedScrollView::scrollViewDidScroll(ScrollView&) {
    if (suppressScrollEvent_ || !(itemLength() > 0)) return;
    const Point offset = scroll_.contentOffset();
    position_ = snapped((vertical_ ? offset.y : offset.x) / itemLength());
    didScroll();
}

void PagedScrollView::scrollViewWillBeginDragging(ScrollView&) {
    travel_.cancel();
    if (delegate_) delegate_->pagedScrollViewWillBeginDragging(*this);
}

void PagedScrollView::scrollViewDidEndDragging(ScrollView&, bool willDecelerate) {
    // Taken out of the window under the finger, it would stay between two pages.
    if (!window() && paging_) comeToRest(strip_.nearestPageStart(position_));
    if (delegate_) delegate_->pagedScrollViewDidEndDragging(*this, willDecelerate);
}

void PagedScrollView::scrollViewWillBeginDecelerating(ScrollView&) {
    if (delegate_) delegate_->pagedScrollViewWillBeginDecelerating(*this);
}

void PagedScrollView::scrollViewDidEndDecelerating(ScrollView&) {
    if (delegate_) delegate_->pagedScrollViewDidEndDecelerating(*this);
}

void PagedScrollView::didMoveToWindow() {
    if (!window()) {
        if (travel_.isRunning()) comeToRest(travelEnd_);
        if (isDecelerating() && paging_) comeToRest(strip_.nearestPageStart(position_));
    }
    updateAutoscroll();
}

void PagedScrollView::comeToRest(double offset) {
    travel_.cancel();
    position_ = isEndless() ? strip_.pageStartAt(strip_.clampedOffset(offset)) : reachable(offset);
    if (itemLength() > 0) applyPosition();
    layOutItemViews();
    setNeedsLayout();
}

void PagedScrollView::setAutoscroll(double itemsPerSecond) {
    autoscroll_ = std::isfinite(itemsPerSecond) ? itemsPerSecond : 0;
    updateAutoscroll();
}

void PagedScrollView::updateAutoscroll() {
    if (autoscroll_ == 0 || !window()) return autoscrollLink_.reset();
    if (autoscrollLink_) return;
    lastTime_ = window()->runLoop().now();
    autoscrollLink_.emplace(window()->runLoop(), [this](double now) { autoscrollStep(now); });
}

void PagedScrollView::autoscrollStep(double now) {
    const double passed = now - lastTime_;
    lastTime_ = now;
    if (!travel_.isRunning() && !isDragging() && !isDecelerating()) {
        moveTo(scrollOffset() + autoscroll_ * passed);
    }
}

}  // namespace vorpel::ui
