// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info.h"

#include "layouts.h"
#include "proximity/additional_proximity_chars.h"
#include "proximity/proximity_info_utils.h"
#include "proximity/touch_position_correction_utils.h"
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
        for (int k = -2; k < 70; ++k) {
            const bool isKey = k >= 0 && k < layout.keyCount();
            EXPECT_EQ(info->getOriginalCodePointOf(k), isKey ? layout.codes[k] : NO_CODE_POINT);
            EXPECT_EQ(info->getCodePointOf(k),
                      isKey ? CharUtils::toLowerCase(layout.codes[k]) : NO_CODE_POINT);
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

TEST(ProximityList, slotsOnAKeyboard) {
    const Layout layout = qwertyLayout();
    const auto info = layout.build();
    const auto listOf = [&](int primary, int x, int y) {
        std::vector<int> slots(16, 77);
        ProximityInfoUtils::buildProximityCodePoints(*info, primary, x, y, slots.data());
        return slots;
    };
    const std::vector<int> onG = listOf('g', layout.centerX('g'), layout.centerY('g'));
    EXPECT_EQ(onG[0], 'g');
    const auto lists = [&](int c) { return std::count(onG.begin(), onG.end(), c); };
    for (const char near : {'f', 'h', 't', 'y', 'v', 'b'}) EXPECT_EQ(lists(near), 1) << near;
    for (const char far : {'q', 'p', 's', 'l', ' '}) EXPECT_EQ(lists(far), 0) << far;
    EXPECT_EQ(lists('g'), 1) << "the typed letter stands in the first slot only";
    EXPECT_EQ(lists(ADDITIONAL_CHARS_DELIMITER), 0) << "no locale is kept, so it offers nothing";

    std::vector<int> onlyTyped(16, NO_CODE_POINT);
    onlyTyped[0] = 'e';
    EXPECT_EQ(listOf('e', -1, 30), onlyTyped);
    EXPECT_EQ(listOf('e', 30, -1), onlyTyped);
    EXPECT_EQ(listOf('e', 30, -200), onlyTyped) << "a cell above the grid";
    EXPECT_EQ(listOf('e', 10000, 10000), onlyTyped) << "a cell below the grid";
    EXPECT_EQ(listOf('e', INT_MAX, INT_MAX), onlyTyped);

    EXPECT_TRUE(info->hasSpaceProximity(500, 440));
    EXPECT_FALSE(info->hasSpaceProximity(500, 100));
    EXPECT_FALSE(info->hasSpaceProximity(-1, 440));
    EXPECT_FALSE(info->hasSpaceProximity(500, 10000));
}

TEST(ProximityList, gridOfAnotherSizeThanItsArray) {
    Layout layout = qwertyLayout();
    const std::vector<int> full = layout.chars;
    layout.chars.resize(static_cast<size_t>(3 * 32 * 16 + 5));
    const auto cut = layout.build();
    EXPECT_TRUE(cut->getProximityCharsOfCell(500, 500).empty());
    EXPECT_EQ(cut->getProximityCharsOfCell(5, 3 * layout.cellHeight()).size(), 5u) << "a cell cut in two";
    layout.chars = full;
    layout.chars.insert(layout.chars.end(), 64, 'x');
    const auto extended = layout.build();
    EXPECT_TRUE(extended->getProximityCharsOfCell(5, layout.cellHeight() * 16).empty());
    // By the formula, what lies beyond the right edge is the start of the next row of cells.
    const auto beyond = extended->getProximityCharsOfCell(layout.cellWidth() * 32, 0);
    const auto next = extended->getProximityCharsOfCell(0, layout.cellHeight());
    EXPECT_EQ(beyond.data(), next.data());
}

TEST(ProximityInfoEdges, wideKeysAndTheBottomRow) {
    const Layout layout = qwertyLayout();
    const auto info = layout.build();
    const int space = layout.keyOf(' ');
    const int centerY = layout.centerY(' ');
    struct {
        int x, y;
        float expected;
    } const cases[] = {
        {500, centerY, 0.0f},       {300, centerY, 0.0f},       {700, centerY, 0.0f},
        {200, centerY, 1.0f},       {800, centerY, 1.0f},       {500, centerY + 500, 0.0f},
        {500, centerY - 50, 0.25f}, {750, centerY + 40, 0.25f},
    };
    for (const auto& touch : cases) {
        EXPECT_FLOAT_EQ(info->getNormalizedSquaredDistanceFromCenterFloatG(space, touch.x, touch.y, false),
                        touch.expected)
            << touch.x << ", " << touch.y;
    }
    EXPECT_EQ(info->getKeyCenterXOfKeyIdG(-1, 5, false), 0);
    EXPECT_EQ(info->getKeyCenterYOfKeyIdG(-1, 5, false), 0);
    EXPECT_EQ(info->getKeyKeyDistanceG(-1, 3), 10000000);
    EXPECT_EQ(info->getKeyKeyDistanceG(3, -1), 10000000);
    EXPECT_EQ(info->getKeyKeyDistanceG(layout.keyOf('q'), layout.keyOf('r')), 300);
}

TEST(ProximityInfoEdges, keyRectangles) {
    const int xs[] = {100, 100};
    const int ys[] = {50, 50};
    const int widths[] = {20, -1};
    const int heights[] = {10, 10};
    struct {
        int x, y;
        bool isOn;
        int squaredLength;
    } const cases[] = {
        {100, 50, true, 0},  {99, 50, false, 1},  {120, 59, true, 0},   {121, 59, false, 1},
        {120, 60, false, 0}, {110, 49, false, 1}, {123, 64, false, 25}, {97, 46, false, 25},
    };
    for (const auto& point : cases) {
        EXPECT_EQ(ProximityInfoUtils::isOnKey(xs, ys, widths, heights, 0, point.x, point.y), point.isOn)
            << point.x << ", " << point.y;
        EXPECT_EQ(ProximityInfoUtils::squaredLengthToEdge(xs, ys, widths, heights, 0, point.x, point.y),
                  point.squaredLength)
            << point.x << ", " << point.y;
    }
    EXPECT_TRUE(ProximityInfoUtils::isOnKey(xs, ys, widths, heights, -1, 0, 0));
    EXPECT_FALSE(ProximityInfoUtils::isOnKey(xs, ys, widths, heights, 1, 100, 50)) << "a key without width";
    EXPECT_EQ(ProximityInfoUtils::squaredLengthToEdge(xs, ys, widths, heights, -1, 0, 0), 10000000);
}

TEST(ProximityInfoEdges, unusableSizesGiveALayoutThatAnswers) {
    std::mt19937 random(5);
    const int extremes[] = {INT_MIN, -1, 0, 1, 3, 1 << 30, INT_MAX};
    const auto pick = [&] { return extremes[std::uniform_int_distribution<size_t>(0, 6)(random)]; };
    const float reals[] = {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
                           -3e38f, 0.5f, 1e9f};
    for (int round = 0; round < 200; ++round) {
        Layout layout;
        layout.width = pick();
        layout.height = pick();
        layout.gridWidth = pick();
        layout.gridHeight = pick();
        layout.keyWidth = pick();
        layout.keyHeight = pick();
        layout.chars.assign(40, 'a');
        for (int k = 0; k < 3; ++k) {
            layout.addKey(0, 0, 0, 0, k == 0 ? 'a' : pick());
            layout.xs.back() = pick();
            layout.ys.back() = pick();
            layout.widths.back() = pick();
            layout.heights.back() = pick();
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
    Layout layout;
    layout.width = 700;
    layout.height = 100;
    layout.keyWidth = 10;
    layout.keyHeight = 10;
    for (int k = 0; k < 70; ++k) layout.addKey(k * 10, 0, 10, 10, 0x10000 + k);
    const auto info = layout.build();
    EXPECT_EQ(info->getKeyCount(), 64);
    EXPECT_EQ(info->getCodePointOf(64), NO_CODE_POINT);
    EXPECT_EQ(info->getKeyIndexOf(0x10000 + 65), NO_INDEX);

    const ProximityInfo bare("en", 700, 100, 4, 4, 10, 10, nullptr, 64, 5, layout.xs.data(), nullptr, nullptr,
                             nullptr, layout.codes.data(), nullptr, nullptr, nullptr);
    EXPECT_FALSE(bare.hasTouchPositionCorrectionData());
    EXPECT_TRUE(info->hasTouchPositionCorrectionData());
    EXPECT_EQ(bare.getKeyCenterXOfKeyIdG(2, NO_COORDINATE, false), 20);
    const ProximityInfo keyless(nullptr, 700, 100, 4, 4, 10, 10, nullptr, 0, -3, nullptr, nullptr, nullptr,
                                nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(keyless.getKeyCount(), 0);
    EXPECT_EQ(keyless.getKeyIndexOf('a'), NO_INDEX);
}

TEST(TouchPositionCorrection, factorIsPiecewiseLinear) {
    struct {
        bool isEnabled;
        float distance, factor;
    } const cases[] = {
        {false, 0.3f, 0.3f},  {false, 5.0f, 1.2f},   {false, -1.0f, -1.0f}, {true, -0.1f, 0.0f},
        {true, 0.0f, 0.0f},   {true, 0.125f, 0.12f}, {true, 0.25f, 0.24f},  {true, 0.5f, 0.56f},
        {true, 0.75f, 0.88f}, {true, 1.0f, 1.2f},    {true, 50.0f, 1.2f},
    };
    for (const auto& point : cases) {
        EXPECT_FLOAT_EQ(TouchPositionCorrectionUtils::getSweetSpotFactor(point.isEnabled, point.distance),
                        point.factor)
            << point.isEnabled << " " << point.distance;
    }
}

TEST(AdditionalChars, everyVowelOffersTheOthers) {
    const std::string vowels = "aeiou";
    for (int c = 0; c < 0x200; ++c) {
        const bool isVowel = c < 0x80 && vowels.find(static_cast<char>(c)) != std::string::npos;
        for (const char* locale : {"en", "en_US", "english"}) {
            ASSERT_EQ(AdditionalProximityChars::getAdditionalCharsSize(locale, c), isVowel ? 4 : 0);
            if (!isVowel) continue;
            const int* const chars = AdditionalProximityChars::getAdditionalChars(locale, c);
            std::string others = vowels;
            others.erase(others.find(static_cast<char>(c)), 1);
            EXPECT_EQ(std::string(chars, chars + 4), others);
        }
    }
    for (const char* locale : {"", "e", "fr", "EN"}) {
        EXPECT_EQ(AdditionalProximityChars::getAdditionalCharsSize(locale, 'a'), 0);
        EXPECT_EQ(AdditionalProximityChars::getAdditionalChars(locale, 'a'), nullptr);
    }
    EXPECT_EQ(AdditionalProximityChars::getAdditionalCharsSize(nullptr, 'a'), 0);
}

}  // namespace
}  // namespace wordengine
