// SPDX-License-Identifier: Apache-2.0
#include "ui/item_strip.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <set>
#include <vector>

namespace vorpel::ui {
namespace {

constexpr int COPIES = 12;  // of the ring on each side; no place in the test lies farther

/// The index or offset moved by whole rounds until it lies on the ring.
template <typename Number>
Number onRing(Number place, int count) {
    while (place < 0) place += count;
    while (place >= count) place -= count;
    return place;
}

/// The items of which a part lies in the window, all copies of the ring laid side by side.
std::set<int> shownAt(const ItemStrip& strip, double offset) {
    const double start = offset - strip.lead();
    const int copies = strip.wraps ? COPIES : 0;
    std::set<int> shown;
    for (int place = -copies * strip.itemCount; place < (copies + 1) * strip.itemCount; ++place) {
        if (place + 1 <= start || place >= start + strip.viewLength) continue;
        shown.insert(onRing(place, strip.itemCount));
    }
    return shown;
}

TEST(ItemStrip, AgreesWithAPlainModel) {
    std::mt19937 random(8);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    for (int round = 0; round < 5000; ++round) {
        const ItemStrip strip{.itemCount = 1 + upTo(11),
                              .itemsPerPage = 1 + upTo(3),
                              .truncatesFinalPage = upTo(1) == 1,
                              .wraps = upTo(1) == 1,
                              .alignment = upTo(1) == 1 ? PageAlignment::Edge : PageAlignment::Center,
                              .viewLength = (1 + upTo(39)) / 8.0};
        const int count = strip.itemCount;
        const int perPage = strip.itemsPerPage;
        const int index = upTo(60) - 30;
        const double offset = (upTo(480) - 240) / 8.0;
        const double inside = upTo(8 * (count - 1)) / 8.0;
        SCOPED_TRACE(::testing::Message() << count << " by " << perPage << " wraps " << strip.wraps << " at "
                                          << index << ' ' << offset << ' ' << inside);
        const double clamped = strip.clampedOffset(offset);
        EXPECT_EQ(strip.clampedIndex(index),
                  strip.wraps ? onRing(index, count) : std::clamp(index, 0, count - 1));
        EXPECT_EQ(clamped, strip.wraps ? onRing(offset, count) : std::clamp(offset, 0.0, count - 1.0));
        double shortest = clamped - inside;
        for (const double way : {shortest - count, shortest + count}) {
            if (strip.wraps && std::abs(way) < std::abs(shortest)) shortest = way;
        }
        EXPECT_EQ(strip.minScrollDistanceFromOffset(inside, clamped), shortest);

        const auto shown = strip.itemsShownAt(inside);
        EXPECT_EQ(std::set<int>(shown.begin(), shown.end()), shownAt(strip, inside));
        EXPECT_EQ(std::set<int>(shown.begin(), shown.end()).size(), shown.size()) << "each once";
        const double middle = offset - strip.lead() + strip.viewLength / 2;
        for (int item = 0; item < count; ++item) {
            const double place = strip.placeOf(item, offset);
            EXPECT_EQ(onRing(place, count), item);
            EXPECT_TRUE(!strip.wraps || std::abs(place + 0.5 - middle) <= count / 2.0);
        }

        const bool isEdge = strip.alignment == PageAlignment::Edge;
        const double filled = isEdge ? std::max<double>(perPage, strip.viewLength) : perPage;
        const int length = strip.truncatesFinalPage ? count : (count + perPage - 1) / perPage * perPage;
        const double end = std::max(0.0, length - filled);
        std::vector<double> starts;
        for (int start = 0; start < count; start += perPage) {
            starts.push_back(strip.wraps ? start : std::min<double>(start, end));
            EXPECT_EQ(strip.offsetOfPage(start / perPage), starts.back());
            const bool isKept = starts.back() == start || (strip.truncatesFinalPage && filled == perPage);
            EXPECT_TRUE(!isKept || strip.pageOf(strip.indexAt(starts.back())) == start / perPage);
        }
        EXPECT_EQ(strip.pageCount(), static_cast<int>(starts.size()));
        if (strip.wraps) {
            const double start = strip.pageStartAt(clamped);
            EXPECT_EQ(onRing(start, count), clamped);
            EXPECT_TRUE(std::fmod(start, perPage) == 0 || std::fmod(clamped, std::gcd(count, perPage)) != 0 ||
                        perPage > count);
        } else {
            EXPECT_EQ(strip.largestOffset(), end);
            starts.push_back(end);
            const double nearest = strip.nearestPageStart(inside);
            EXPECT_NE(std::ranges::find(starts, nearest), starts.end());
            for (const double start : starts) EXPECT_LE(std::abs(nearest - inside), std::abs(start - inside));
        }
    }
}

}  // namespace
}  // namespace vorpel::ui
