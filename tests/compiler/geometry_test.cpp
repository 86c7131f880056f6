// SPDX-License-Identifier: Apache-2.0
#include "compiler/geometry_file_writer.h"
#include "compiler/key_page_layout.h"

#include <gtest/gtest.h>
#include <json/json.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <stdexcept>

namespace vorpel::compiler {
namespace {

KeyFrame keyOf(const KeyPage& page, char32_t codePoint) {
    for (const KeyFrame& key : page.keys) {
        if (key.codePoint == static_cast<int>(codePoint)) return key;
    }
    throw std::runtime_error("no such key");
}

Json::Value parse(const std::string& text) {
    Json::CharReaderBuilder builder;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value value;
    if (!reader->parse(text.data(), text.data() + text.size(), &value, nullptr)) {
        throw std::runtime_error("no JSON");
    }
    return value;
}

struct PlacedKey {
    const char* language;
    double pageWidth;
    char32_t key;
    std::array<double, 4> frame;
};

// Worked out by hand from the rules of the rows.
constexpr PlacedKey PLACED_KEYS[] = {
    {"en", 375, U'Q', {3, 8, 31.5, 43}},      {"en", 375, U'P', {340.5, 8, 31.5, 43}},
    {"en", 375, U'A', {22, 62, 31.5, 43}},    {"en", 375, U'Z', {59.5, 116, 31.5, 43}},
    {"en", 375, U' ', {140, 170, 137.5, 43}}, {"ar", 375, U'ض', {3.5, 8, 28, 43}},
    {"ar", 375, U'ط', {343.5, 62, 28, 43}},   {"ar", 375, U'ذ', {3.5, 116, 28, 43}},
    {"en", 320, U'Q', {3, 12, 26, 39}},       {"en", 320, U'M', {243, 120, 26, 39}},
    {"en", 414, U'Q', {5, 8, 35, 43.5}},
};

TEST(GeometryTest, KeysLieWhereTheRowsPutThem) {
    for (const PlacedKey& expected : PLACED_KEYS) {
        const KeyPage page = layOutKeyPage(expected.language, 0, expected.pageWidth, 216);
        const KeyFrame key = keyOf(page, expected.key);
        EXPECT_EQ((std::array{key.x, key.y, key.width, key.height}), expected.frame)
            << expected.language << " " << expected.pageWidth << " " << static_cast<int>(expected.key);
    }
}

TEST(GeometryTest, CellsListTheSmallLettersWithinReachNearestFirst) {
    const KeyPage page = layOutKeyPage("en", 0, 375, 216);
    const Json::Value file = parse(geometryJson(page, "en_US", LetterCase::Upper));
    const Json::Value& grid = file["proximityCharsArray"];
    ASSERT_EQ(grid.size(), 32U * 16 * 16);
    const double reach = 1.2 * 31.5;
    for (int cell = 0; cell < 32 * 16; ++cell) {
        const double x = (cell % 32 + 0.5) * 12;
        const double y = (cell / 32 + 0.5) * 14;
        const auto distanceTo = [&](const KeyFrame& key) {
            const double dx = std::max({key.x - x, 0.0, x - key.x - key.width});
            const double dy = std::max({key.y - y, 0.0, y - key.y - key.height});
            return std::hypot(dx, dy);
        };
        int within = 0;
        for (const KeyFrame& key : page.keys) within += distanceTo(key) < reach;
        double last = 0;
        int listed = 0;
        for (int slot = 0; slot < 16; ++slot) {
            const int code = grid[cell * 16 + slot].asInt();
            if (code == -1) continue;
            EXPECT_EQ(listed, slot) << "a gap in the list";
            ++listed;
            const bool isSmallOrSpace = (code >= 'a' && code <= 'z') || code == ' ';
            ASSERT_TRUE(isSmallOrSpace) << code;
            const double distance =
                distanceTo(keyOf(page, code == ' ' ? U' ' : static_cast<char32_t>(code - 32)));
            EXPECT_LT(distance, reach);
            EXPECT_GE(distance, last);
            last = distance;
        }
        EXPECT_EQ(listed, std::min(within, 16));
    }
}

TEST(GeometryTest, TheFileHoldsThePageInWholePointsAndItsCentresExactly) {
    const KeyPage page = layOutKeyPage("en", 0, 375, 216);
    const Json::Value lower = parse(geometryJson(page, "en_US", LetterCase::Lower));
    const Json::Value upper = parse(geometryJson(page, "en_US", LetterCase::Upper));
    EXPECT_EQ(lower["keyCharCodes"][0], 'q');
    EXPECT_EQ(upper["keyCharCodes"][0], 'Q');
    EXPECT_EQ(lower["keyboardMinWidth"], 375);
    EXPECT_EQ(lower["mostCommonKeyWidth"], 32);
    EXPECT_EQ(lower["keyCount"].asUInt(), page.keys.size());
    for (Json::ArrayIndex i = 0; i < page.keys.size(); ++i) {
        EXPECT_EQ(lower["sweetSpotCenterXs"][i].asDouble(), page.keys[i].centerX());
        EXPECT_EQ(lower["sweetSpotCenterYs"][i].asDouble(), page.keys[i].centerY());
        EXPECT_GT(lower["sweetSpotRadii"][i].asDouble(), 0);
        EXPECT_NEAR(lower["keyXCoordinates"][i].asDouble(), page.keys[i].x, 0.5);
    }
}

TEST(GeometryTest, LettersOfALongPressLieOnTheirKey) {
    KeyPage page = layOutKeyPage("ar", 0, 375, 216);
    const std::size_t drawn = page.keys.size();
    addHeldLetters("ar", &page);
    ASSERT_EQ(page.keys.size(), drawn + 3);
    const KeyFrame alef = keyOf(page, U'ا');
    const Json::Value file = parse(geometryJson(page, "ar_SA", LetterCase::Lower));
    for (const char32_t letter : {U'أ', U'إ', U'آ'}) {
        EXPECT_EQ(keyOf(page, letter).centerX(), alef.centerX());
        EXPECT_EQ(keyOf(page, letter).centerY(), alef.centerY());
    }
    // Wherever a touch may have meant the alef, it may have meant them.
    const Json::Value& grid = file["proximityCharsArray"];
    int cellsOfAlef = 0;
    for (Json::ArrayIndex cell = 0; cell < grid.size(); cell += 16) {
        std::u32string listed;
        for (Json::ArrayIndex slot = 0; slot < 16; ++slot)
            listed += static_cast<char32_t>(grid[cell + slot].asInt());
        for (const char32_t letter : {U'أ', U'إ', U'آ'}) {
            ASSERT_EQ(listed.find(letter) == listed.npos, listed.find(U'ا') == listed.npos) << cell;
        }
        cellsOfAlef += listed.find(U'ا') != listed.npos;
    }
    EXPECT_GT(cellsOfAlef, 0);
}

TEST(GeometryTest, WhatCannotBeAPageIsRefused) {
    EXPECT_THROW(layOutKeyPage("tlh", 0, 375, 216), std::invalid_argument);
    EXPECT_THROW(layOutKeyPage("en", 9, 375, 216), std::invalid_argument);
    EXPECT_THROW(layOutKeyPage("en", 0, 20, 216), std::invalid_argument);
    EXPECT_THROW(layOutKeyPage("en", 0, 375, 30), std::invalid_argument);
    EXPECT_THROW(geometryJson({375, 216, {}}, "en_US", LetterCase::Lower), std::invalid_argument);
    KeyPage crowded{375, 216, std::vector<KeyFrame>(65, KeyFrame{'a', 0, 0, 5, 5})};
    EXPECT_THROW(geometryJson(crowded, "en_US", LetterCase::Lower), std::invalid_argument);
}

}  // namespace
}  // namespace vorpel::compiler
