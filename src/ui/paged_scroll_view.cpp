// SPDX-License-Identifier: Apache-2.0
#include "ui/paged_scroll_view.h"

#include "ui/control.h"
#include "ui/touch.h"

#include <algorithm>
#include <cmath>

namespace vorpel::ui {

PagedScrollView::PagedScrollView(const Rect& frame)
    : View(frame), tap_([this](const Touch& touch) { tapped(touch); }) {
    setClipsToBounds(true);
    // The page may be smaller than the view: what lies beside it is to be seen too.
    scroll_.setClipsToBounds(false);
    scroll_.setShowsIndicators(false);
    scroll_.setPagingEnabled(paging_);
    scroll_.setDelegate(this);
    addSubview(scroll_);
    tap_.setShouldReceive(
        [this](const Touch& touch) { return !viewOrSuperviewHandlesTouches(touch.view()); });
    tap_.attachTo(*this);
}

void PagedScrollView::setDataSource(PagedScrollViewDataSource* source) {
    discardsViews_ = discardsViews_ || source != dataSource_;
    dataSource_ = source;
    reloadData();
}

void PagedScrollView::setDelegate(PagedScrollViewDelegate* delegate) {
    delegate_ = delegate;
    setNeedsLayout();
}

std::vector<int> PagedScrollView::indexesForVisibleItems() const {
    std::vector<int> indexes;
    for (const auto& [index, view] : itemViews_) indexes.push_back(index);
    return indexes;
}

std::vector<View*> PagedScrollView::visibleItemViews() const {
    std::vector<View*> views;
    for (const auto& [index, view] : itemViews_) views.push_back(view.get());
    return views;
}

View* PagedScrollView::itemViewAtIndex(int index) const {
    const auto found = itemViews_.find(index);
    return found == itemViews_.end() ? nullptr : found->second.get();
}

std::optional<int> PagedScrollView::indexOfItemView(const View& view) const {
    for (const auto& [index, itemView] : itemViews_) {
        if (itemView.get() == &view) return index;
    }
    return std::nullopt;
}

std::optional<int> PagedScrollView::indexOfItemViewOrSubview(const View& view) const {
    for (const View* above = &view; above && above != this; above = above->superview()) {
        if (const auto index = indexOfItemView(*above)) return index;
    }
    return std::nullopt;
}

void PagedScrollView::setItemsPerPage(int count) {
    strip_.itemsPerPage = std::max(1, count);
    setNeedsLayout();
}

void PagedScrollView::setTruncateFinalPage(bool truncates) {
    strip_.truncatesFinalPage = truncates;
    setNeedsLayout();
}

void PagedScrollView::setWrapEnabled(bool wraps) {
    position_ = scrollOffset();
    strip_.wraps = wraps;
    setNeedsLayout();
}

void PagedScrollView::setAlignment(PageAlignment alignment) {
    strip_.alignment = alignment;
    setNeedsLayout();
}

void PagedScrollView::setVertical(bool vertical) {
    vertical_ = vertical;
    setNeedsLayout();
}

void PagedScrollView::setDefersItemViewLoading(bool defers) {
    defersLoading_ = defers;
    setNeedsLayout();
}

void PagedScrollView::setPagingEnabled(bool enabled) {
    paging_ = enabled;
    scroll_.setPagingEnabled(enabled);
}

void PagedScrollView::setScrollEnabled(bool enabled) {
    scrollEnabled_ = enabled;
    scroll_.setScrollEnabled(enabled);
}

void PagedScrollView::setBounces(bool bounces) {
    bounces_ = bounces;
    updateBounce();
}

View* PagedScrollView::hitTest(Point point) {
    View* const hit = View::hitTest(point);
    if (hit != this && hit != &scroll_ && hit != &scroll_.contentView()) return hit;
    const Point place = point - scroll_.frame().origin() - scroll_.contentView().frame().origin();
    for (const auto& [index, view] : itemViews_) {
        if (View* const inItem = view->hitTest(place - view->frame().origin())) return inItem;
    }
    return &scroll_;
}

bool PagedScrollView::Scroller::panTouched() {
    if (pager_.scrollEnabled_ && pager_.travel_.isRunning()) return true;
    return ScrollView::panTouched();
}

bool PagedScrollView::viewOrSuperviewHandlesTouches(const View* view) const {
    for (; view && view != this; view = view->superview()) {
        if (dynamic_cast<const Control*>(view)) return true;
    }
    return false;
}

void PagedScrollView::tapped(const Touch& touch) {
    const auto index = touch.view() ? indexOfItemViewOrSubview(*touch.view()) : std::nullopt;
    if (!index || !delegate_) return;
    const ViewWatch watch(*this);
    if (!delegate_->shouldSelectItemAtIndex(*this, *index) || !watch.isAlive() || !delegate_) return;
    delegate_->didSelectItemAtIndex(*this, *index);
}

}  // namespace vorpel::ui
