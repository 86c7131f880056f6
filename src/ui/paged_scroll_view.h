// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/animation.h"
#include "ui/display_link.h"
#include "ui/item_strip.h"
#include "ui/paged_scroll_delegate.h"
#include "ui/scroll_view.h"
#include "ui/tap_gesture.h"
#include "ui/view.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace vorpel::ui {

/// Shows a row or a column of items of equal size, a page at a time. Only the views that are needed are
/// loaded; those that scroll out are handed to the data source again. Places are counted in items: a
/// `scrollOffset` of 2.5 is half way between items 2 and 3. It owns the views of its items, not its data
/// source nor its delegate. Main thread only.
class PagedScrollView : public View, private ScrollDelegate {
public:
    PagedScrollView() : PagedScrollView(Rect{}) {}
    explicit PagedScrollView(const Rect& frame);

    /// Loads all anew. Null for none.
    void setDataSource(PagedScrollViewDataSource* source);
    void setDelegate(PagedScrollViewDelegate* delegate);

    /// Asks for everything anew; stays at the current item if there is still one.
    void reloadData();

    // What there is, as of the last reload or layout.

    [[nodiscard]] int numberOfItems() const { return strip_.itemCount; }
    [[nodiscard]] int numberOfPages() const { return strip_.pageCount(); }

    /// The items whose views are loaded, in rising order: those in sight, and with `defersItemViewLoading`
    /// their neighbours too.
    [[nodiscard]] std::vector<int> indexesForVisibleItems() const;
    [[nodiscard]] std::vector<View*> visibleItemViews() const;

    /// Null where none is loaded.
    [[nodiscard]] View* itemViewAtIndex(int index) const;
    [[nodiscard]] View* currentItemView() const { return itemViewAtIndex(currentItemIndex()); }

    [[nodiscard]] std::optional<int> indexOfItemView(const View& view) const;
    [[nodiscard]] std::optional<int> indexOfItemViewOrSubview(const View& view) const;

    // Where it is. The setters move at once and end what moves by itself.

    /// From 0 to the last item; drawn beyond the ends it stays there.
    [[nodiscard]] double scrollOffset() const { return strip_.clampedOffset(position_); }

    /// Goes no farther than the last page fills the view.
    void setScrollOffset(double offset);

    [[nodiscard]] int currentItemIndex() const { return strip_.indexAt(scrollOffset()); }
    void setCurrentItemIndex(int index);
    [[nodiscard]] int currentPage() const { return strip_.pageOf(currentItemIndex()); }
    void setCurrentPage(int page);

    // Scrolling by and by, slow at both ends. `duration` is in seconds; at 0, without a window, or while a
    // transaction has disabled actions it is done before the call returns. A finger that comes down takes
    // over. On a ring the shorter way is taken.

    void scrollByOffset(double offset, double duration);
    void scrollToOffset(double offset, double duration);

    /// Counts from the item at which the strip stands or which it has passed last; 0 goes to the nearest.
    void scrollByNumberOfItems(int count, double duration);
    void scrollToItemAtIndex(int index, double duration);
    void scrollToPage(int page, double duration);

    // How it is laid out.

    [[nodiscard]] int itemsPerPage() const { return strip_.itemsPerPage; }
    /// At least 1.
    void setItemsPerPage(int count);

    /// Whether the last page, when not full, ends with the last item and not with empty places.
    [[nodiscard]] bool truncateFinalPage() const { return strip_.truncatesFinalPage; }
    void setTruncateFinalPage(bool truncates);

    /// The first item follows the last.
    [[nodiscard]] bool isWrapEnabled() const { return strip_.wraps; }
    void setWrapEnabled(bool wraps);

    [[nodiscard]] PageAlignment alignment() const { return strip_.alignment; }
    void setAlignment(PageAlignment alignment);
    [[nodiscard]] bool isVertical() const { return vertical_; }
    void setVertical(bool vertical);

    /// Loads the current page's neighbours with it, and the next only once a whole item has gone by: a page
    /// that is drawn in is there before it is seen, and what is between does not load while it passes.
    [[nodiscard]] bool defersItemViewLoading() const { return defersLoading_; }
    void setDefersItemViewLoading(bool defers);

    // How it moves.

    [[nodiscard]] bool isPagingEnabled() const { return paging_; }
    void setPagingEnabled(bool enabled);
    [[nodiscard]] bool isScrollEnabled() const { return scrollEnabled_; }
    void setScrollEnabled(bool enabled);

    /// A ring has no ends to swing back from.
    [[nodiscard]] bool bounces() const { return bounces_; }
    void setBounces(bool bounces);

    /// As for `ScrollView`; without meaning while it pages.
    [[nodiscard]] double decelerationRate() const { return scroll_.decelerationRate(); }
    void setDecelerationRate(double rate) { scroll_.setDecelerationRate(rate); }

