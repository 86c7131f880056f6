// SPDX-License-Identifier: Apache-2.0
// How the items of a paged scroll view are placed.
#include "ui/paged_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vorpel::ui {

namespace {

constexpr double SAME_PLACE = 1e-4;  // points

// Who asks for a reload each time it is asked for a view is left alone after so many.
constexpr int MOST_ROUNDS = 4;

}  // namespace

void PagedScrollView::reloadData() {
    reloadPending_ = layoutPending_ = true;
    update();
}

void PagedScrollView::layoutSubviews() {
    layoutPending_ = true;
    update();
}

void PagedScrollView::loadUnloadViews() {
    loadPending_ = true;
    update();
}

void PagedScrollView::update() {
    // Asked for by who is being asked: it is done when the answer has been used.
    if (updating_) return;
    const ViewWatch watch(*this);
    updating_ = true;
    for (int round = 1; round <= MOST_ROUNDS && (reloadPending_ || layoutPending_ || loadPending_); ++round) {
        if (std::exchange(reloadPending_, false)) unloadAll();
        if (watch.isAlive() && std::exchange(layoutPending_, false)) layOut();
        if (watch.isAlive()) loadWantedViews(round == MOST_ROUNDS);
        if (!watch.isAlive()) return;
    }
    updating_ = false;
    // What is asked for without end goes on with the next frame.
    if (reloadPending_ || layoutPending_ || loadPending_) setNeedsLayout();
    tellCurrentItem();
}

void PagedScrollView::layOut() {
    const ViewWatch watch(*this);
    updateItemSizeAndCount();
    if (!watch.isAlive()) return;
    settlePosition();
    updateScrollViewDimensions();
    layOutItemViews();
}

void PagedScrollView::updateItemSizeAndCount() {
    const ViewWatch watch(*this);
    const int count = dataSource_ ? std::max(0, dataSource_->numberOfItemsInPagedScrollView(*this)) : 0;
    if (!watch.isAlive()) return;
    // A place on the old ring is none on the new one.
    if (count != strip_.itemCount && strip_.wraps) position_ = scrollOffset();
    strip_.itemCount = count;
    const Size size = askItemSize();
    if (!watch.isAlive()) return;
    itemSize_ = size;
    const bool hasLength = itemLength() > 0 && std::isfinite(itemLength());
    if (!hasLength) itemSize_ = {};
    strip_.viewLength = hasLength ? along(bounds().size()) / itemLength() : 0;
}

Size PagedScrollView::askItemSize() {
    const ViewWatch watch(*this);
    const std::optional<Size> given = delegate_ ? delegate_->pagedScrollViewItemSize(*this) : std::nullopt;
    if (given || !watch.isAlive()) return given.value_or(Size{});
    if (!itemViews_.empty()) return itemSize_;
    if (strip_.itemCount == 0 || !dataSource_) return {};
    std::unique_ptr<View> first = dataSource_->viewForItemAtIndex(*this, 0, dequeueItemView());
    if (!first || !watch.isAlive()) return {};
    const Size size = first->frame().size();
    itemViewPool_.push_back(std::move(first));
    return size;
}

void PagedScrollView::settlePosition() {
    const Extent extent{bounds().size(), itemSize_, vertical_, strip_.itemCount};
    const Extent before = std::exchange(laidOut_, extent);
    const bool isMoving = isDragging() || isDecelerating();
    // What was on its way to a page would be left between two of them by the change.
    if (extent != before && before.item != Size{} && paging_ && !isDragging() && !travel_.isRunning()) {
        position_ = isDecelerating() ? strip_.nearestPageStart(position_) : std::round(position_);
    }
    if (!isEndless() && (extent != before || !isMoving)) position_ = reachable(position_);
}

double PagedScrollView::reachable(double offset) const {
    const double clamped = strip_.clampedOffset(offset);
    return isEndless() ? clamped : std::min(clamped, strip_.largestOffset());
}

void PagedScrollView::updateScrollViewDimensions() {
    const Size size = bounds().size();
    const double length = itemLength();
    const double start = strip_.lead() * length;
    const double page = length > 0 ? strip_.itemsPerPage * length : along(size);
    const double content = strip_.largestOffset() * length + page;
    const double beyond = isEndless() ? std::numeric_limits<double>::infinity() : 0;
    suppressScrollEvent_ = true;
    if (vertical_) {
        scroll_.setFrame({0, start, size.width, page});
        scroll_.setContentSize({size.width, content});
        scroll_.setContentInset({.top = beyond, .bottom = beyond});
    } else {
        scroll_.setFrame({start, 0, page, size.height});
        scroll_.setContentSize({content, size.height});
        scroll_.setContentInset({.left = beyond, .right = beyond});
    }
    suppressScrollEvent_ = false;
    updateBounce();
    // Where nothing has to change, what moves the content by itself is to go on.
    const Point apart = contentOffsetFor(position_) - scroll_.contentOffset();
    if (length > 0 && std::abs(apart.x) + std::abs(apart.y) > SAME_PLACE) applyPosition();
}

void PagedScrollView::updateBounce() {
    const bool bounces = bounces_ && !isEndless();
    scroll_.setBounces(bounces);
    scroll_.setAlwaysBounceHorizontal(bounces && !vertical_);
    scroll_.setAlwaysBounceVertical(bounces && vertical_);
}

Point PagedScrollView::contentOffsetFor(double position) const {
    const double offset = position * itemLength();
    return vertical_ ? Point{0, offset} : Point{offset, 0};
}

void PagedScrollView::applyPosition() {
    suppressScrollEvent_ = true;
    scroll_.setContentOffset(contentOffsetFor(position_));
    suppressScrollEvent_ = false;
}

void PagedScrollView::layOutItemViews() {
    for (const auto& [index, view] : itemViews_) setFrameForView(*view, index);
}

void PagedScrollView::setFrameForView(View& view, int index) {
    const double start = strip_.placeOf(index, position_) * itemLength();
    const Size room = bounds().size();
    const auto [width, height] = itemSize_;
    view.setFrame(vertical_ ? Rect{(room.width - width) / 2, start, width, height}
                            : Rect{start, (room.height - height) / 2, width, height});
}

}  // namespace vorpel::ui
