// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info.h"

#include "layouts.h"
#include "proximity/proximity_info_utils.h"
#include "text/char_utils.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <map>
#include <random>

namespace wordengine {
namespace {

/// The bare centre of a key, by the plain formulas.
int plainCenterX(const Layout& layout, int k) {
    return layout.hasSweetSpots ? static_cast<int>(layout.sweetXs[k]) : layout.xs[k] + layout.widths[k] / 2;
}

int plainCenterY(const Layout& layout, int k, bool isGeometric) {
    const int middle = layout.ys[k] + layout.heights[k] / 2;
    if (!layout.hasSweetSpots) return middle;
    if (!isGeometric) return static_cast<int>(layout.sweetYs[k]);
    return static_cast<int>(static_cast<float>(middle) +
                            (layout.sweetYs[k] - static_cast<float>(middle)) * 0.5f);
}

double plainDistance(const Layout& layout, int k, int x, int y, bool isGeometric) {
    double dx = x - plainCenterX(layout, k);
    const double slack = layout.widths[k] > layout.keyWidth ? (layout.widths[k] - layout.keyWidth) / 2 : 0;
    dx = x == -1 ? dx : std::max(0.0, std::fabs(dx) - slack);
    const int centerY = plainCenterY(layout, k, isGeometric);
    double dy = y - centerY;
    if (y != -1 && centerY + layout.heights[k] > layout.height && dy > 0) dy = 0;
    return (dx * dx + dy * dy) / (static_cast<double>(layout.keyWidth) * layout.keyWidth);
}

TEST(ProximityInfoModel, distancesOfRandomLayoutsFollowThePlainFormulas) {
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        const Layout layout = randomLayout(random);
        const auto info = layout.build();
        std::uniform_int_distribution<int> anyX(-1, layout.width + 50);
        std::uniform_int_distribution<int> anyY(-1, layout.height + 50);
        for (int k = 0; k < layout.keyCount(); ++k) {
            const int x = anyX(random);
            const int y = anyY(random);
            for (const bool isGeometric : {false, true}) {
                const double expected = plainDistance(layout, k, x, y, isGeometric);
                EXPECT_NEAR(info->getNormalizedSquaredDistanceFromCenterFloatG(k, x, y, isGeometric),
                            expected, 1e-4 * (1 + expected));
            }
            const int other = std::uniform_int_distribution<int>(0, layout.keyCount() - 1)(random);
            const double apart =
                std::hypot(plainCenterX(layout, k) - plainCenterX(layout, other),
                           plainCenterY(layout, k, true) - plainCenterY(layout, other, true));
            EXPECT_NEAR(info->getKeyKeyDistanceG(k, other), std::floor(apart), 1e-9) << apart;
            EXPECT_EQ(info->getKeyKeyDistanceG(k, other), info->getKeyKeyDistanceG(other, k));
        }
    }
}

TEST(ProximityInfoModel, codePointsFindTheLastKeyWithTheirSmallLetter) {
    std::mt19937 random(11);
    for (int round = 0; round < 20; ++round) {
        const Layout layout = randomLayout(random);
        const auto info = layout.build();
        std::map<int, int> keys;
        for (int k = 0; k < layout.keyCount(); ++k) keys[CharUtils::toLowerCase(layout.codes[k])] = k;
        for (int c = -3; c < 0x3000; ++c) {
            const auto found = keys.find(CharUtils::toLowerCase(c));
            EXPECT_EQ(info->getKeyIndexOf(c), found != keys.end() ? found->second : NO_INDEX) << c;
        }
    }
}

/// A point's list, put together slot by slot out of the layout's vectors.
std::vector<int> plainProximities(const Layout& layout, const ProximityInfo& info, int primary, int x,
                                  int y) {
    std::vector<int> slots{primary};
    const long cell = static_cast<long>(y / layout.cellHeight()) * layout.gridWidth + x / layout.cellWidth();
    for (long i = cell * 16; x != -1 && y != -1 && cell >= 0 && i < cell * 16 + 16; ++i) {
        if (i >= static_cast<long>(layout.chars.size())) break;
        const int c = layout.chars[static_cast<size_t>(i)];
        if (c < 32 || c == primary || slots.size() == 16) continue;
        const int k = info.getKeyIndexOf(c);
        const bool isOn = x >= layout.xs[k] && x <= layout.xs[k] + layout.widths[k] && y >= layout.ys[k] &&
                          y < layout.ys[k] + layout.heights[k];
        const long dx = x - std::clamp(x, layout.xs[k], layout.xs[k] + layout.widths[k]);
        const long dy = y - std::clamp(y, layout.ys[k], layout.ys[k] + layout.heights[k]);
        if (isOn || dx * dx + dy * dy < static_cast<long>(layout.keyWidth) * layout.keyWidth) {
            slots.push_back(c);
        }
    }
    slots.resize(16, NO_CODE_POINT);
    return slots;
}

TEST(ProximityList, randomPointsListTheNearKeysInTheOrderOfTheirCell) {
    std::mt19937 random(3);
    int longest = 0;
    for (int round = 0; round < 60; ++round) {
        const Layout layout = randomLayout(random);
        const auto info = layout.build();
        std::uniform_int_distribution<int> anyX(-1, layout.width * 5 / 4);
        std::uniform_int_distribution<int> anyY(-1, layout.height * 5 / 4);
        for (int point = 0; point < 50; ++point) {
            const int x = anyX(random);
            const int y = anyY(random);
            const int primary = layout.keyCount() > 0 ? layout.codes[0] : 'a';
            std::vector<int> slots(16, 77);
            ProximityInfoUtils::buildProximityCodePoints(*info, primary, x, y, slots.data());
            EXPECT_EQ(slots, plainProximities(layout, *info, primary, x, y)) << x << ", " << y;
            longest = std::max(longest, 16 - static_cast<int>(std::count(slots.begin(), slots.end(), -1)));
        }
    }
    EXPECT_EQ(longest, 16) << "no list was ever full";
}

TEST(ProximityInfoEdges, unusableSizesGiveALayoutThatAnswers) {
    std::mt19937 random(5);
    const int extremes[] = {INT_MIN, -1, 0, 1, 3, 1 << 30, INT_MAX};
    const auto pick = [&] { return extremes[std::uniform_int_distribution<size_t>(0, 6)(random)]; };
    const float reals[] = {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                           -3e38f, 0.5f, 1e9f};
    for (int round = 0; round < 200; ++round) {
        Layout layout;
        for (int* size : {&layout.width, &layout.height, &layout.gridWidth, &layout.gridHeight,
                          &layout.keyWidth, &layout.keyHeight}) {
            *size = pick();
        }
        layout.chars.assign(40, 'a');
        for (int k = 0; k < 3; ++k) {
            layout.addKey(0, 0, 0, 0, k == 0 ? 'a' : pick());
            for (auto* column : {&layout.xs, &layout.ys, &layout.widths, &layout.heights}) {
                column->back() = pick();
            }
            layout.sweetXs.back() = reals[random() % 5];
            layout.sweetYs.back() = reals[random() % 5];
        }
        const auto info = layout.build();
        int slots[16];
        for (const int x : extremes) {
            ProximityInfoUtils::buildProximityCodePoints(*info, 'e', x, -(x / 2), slots);
            EXPECT_EQ(slots[0], 'e');
            info->hasSpaceProximity(x, 1);
            EXPECT_FALSE(std::isnan(info->getNormalizedSquaredDistanceFromCenterFloatG(0, x, 7, true)));
        }
    }
}

TEST(ProximityInfoEdges, keysBeyondTheLimitAndMissingArrays) {
    Layout layout = qwertyLayout();
    for (int k = layout.keyCount(); k < 70; ++k) layout.addKey(k * 10, 0, 10, 10, 0x10000 + k);
    const auto info = layout.build();
    EXPECT_EQ(info->getKeyCount(), 64);
    EXPECT_EQ(info->getCodePointOf(64), NO_CODE_POINT);
    EXPECT_EQ(info->getKeyIndexOf(0x10000 + 63), 63);
    EXPECT_EQ(info->getKeyIndexOf(0x10000 + 65), NO_INDEX);
    const ProximityInfo bare("en", 700, 100, 4, 4, 10, 10, nullptr, 64, 5, layout.xs.data(), nullptr, nullptr,
                             nullptr, layout.codes.data(), nullptr, nullptr, nullptr);
    EXPECT_FALSE(bare.hasTouchPositionCorrectionData());
    EXPECT_EQ(bare.getKeyCenterXOfKeyIdG(2, NO_COORDINATE, false), 200);
    const ProximityInfo keyless(nullptr, 700, 100, 4, 4, 10, 10, nullptr, 0, -3, nullptr, nullptr, nullptr,
                                nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(keyless.getKeyIndexOf('a'), NO_INDEX);
}

}  // namespace
}  // namespace wordengine