    /// Items a second that it moves by itself, while no finger does; 0 for none.
    [[nodiscard]] double autoscroll() const { return autoscroll_; }
    void setAutoscroll(double itemsPerSecond);

    /// Whether `setCurrentItemIndex` and `setCurrentPage` let the change be seen.
    [[nodiscard]] bool animateWhileChanging() const { return animatesChanges_; }
    void setAnimateWhileChanging(bool animates) { animatesChanges_ = animates; }

    /// A wish only: items learn of a touch at once, and that it is cancelled when a drag takes it.
    [[nodiscard]] bool delaysContentTouches() const { return delaysTouches_; }
    void setDelaysContentTouches(bool delays) { delaysTouches_ = delays; }

    [[nodiscard]] bool isDragging() const { return scroll_.isDragging(); }
    [[nodiscard]] bool isDecelerating() const { return scroll_.isDecelerating(); }

    /// Of the size of a page; what is in it is this view's to arrange.
    [[nodiscard]] ScrollView& scrollView() { return scroll_; }

    /// Beside the page, what lies there is hit too.
    [[nodiscard]] View* hitTest(Point point) override;
    void layoutSubviews() override;

protected:
    void didMoveToWindow() override;

private:
    /// Can be caught while the pager moves it.
    class Scroller : public ScrollView {
    public:
        explicit Scroller(const PagedScrollView& pager) : pager_(pager) {}

    protected:
        bool panTouched() override;

    private:
        const PagedScrollView& pager_;
    };

    /// What the strip was last laid out for.
    struct Extent {
        Size bounds;
        Size item;
        bool vertical = false;
        int itemCount = 0;

        friend bool operator==(const Extent&, const Extent&) = default;
    };

    void scrollViewDidScroll(ScrollView&) override;
    void scrollViewWillBeginDragging(ScrollView&) override;
    void scrollViewDidEndDragging(ScrollView&, bool willDecelerate) override;
    void scrollViewWillBeginDecelerating(ScrollView&) override;
    void scrollViewDidEndDecelerating(ScrollView&) override;

    // Those that call the data source or the delegate, and so may not return to a living view.

    void update();
    void layOut();
    void updateItemSizeAndCount();
    [[nodiscard]] Size askItemSize();
    void loadUnloadViews();
    void loadWantedViews(bool whateverIsAsked);
    void unloadAll();
    void unloadAllBut(const std::vector<int>& wanted);
    void loadViewAtIndex(int index);
    void loadIfDue();
    void didScroll();
    void tellCurrentItem();
    void moveTo(double offset);
    void arrived();
    void tapped(const Touch& touch);

    [[nodiscard]] std::unique_ptr<View> dequeueItemView();
    [[nodiscard]] bool viewOrSuperviewHandlesTouches(const View* view) const;
    [[nodiscard]] double along(Size size) const { return vertical_ ? size.height : size.width; }
    [[nodiscard]] double itemLength() const { return along(itemSize_); }
    [[nodiscard]] bool isEndless() const { return strip_.wraps && strip_.itemCount > 1; }
    [[nodiscard]] double reachable(double offset) const;
    void settlePosition();
    void updateScrollViewDimensions();
    void updateBounce();
    [[nodiscard]] Point contentOffsetFor(double position) const;
    void applyPosition();
    void layOutItemViews();
    void setFrameForView(View& view, int index);
    void comeToRest(double offset);
    void updateAutoscroll();
    void autoscrollStep(double now);

    PagedScrollViewDataSource* dataSource_ = nullptr;
    PagedScrollViewDelegate* delegate_ = nullptr;
    ItemStrip strip_;
    Size itemSize_;
    Extent laidOut_;
    double position_ = 0;  // the offset, unclamped: drawn beyond an end, or gone round the ring
    double lastUpdateOffset_ = 0;
    double travelEnd_ = 0;
    int previousItemIndex_ = 0;
    double autoscroll_ = 0;
    double lastTime_ = 0;
    bool vertical_ = false;
    bool paging_ = true;
    bool scrollEnabled_ = true;
    bool bounces_ = true;
    bool delaysTouches_ = true;
    bool defersLoading_ = false;
    bool animatesChanges_ = false;
    bool suppressScrollEvent_ = false;
    // What `update` has to do.
    bool reloadPending_ = false;
    bool layoutPending_ = false;
    bool loadPending_ = false;
    bool discardsViews_ = false;  // at the next reload: they are another data source's
    // Calls in course; what they set off is not to call again.
    bool updating_ = false;
    bool tellingScroll_ = false;
    bool tellingItem_ = false;
    bool tellingArrival_ = false;
    Scroller scroll_{*this};
    std::map<int, std::unique_ptr<View>> itemViews_;
    std::vector<std::unique_ptr<View>> itemViewPool_;
    TapGesture tap_;
    Animation travel_;
    std::optional<DisplayLink> autoscrollLink_;
};

}  // namespace vorpel::ui
