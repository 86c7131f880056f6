// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"

#include <memory>
#include <optional>

namespace vorpel::ui {

class PagedScrollView;
class View;

/// What a paged scroll view shows. A call may reload the view, scroll or destroy it; a reload is done when
/// the answer has been used.
class PagedScrollViewDataSource {
public:
    virtual ~PagedScrollViewDataSource() = default;
    virtual int numberOfItemsInPagedScrollView(PagedScrollView&) = 0;

    /// The view is placed, and made as large as an item, by its taker. `reusing` is one that scrolled out, or
    /// null; it may be handed back.
    virtual std::unique_ptr<View> viewForItemAtIndex(PagedScrollView&, int index,
                                                     std::unique_ptr<View> reusing) = 0;
};

/// What a paged scroll view tells. A call may reload the view, scroll or destroy it. What is scrolled from
/// within a call is not told with that same call again.
class PagedScrollViewDelegate {
public:
    virtual ~PagedScrollViewDelegate() = default;

    /// The size of all items; without one, it is that of the data source's first view.
    virtual std::optional<Size> pagedScrollViewItemSize(PagedScrollView&) { return std::nullopt; }

    virtual void pagedScrollViewDidScroll(PagedScrollView&) {}
    virtual void pagedScrollViewCurrentItemIndexDidChange(PagedScrollView&) {}
    virtual void pagedScrollViewWillBeginDragging(PagedScrollView&) {}
    virtual void pagedScrollViewDidEndDragging(PagedScrollView&, bool /*willDecelerate*/) {}
    virtual void pagedScrollViewWillBeginDecelerating(PagedScrollView&) {}
    virtual void pagedScrollViewDidEndDecelerating(PagedScrollView&) {}

    /// A scroll with a duration has arrived; not told of one that something else has ended.
    virtual void pagedScrollViewDidEndScrollingAnimation(PagedScrollView&) {}

    virtual bool shouldSelectItemAtIndex(PagedScrollView&, int /*index*/) { return true; }
    virtual void didSelectItemAtIndex(PagedScrollView&, int /*index*/) {}
};

}  // namespace vorpel::ui
