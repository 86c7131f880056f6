// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/collection_view_cell.h"
#include "ui/collection_view_layout.h"
#include "ui/scroll_view.h"
#include "ui/tap_gesture.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel::ui {

class CollectionView;

/// What a collection view shows. Each call may scroll, reload or destroy the view.
class CollectionViewDataSource {
public:
    virtual ~CollectionViewDataSource() = default;
    virtual int numberOfSections(CollectionView&) { return 1; }
    virtual int numberOfItemsInSection(CollectionView&, int section) = 0;

    /// @return a cell that was dequeued in this call and is filled in now; null leaves the place empty
    virtual CollectionViewCell* cellForItemAtIndexPath(CollectionView&, const IndexPath& path) = 0;

    /// The same for a header or a footer; asked when the layout has room for it.
    virtual CollectionViewCell* cellForSupplementaryView(CollectionView&, SupplementaryKind,
                                                         const IndexPath& /*path*/) {
        return nullptr;
    }
};

class CollectionViewSelectionDelegate {
public:
    virtual ~CollectionViewSelectionDelegate() = default;

    /// The item was tapped, and not a control in it. May reload or destroy the view.
    virtual void didSelectItemAtIndexPath(CollectionView&, const IndexPath&) {}
};

/// Any number of items under one finger: a layout says where they lie, and only those in sight have a cell.
/// A cell that scrolls out is used again for one that scrolls in. What is on show follows scrolling and
/// reloading with the next frame, or with `layoutIfNeeded`.
class CollectionView : public ScrollView, private CollectionViewLayoutSource {
public:
    CollectionView() : CollectionView(Rect{}) {}
    explicit CollectionView(const Rect& frame);
    ~CollectionView() override;

    /// Not owned; null shows nothing. Another collection view that has it loses it.
    void setLayout(CollectionViewLayout* layout);
    [[nodiscard]] CollectionViewLayout* layout() const { return layout_; }

    /// Not owned; null empties the view.
    void setDataSource(CollectionViewDataSource* source);

    /// Not owned; null for none.
    void setSelectionDelegate(CollectionViewSelectionDelegate* delegate) { selectionDelegate_ = delegate; }

    /// What the layout asks for single sections; of the kind that the layout names. Not owned; null for none.
    void setLayoutDelegate(CollectionViewLayoutDelegate* delegate);

    /// In points: so far beside an item a tap still means it, if no other is nearer; 0 at first.
    void setTapMargin(double margin) { tapMargin_ = margin; }

    /// How cells of that name are made; to be told before one is dequeued.
    void registerCell(const std::string& reuseIdentifier, CollectionViewCellPool::Factory factory);

    /// For the data source, while it is asked for a cell: one that is out of use, or else a new one. It has
    /// the size already that it is going to have. The view owns it.
    ///
    /// @throw std::invalid_argument when no such cell is registered
    CollectionViewCell& dequeueReusableCell(const std::string& reuseIdentifier, const IndexPath& path);

    /// Asks for everything anew; nothing is on show until then.
    void reloadData();

    /// Null when the item is not on show.
    [[nodiscard]] CollectionViewCell* cellForItem(const IndexPath& path) const;

    /// In the order of their items, without headers and footers.
    [[nodiscard]] std::vector<CollectionViewCell*> visibleCells() const;

    /// The item at a point of the content, in sight or not. None between items, and until what was reloaded
    /// is laid out.
    [[nodiscard]] std::optional<IndexPath> indexPathForItemAt(Point point) const;

    void layoutSubviews() override;

protected:
    void contentDidMove() override;

private:
    /// An element in sight. The cell is null where the data source gave none.
    struct Shown {
        LayoutAttributes attributes;
        std::unique_ptr<CollectionViewCell> cell;
    };

    /// Where the content stood before the layout changed: an item that was in sight, and the offset.
    struct Place {
        IndexPath path;
        Rect frame;
        Point offset;
        Point result;  // the offset in the new layout
    };

    class LayoutPass;

    [[nodiscard]] int layoutSectionCount() const override;
    [[nodiscard]] int layoutItemCount(int section) const override;
    [[nodiscard]] Rect layoutBounds() const override { return laidOutBounds_; }
    [[nodiscard]] CollectionViewLayoutDelegate* layoutDelegate() const override { return layoutDelegate_; }
    void layoutInvalidated() override;
    void layoutLeft() override;

    [[nodiscard]] Rect visibleRect() const;
    void countItems(const LayoutPass& pass);
    void layOutContent(const LayoutPass& pass);
    [[nodiscard]] std::optional<Place> findPlace() const;
    void returnTo(const Place& place, const LayoutPass& pass);
    void showVisible(const LayoutPass& pass);
    void removeAllBut(const std::vector<LayoutAttributes>& wanted);
    void show(const LayoutAttributes& attributes, const LayoutPass& pass);
    [[nodiscard]] CollectionViewCell* askForCell(const LayoutAttributes& attributes);
    [[nodiscard]] std::unique_ptr<CollectionViewCell> takeDequeued(const CollectionViewCell* cell);
    void giveBackDequeued();
    [[nodiscard]] const Shown* shownNear(Point place) const;
    void tapped(const Touch& touch);

    CollectionViewLayout* layout_ = nullptr;
    CollectionViewDataSource* source_ = nullptr;
    CollectionViewSelectionDelegate* selectionDelegate_ = nullptr;
    CollectionViewLayoutDelegate* layoutDelegate_ = nullptr;
    CollectionViewCellPool pool_;
    std::vector<int> itemCounts_;                                // of each section, as of the last reload
    std::vector<Shown> shown_;                                   // in the order of their attributes
    std::vector<std::unique_ptr<CollectionViewCell>> dequeued_;  // for the call that goes on
    std::optional<LayoutAttributes> asked_;                      // what that call is about
    Rect laidOutBounds_;
    std::optional<Place> place_;  // of the last change of the layout
    bool needsReload_ = true;
    bool layoutChanged_ = true;
    bool layingOut_ = false;
    double tapMargin_ = 0;
    TapGesture tap_;
};

}  // namespace vorpel::ui
