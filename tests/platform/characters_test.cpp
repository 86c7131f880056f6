// SPDX-License-Identifier: Apache-2.0
#include "platform/characters.h"

#include "platform/plain_text_field.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <iterator>
#include <numeric>
#include <random>

namespace vorpel::platform {
namespace {

using Pieces = std::vector<std::string>;

TEST(Characters, AreWhatPeopleCount) {
    const std::vector<Pieces> texts = {
        {"\r\n", "\n", "\r", "x"}, {std::string(1, '\0'), "a"},
        {"é", "e\u0301", "x"},     {"👨‍👩‍👧‍👦", "!"},
        {"👍🏽", "👍"},         {"🇩🇪", "🇫🇷", "🇪"},
        {"مُ", "حَ", "مَّ", "د"},      {"한", "\u1112\u1161\u11ab"},
        {"\xf0\x9f\x91", "👍"},     {"a", "\xff", "b", "\xc3"},
    };
    for (const Pieces& expected : texts) {
        const std::string text = std::accumulate(expected.begin(), expected.end(), std::string());
        EXPECT_EQ(characters(text), expected);
    }
}

/// Pieces that join, part and damage each other when they meet.
const Pieces PARTS = {"a",    "Z",      "\r",       "\n",           "\u0301", "\u200d", "👨",      "👩",
                      "🇩",    "\u064e", "ش",        "\u0600",       "ß",      "\u1161", "\ufe0f", "🏽",
                      "\x80", "\xe2",   "\xf0\x9f", "\xed\xa0\x80", "\xff",   "مَّ",      "word ",  ""};

std::string randomText(std::mt19937& random) {
    std::string text;
    for (unsigned count = random() % 12; count > 0; --count) text += PARTS[random() % PARTS.size()];
    return text;
}

void expectEveryWayOfSplittingAgrees(const std::string& text) {
    SCOPED_TRACE(::testing::PrintToString(text));
    const Pieces pieces = characters(text);
    EXPECT_EQ(std::accumulate(pieces.begin(), pieces.end(), std::string()), text);
    EXPECT_EQ(characterCount(text), pieces.size());
    EXPECT_EQ(lastCharacter(text), pieces.empty() ? "" : pieces.back());
    EXPECT_EQ(withoutLastCharacter(text) + lastCharacter(text), text);
    std::size_t start = 0;
    for (const std::string& piece : pieces) {
        EXPECT_FALSE(piece.empty());
        EXPECT_EQ(characterBoundaryFrom(text, start), start);
        for (std::size_t offset = start + 1; offset <= start + piece.size(); ++offset) {
            EXPECT_EQ(characterBoundaryFrom(text, offset), start + piece.size()) << "from " << offset;
        }
        start += piece.size();
    }
    EXPECT_EQ(characterBoundaryFrom(text, text.size() + 9), text.size());
}

TEST(Characters, EveryWayOfSplittingAgreesAndLosesNothing) {
    std::mt19937 random(5);
    for (int round = 0; round < 5000; ++round) expectEveryWayOfSplittingAgrees(randomText(random));
}

TEST(Characters, CaseIsMappedInFullAndInNoLocale) {
    struct Row {
        std::string text, upper, lower;
    };
    const std::vector<Row> rows = {
        {"aZ[`@{0", "AZ[`@{0", "az[`@{0"},
        {"straße", "STRASSE", "straße"},
        {"İi", "İI", "i\u0307i"},
        {"ΟΔΟΣ", "ΟΔΟΣ", "οδος"},
        {"z\xffzé\xe2\x82Z", "Z\xffZÉ\xe2\x82Z", "z\xffzé\xe2\x82z"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(uppercased(row.text), row.upper) << row.text;
        EXPECT_EQ(lowercased(row.text), row.lower) << row.text;
    }
}

/// The same field as a list of characters, split anew after each change.
struct ListField {
    Pieces list;
    std::size_t cursor = 0;

    [[nodiscard]] std::string joined(std::size_t from, std::size_t to) const {
        std::string text;
        for (std::size_t i = from; i < to; ++i) text += list[i];
        return text;
    }
    [[nodiscard]] std::string before() const { return joined(0, cursor); }
    [[nodiscard]] std::string after() const { return joined(cursor, list.size()); }
    void set(const std::string& before, const std::string& after) {
        list = characters(before + after);
        cursor = 0;
        for (std::size_t size = 0; size < before.size(); ++cursor) size += list[cursor].size();
    }
    void moveTo(std::int64_t position) {
        cursor = std::clamp<std::int64_t>(position, 0, static_cast<std::int64_t>(list.size()));
    }
};

void changeBoth(PlainTextField& field, ListField& model, std::mt19937& random) {
    static constexpr int OFFSETS[] = {INT_MIN, -4, -3, -2, -1, 0, 1, 2, 3, 4, INT_MAX};
    const std::string& part = PARTS[random() % PARTS.size()];
    const int offset = OFFSETS[random() % std::size(OFFSETS)];
    const unsigned position = random() % 20;
    switch (random() % 6) {
        case 0:
            field.deleteBackward();
            if (model.cursor > 0) model.set(model.joined(0, model.cursor - 1), model.after());
            break;
        case 1:
            field.adjustTextPositionByCharacterOffset(offset);
            model.moveTo(static_cast<std::int64_t>(model.cursor) + offset);
            break;
        case 2:
            field.setCursor(position);
            model.moveTo(position);
            break;
        default:
            field.insertText(part);
            model.set(model.before() + part, model.after());
    }
}

TEST(PlainTextField, BehavesLikeAListOfCharacters) {
    for (unsigned seed = 0; seed < 40; ++seed) {
        std::mt19937 random(seed);
        PlainTextField field;
        ListField model;
        for (int step = 0; step < 150; ++step) {
            changeBoth(field, model, random);
            ASSERT_EQ(field.text(), model.before() + model.after());
            ASSERT_EQ(field.cursor(), model.cursor);
            ASSERT_EQ(field.documentContextBeforeInput().value_or(""), model.before());
            ASSERT_EQ(field.documentContextAfterInput().value_or(""), model.after());
            ASSERT_EQ(field.documentContextAfterInput().has_value(), !model.after().empty());
        }
    }
}

}  // namespace
}  // namespace vorpel::platform
