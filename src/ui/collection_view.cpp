// SPDX-License-Identifier: Apache-2.0
#include "ui/collection_view.h"

#include "ui/collection_view_pass.h"
#include "ui/control.h"
#include "ui/touch.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorpel::ui {

CollectionView::CollectionView(const Rect& frame)
    : ScrollView(frame), tap_([this](const Touch& touch) { tapped(touch); }) {
    tap_.setShouldReceive([](const Touch& touch) { return !isInControl(touch.view()); });
    tap_.setMayRest();
    tap_.attachTo(*this);
}

CollectionView::~CollectionView() {
    if (CollectionViewLayout* const layout = std::exchange(layout_, nullptr)) layout->setSource(nullptr);
}

void CollectionView::setLayout(CollectionViewLayout* layout) {
    if (layout == layout_) return;
    if (CollectionViewLayout* const former = std::exchange(layout_, nullptr)) former->setSource(nullptr);
    if (layout) layout->setSource(this);
    layout_ = layout;
    reloadData();
}

void CollectionView::layoutLeft() {
    if (std::exchange(layout_, nullptr)) reloadData();
}

void CollectionView::setDataSource(CollectionViewDataSource* source) {
    source_ = source;
    reloadData();
}

void CollectionView::setLayoutDelegate(CollectionViewLayoutDelegate* delegate) {
    layoutDelegate_ = delegate;
    if (layout_) layout_->invalidateLayout();
}

void CollectionView::registerCell(const std::string& reuseIdentifier,
                                  CollectionViewCellPool::Factory factory) {
    pool_.setFactory(reuseIdentifier, std::move(factory));
}

CollectionViewCell& CollectionView::dequeueReusableCell(const std::string& reuseIdentifier,
                                                        const IndexPath& path) {
    CollectionViewCell& cell = *dequeued_.emplace_back(pool_.take(reuseIdentifier));
    if (asked_ && asked_->path == path) cell.setFrame(asked_->frame);
    return cell;
}

void CollectionView::reloadData() {
    needsReload_ = true;
    layoutChanged_ = true;
    place_.reset();
    setNeedsLayout();
    if (layout_) layout_->invalidateLayout();
    removeAllBut({});
}

CollectionViewCell* CollectionView::cellForItem(const IndexPath& path) const {
    const auto isItem = [&](const Shown& shown) {
        return !shown.attributes.kind && shown.attributes.path == path;
    };
    const auto found = std::ranges::find_if(shown_, isItem);
    return found == shown_.end() ? nullptr : found->cell.get();
}

std::vector<CollectionViewCell*> CollectionView::visibleCells() const {
    std::vector<CollectionViewCell*> cells;
    for (const Shown& shown : shown_) {
        if (shown.cell && !shown.attributes.kind) cells.push_back(shown.cell.get());
    }
    return cells;
}

std::optional<IndexPath> CollectionView::indexPathForItemAt(Point point) const {
    if (!layout_ || needsReload_) return std::nullopt;
    // A rectangle without an extent would miss what begins at the point.
    for (const LayoutAttributes& one : layout_->layoutAttributesForElementsInRect({point.x, point.y, 1, 1})) {
        if (!one.kind && one.frame.contains(point)) return one.path;
    }
    return std::nullopt;
}

int CollectionView::layoutSectionCount() const {
    return static_cast<int>(itemCounts_.size());
}

int CollectionView::layoutItemCount(int section) const {
    return itemCounts_.at(static_cast<std::size_t>(section));
}

void CollectionView::layoutInvalidated() {
    layoutChanged_ = true;
    setNeedsLayout();
}

void CollectionView::contentDidMove() {
    setNeedsLayout();
}

/// What the finger saw, which is not where a layout changed since would have it.
const CollectionView::Shown* CollectionView::shownNear(Point place) const {
    const Shown* nearest = nullptr;
    double least = tapMargin_;
    for (const Shown& shown : shown_) {
        if (shown.attributes.kind || !shown.cell) continue;
        const Rect& frame = shown.attributes.frame;
        if (frame.contains(place)) return &shown;
        const double dx = std::max({frame.x - place.x, 0.0, place.x - frame.right()});
        const double dy = std::max({frame.y - place.y, 0.0, place.y - frame.bottom()});
        if (std::hypot(dx, dy) >= least) continue;
        least = std::hypot(dx, dy);
        nearest = &shown;
    }
    return nearest;
}

void CollectionView::tapped(const Touch& touch) {
    const Shown* const shown = shownNear(touch.locationIn(contentView()));
    if (!selectionDelegate_ || !shown) return;
    const IndexPath path = shown->attributes.path;
    selectionDelegate_->didSelectItemAtIndexPath(*this, path);
}

}  // namespace vorpel::ui
