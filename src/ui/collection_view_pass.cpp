// SPDX-License-Identifier: Apache-2.0
#include "ui/collection_view_pass.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace vorpel::ui {

namespace {

/// A section's header comes before its items, its footer after them.
auto orderOf(const LayoutAttributes& one) {
    const int rank = !one.kind ? 1 : *one.kind == SupplementaryKind::Header ? 0 : 2;
    return std::tuple(one.path.section, rank, one.path.item);
}

bool precedes(const LayoutAttributes& a, const LayoutAttributes& b) {
    return orderOf(a) < orderOf(b);
}

/// The offset along one axis at which an item stands as it stood at `offset`: cut off by the same share of
/// its length, or as far in. At the beginning, and drawn beyond it, the content stays.
double offsetKept(double offset, double before, double lengthBefore, double now, double lengthNow) {
    if (!(offset > 0)) return offset;
    const double cutOff = offset - before;
    return now + (cutOff > 0 ? cutOff / lengthBefore * lengthNow : cutOff);
}

}  // namespace

void CollectionView::layoutSubviews() {
    // The host asks for it in a call that a pass makes; that pass goes on with the old state first.
    if (layingOut_) return setNeedsLayout();
    const LayoutPass pass(*this);
    if (needsReload_) countItems(pass);
    if (pass.goesOn()) layOutContent(pass);
    if (pass.goesOn()) ScrollView::layoutSubviews();
    if (pass.goesOn()) showVisible(pass);
}

void CollectionView::countItems(const LayoutPass& pass) {
    needsReload_ = false;
    std::vector<int> counts;
    const int sections = source_ ? source_->numberOfSections(*this) : 0;
    for (int section = 0; section < sections && pass.goesOn(); ++section) {
        counts.push_back(std::max(0, source_->numberOfItemsInSection(*this, section)));
    }
    if (pass.goesOn()) itemCounts_ = std::move(counts);
}

void CollectionView::layOutContent(const LayoutPass& pass) {
    const bool reshaped =
        layout_ && bounds() != laidOutBounds_ && layout_->shouldInvalidateLayoutForBoundsChange(bounds());
    const std::optional<Place> place = reshaped || layoutChanged_ ? findPlace() : std::nullopt;
    laidOutBounds_ = bounds();
    if (reshaped) layout_->invalidateLayout();
    if (!std::exchange(layoutChanged_, false)) return;
    setContentSize(layout_ ? layout_->collectionViewContentSize() : Size{});
    if (place) returnTo(*place, pass);
}

std::optional<CollectionView::Place> CollectionView::findPlace() const {
    const Point offset = contentOffset();
    // Nobody has scrolled since: from the same item again, so that turning a screen to and fro moves nothing.
    if (place_ && place_->result == offset) return place_;
    const Rect seen{offset.x, offset.y, laidOutBounds_.width, laidOutBounds_.height};
    for (const Shown& shown : shown_) {
        const LayoutAttributes& one = shown.attributes;
        if (!one.kind && one.frame.intersects(seen)) return Place{one.path, one.frame, offset, offset};
    }
    return std::nullopt;
}

void CollectionView::returnTo(const Place& place, const LayoutPass& pass) {
    const auto item = layout_ ? layout_->layoutAttributesForItemAtIndexPath(place.path) : std::nullopt;
    if (!item) return;
    const Rect& now = item->frame;
    const Rect& before = place.frame;
    Point offset = place.offset;
    if (now != before) {
        offset = {offsetKept(offset.x, before.x, before.width, now.x, now.width),
                  offsetKept(offset.y, before.y, before.height, now.y, now.height)};
    }
    if (offset != contentOffset()) setContentOffset(offset);
    if (!pass.goesOn()) return;
    place_ = place;
    place_->result = contentOffset();
}

Rect CollectionView::visibleRect() const {
    const Point offset = contentOffset();
    return {offset.x, offset.y, bounds().width, bounds().height};
}

void CollectionView::showVisible(const LayoutPass& pass) {
    std::vector<LayoutAttributes> wanted;
    if (layout_ && source_) wanted = layout_->layoutAttributesForElementsInRect(visibleRect());
    std::ranges::sort(wanted, precedes);
    removeAllBut(wanted);
    for (const LayoutAttributes& one : wanted) {
        if (!pass.goesOn()) return;
        show(one, pass);
    }
}

void CollectionView::removeAllBut(const std::vector<LayoutAttributes>& wanted) {
    const auto leaves = [&](const Shown& shown) {
        return !std::ranges::binary_search(wanted, shown.attributes, precedes);
    };
    // Taken out of the list first: a touch that ends with its view may set off anything.
    std::vector<Shown> leaving;
    for (Shown& shown : shown_) {
        if (leaves(shown)) leaving.push_back(std::move(shown));
    }
    std::erase_if(shown_, leaves);
    ViewWatch watch(*this);
    for (Shown& shown : leaving) {
        if (!shown.cell) continue;
        shown.cell->removeFromSuperview();
        if (!watch.isAlive()) return;
        pool_.giveBack(std::move(shown.cell));
    }
}

void CollectionView::show(const LayoutAttributes& attributes, const LayoutPass& pass) {
    const auto at = std::ranges::lower_bound(shown_, attributes, precedes, &Shown::attributes);
    if (at != shown_.end() && !precedes(attributes, at->attributes)) {
        // Only when the layout has it elsewhere: a cell's frame may be in motion.
        if (at->cell && at->attributes.frame != attributes.frame) at->cell->setFrame(attributes.frame);
        at->attributes = attributes;
        return;
    }
    asked_ = attributes;
    CollectionViewCell* const answer = askForCell(attributes);
    if (!pass.isViewAlive()) return;
    asked_.reset();
    if (!pass.goesOn()) return giveBackDequeued();
    std::unique_ptr<CollectionViewCell> taken = takeDequeued(answer);
    giveBackDequeued();
    CollectionViewCell* const cell = taken.get();
    shown_.insert(std::ranges::lower_bound(shown_, attributes, precedes, &Shown::attributes),
                  Shown{attributes, std::move(taken)});
    if (!cell) return;
    cell->setFrame(attributes.frame);
    contentView().addSubview(*cell);
}

CollectionViewCell* CollectionView::askForCell(const LayoutAttributes& attributes) {
    if (!attributes.kind) return source_->cellForItemAtIndexPath(*this, attributes.path);
    return source_->cellForSupplementaryView(*this, *attributes.kind, attributes.path);
}

std::unique_ptr<CollectionViewCell> CollectionView::takeDequeued(const CollectionViewCell* cell) {
    if (!cell) return nullptr;
    const auto found = std::ranges::find(dequeued_, cell, &std::unique_ptr<CollectionViewCell>::get);
    if (found == dequeued_.end()) {
        throw std::logic_error("a data source answered with a cell that it had not dequeued for it");
    }
    std::unique_ptr<CollectionViewCell> taken = std::move(*found);
    dequeued_.erase(found);
    return taken;
}

void CollectionView::giveBackDequeued() {
    for (std::unique_ptr<CollectionViewCell>& cell : dequeued_) pool_.giveBack(std::move(cell));
    dequeued_.clear();
}

}  // namespace vorpel::ui
