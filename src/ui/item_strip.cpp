// SPDX-License-Identifier: Apache-2.0
#include "ui/item_strip.h"

#include <algorithm>
#include <cmath>

namespace vorpel::ui {

namespace {

// An item of which less than this is in sight is not: lengths that do not divide evenly leave such slivers.
constexpr double SLIVER = 1e-6;

}  // namespace

int ItemStrip::clampedIndex(int index) const {
    if (itemCount <= 0) return 0;
    if (!wraps) return std::clamp(index, 0, itemCount - 1);
    const int rest = index % itemCount;
    return rest < 0 ? rest + itemCount : rest;
}

double ItemStrip::clampedOffset(double offset) const {
    if (itemCount <= 0 || !std::isfinite(offset)) return 0;
    if (!wraps) return std::clamp(offset, 0.0, itemCount - 1.0);
    const double rest = offset - std::floor(offset / itemCount) * itemCount;
    // The rest of what lies hardly below a whole round is rounded up to it.
    return rest < itemCount ? rest : 0;
}

double ItemStrip::minScrollDistanceFromOffset(double fromOffset, double toOffset) const {
    if (!wraps) return toOffset - fromOffset;
    const double direct = clampedOffset(toOffset) - clampedOffset(fromOffset);
    const double wayRound = direct > 0 ? direct - itemCount : direct + itemCount;
    return std::abs(direct) <= std::abs(wayRound) ? direct : wayRound;
}

int ItemStrip::pageCount() const {
    return itemCount / itemsPerPage + (itemCount % itemsPerPage != 0 ? 1 : 0);
}

int ItemStrip::pageOf(int index) const {
    const bool lastIsDrawnBack = itemsPerPage > 1 && truncatesFinalPage && !wraps && itemCount > 0;
    if (lastIsDrawnBack && index > (itemCount / itemsPerPage - 1) * itemsPerPage) return pageCount() - 1;
    return index / itemsPerPage;
}

double ItemStrip::offsetOfPage(int page) const {
    const double start = clampedOffset(static_cast<double>(page) * itemsPerPage);
    return wraps ? start : std::min(start, largestOffset());
}

int ItemStrip::indexAt(double offset) const {
    return clampedIndex(static_cast<int>(std::round(clampedOffset(offset))));
}

double ItemStrip::lead() const {
    if (alignment == PageAlignment::Edge || !(viewLength > 0)) return 0;
    return (viewLength - itemsPerPage) / 2;
}

double ItemStrip::largestOffset() const {
    const double length = truncatesFinalPage ? itemCount : static_cast<double>(pageCount()) * itemsPerPage;
    const double page = itemsPerPage;
    return std::max(0.0, length - (alignment == PageAlignment::Edge ? std::max(viewLength, page) : page));
}

double ItemStrip::nearestPageStart(double offset) const {
    const double start = std::round(offset / itemsPerPage) * itemsPerPage;
    if (wraps) return start;
    const double last = largestOffset();
    return last - offset < std::abs(start - offset) ? last : std::clamp(start, 0.0, last);
}

double ItemStrip::placeOf(int index, double position) const {
    if (!wraps || itemCount <= 0) return index;
    const double scrollOffset = clampedOffset(position);
    const double round = std::round((position - scrollOffset) / itemCount) * itemCount;
    const double shown = viewLength > 0 ? viewLength : itemsPerPage;
    const double fromMiddle = index + 0.5 - (scrollOffset - lead() + shown / 2);
    // Exactly half the ring away it stays on its side.
    const double roundsAway = std::ceil(std::abs(fromMiddle) / itemCount - 0.5);
    return index + round - std::copysign(roundsAway * itemCount, fromMiddle);
}

double ItemStrip::pageStartAt(double offset) const {
    if (!wraps || itemsPerPage > itemCount) return offset;
    for (int rounds = 0; rounds < itemsPerPage; ++rounds) {
        const double place = offset + static_cast<double>(rounds) * itemCount;
        if (std::fmod(place, itemsPerPage) == 0) return place;
    }
    return offset;
}

std::vector<int> ItemStrip::itemsShownAt(double offset, int margin) const {
    const double start = clampedOffset(offset) - lead();
    double first = std::floor(start + SLIVER) - margin;
    double end = std::ceil(start + viewLength - SLIVER) + margin;
    if (wraps) {
        end = std::min(end, first + itemCount);
    } else {
        first = std::max(first, 0.0);
        end = std::min(end, static_cast<double>(itemCount));
    }
    std::vector<int> items;
    for (double place = first; place < end; ++place) items.push_back(clampedIndex(static_cast<int>(place)));
    return items;
}

}  // namespace vorpel::ui
