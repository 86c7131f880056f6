// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

namespace vorpel::ui {

/// Where a page lies in a pager that is longer than it: at the start, or in the middle.
enum class PageAlignment { Edge, Center };

/// The arithmetic of a strip of items of equal length, of which a window shows a part. All places are counted
/// in items: an offset of 2.5 is half way between items 2 and 3. A strip that wraps is a ring; a place on it
/// may have gone round any number of times.
struct ItemStrip {
    int itemCount = 0;
    int itemsPerPage = 1;
    bool truncatesFinalPage = false;
    bool wraps = false;
    PageAlignment alignment = PageAlignment::Edge;
    double viewLength = 0;  // of the window, in items; 0 when not known

    /// The item that is meant: round the ring, or the nearest there is. 0 without items.
    [[nodiscard]] int clampedIndex(int index) const;
    [[nodiscard]] double clampedOffset(double offset) const;

    /// The way from one to the other, round the ring where that is shorter.
    [[nodiscard]] double minScrollDistanceFromOffset(double fromOffset, double toOffset) const;

    [[nodiscard]] int pageCount() const;
    [[nodiscard]] int pageOf(int index) const;

    /// The offset at which the page begins that has this number; a truncated one is drawn back.
    [[nodiscard]] double offsetOfPage(int page) const;

    /// The current item at an offset.
    [[nodiscard]] int indexAt(double offset) const;

    /// How far the window's start lies before that of the page.
    [[nodiscard]] double lead() const;

    /// The last offset at which the window is filled; without meaning on a ring.
    [[nodiscard]] double largestOffset() const;

    /// The place nearest to an offset at which the strip may rest when it pages.
    [[nodiscard]] double nearestPageStart(double offset) const;

    /// Where an item is shown when the strip has been scrolled to `position`. On a ring it is the place that
    /// lies nearest to the middle of what is shown.
    [[nodiscard]] double placeOf(int index, double position) const;

    /// A place on the ring for this offset at which a page begins, if there is one. Where the pages do not
    /// divide the ring, they lie otherwise in each round.
    [[nodiscard]] double pageStartAt(double offset) const;

    /// The items that the window shows at an offset, and `margin` more on both sides.
    [[nodiscard]] std::vector<int> itemsShownAt(double offset, int margin = 0) const;
};

}  // namespace vorpel::ui
