// SPDX-License-Identifier: Apache-2.0
// How the views of a paged scroll view's items are loaded, and used again.
#include "ui/paged_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorpel::ui {

void PagedScrollView::loadIfDue() {
    // With the neighbours of an item all is loaded that can come into sight before a whole item has gone by.
    const double moved = std::abs(strip_.minScrollDistanceFromOffset(lastUpdateOffset_, scrollOffset()));
    if (!defersLoading_ || moved >= 1) loadUnloadViews();
}

void PagedScrollView::loadWantedViews(bool whateverIsAsked) {
    loadPending_ = false;
    lastUpdateOffset_ = defersLoading_ ? currentItemIndex() : scrollOffset();
    std::vector<int> wanted;
    if (itemLength() > 0) wanted = strip_.itemsShownAt(lastUpdateOffset_, defersLoading_ ? 1 : 0);
    const ViewWatch watch(*this);
    unloadAllBut(wanted);
    for (const int index : wanted) {
        // A reload that was asked for meanwhile may have left fewer items.
        if (!watch.isAlive() || !dataSource_ || (reloadPending_ && !whateverIsAsked)) return;
        if (!itemViews_.contains(index)) loadViewAtIndex(index);
    }
}

void PagedScrollView::unloadAll() {
    const ViewWatch watch(*this);
    unloadAllBut({});
    if (!watch.isAlive() || !std::exchange(discardsViews_, false)) return;
    const auto discarded = std::exchange(itemViewPool_, {});
}

void PagedScrollView::unloadAllBut(const std::vector<int>& wanted) {
    const auto isUnwanted = [&](const auto& entry) {
        return std::ranges::find(wanted, entry.first) == wanted.end();
    };
    // Anew from the front each time: a view that leaves ends its touches, and who is told may do anything.
    const ViewWatch watch(*this);
    while (watch.isAlive()) {
        const auto found = std::ranges::find_if(itemViews_, isUnwanted);
        if (found == itemViews_.end()) return;
        std::unique_ptr<View> view = std::move(found->second);
        itemViews_.erase(found);
        view->removeFromSuperview();
        if (watch.isAlive()) itemViewPool_.push_back(std::move(view));
    }
}

void PagedScrollView::loadViewAtIndex(int index) {
    const ViewWatch watch(*this);
    std::unique_ptr<View> view = dataSource_->viewForItemAtIndex(*this, index, dequeueItemView());
    if (!watch.isAlive()) return;
    if (!view) view = std::make_unique<View>();
    View& loaded = *view;
    itemViews_[index] = std::move(view);
    setFrameForView(loaded, index);
    scroll_.contentView().addSubview(loaded);
}

std::unique_ptr<View> PagedScrollView::dequeueItemView() {
    if (itemViewPool_.empty()) return nullptr;
    std::unique_ptr<View> view = std::move(itemViewPool_.back());
    itemViewPool_.pop_back();
    return view;
}

}  // namespace vorpel::ui
