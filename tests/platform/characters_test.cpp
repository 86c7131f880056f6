// SPDX-License-Identifier: Apache-2.0
#include "platform/characters.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <thread>

namespace vorpel::platform {
namespace {

using Pieces = std::vector<std::string>;

TEST(Characters, AreWhatPeopleCount) {
    const std::vector<Pieces> texts = {
        {},
        {"a", "b", " ", "c"},
        {"\r\n", "\n", "\r", "x"},
        {std::string(1, '\0'), "a"},
        {"é", "e\u0301", "x"},
        {"👨‍👩‍👧‍👦", "!"},
        {"👍🏽", "👍"},
        {"🇩🇪", "🇫🇷", "🇪"},
        {"مُ", "حَ", "مَّ", "د"},
        {"한", "\u1112\u1161\u11ab"},
        {"a", "\xff", "b"},
        {"\xf0\x9f\x91", "👍"},
        {"a", "\xc3"},
    };
    for (const Pieces& expected : texts) {
        const std::string text = std::accumulate(expected.begin(), expected.end(), std::string());
        EXPECT_EQ(characters(text), expected);
    }
}

/// Pieces that join, part and damage each other when they meet.
std::string randomText(std::mt19937& random) {
    static const Pieces PARTS = {
        "a",    "Z",      "\r",       "\n",           "\u0301", "\u200d", "👨",      "👩",
        "🇩",    "\u064e", "ش",        "\u0600",       "ß",      "\u1161", "\ufe0f", "🏽",
        "\x80", "\xe2",   "\xf0\x9f", "\xed\xa0\x80", "\xff"};
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

/// On several threads, which must not disturb each other.
TEST(Characters, EveryWayOfSplittingAgreesAndLosesNothing) {
    std::vector<std::thread> threads;
    for (unsigned seed = 0; seed < 4; ++seed) {
        threads.emplace_back([seed] {
            std::mt19937 random(seed);
            for (int round = 0; round < 1250; ++round) expectEveryWayOfSplittingAgrees(randomText(random));
        });
    }
    for (std::thread& thread : threads) thread.join();
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
        {"مرحبا 👍", "مرحبا 👍", "مرحبا 👍"},
        {"z\xffzé\xe2\x82Z", "Z\xffZÉ\xe2\x82Z", "z\xffzé\xe2\x82z"},
        {std::string("a\0é", 4), std::string("A\0É", 4), std::string("a\0é", 4)},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(uppercased(row.text), row.upper) << row.text;
        EXPECT_EQ(lowercased(row.text), row.lower) << row.text;
    }
}

}  // namespace
}  // namespace vorpel::platform
