// SPDX-License-Identifier: Apache-2.0
#include "platform/characters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <thread>

namespace vorpel::platform {
namespace {

using Pieces = std::vector<std::string>;

TEST(Characters, AreWhatPeopleCount) {
    const std::vector<Pieces> texts = {
        {},
        {"a"},
        {"a", "b", " ", "c"},
        {"\r\n", "\n", "\r", "x"},
        {"\n", "\r\n"},
        {std::string(1, '\0'), "a"},
        {"é", "e\u0301", "x"},
        {"n", "a", "e\u0301\u0323", "b"},
        {"👨‍👩‍👧‍👦", "!"},
        {"👍🏽", "👍"},
        {"🇩🇪", "🇫🇷", "🇪"},
        {"1️⃣", "❤️", "❤"},
        {"مُ", "حَ", "مَّ", "د"},
        {"ل", "ا"},
        {"한", "\u1112\u1161\u11ab"},
        {"\u0600x", "y"},
        {"a", "\xff", "b"},
        {"a", "\xe2\x82", "b"},
        {"\xf0\x9f\x91", "👍"},
        {"\x80", "\x80"},
        {"a", "\xc3"},
    };
    for (const Pieces& expected : texts) {
        const std::string text = std::accumulate(expected.begin(), expected.end(), std::string());
        EXPECT_EQ(characters(text), expected);
        EXPECT_EQ(characterCount(text), expected.size());
        EXPECT_EQ(lastCharacter(text), expected.empty() ? "" : expected.back());
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

TEST(Characters, EveryWayOfSplittingAgreesAndLosesNothing) {
    std::mt19937 random(7);
    for (int round = 0; round < 5000; ++round) {
        const std::string text = randomText(random);
        const Pieces pieces = characters(text);
        ASSERT_EQ(std::accumulate(pieces.begin(), pieces.end(), std::string()), text);
        ASSERT_EQ(characterCount(text), pieces.size());
        ASSERT_EQ(lastCharacter(text), pieces.empty() ? "" : pieces.back()) << ::testing::PrintToString(text);
        ASSERT_EQ(withoutLastCharacter(text) + lastCharacter(text), text);
        std::size_t start = 0;
        for (const std::string& piece : pieces) {
            ASSERT_FALSE(piece.empty());
            ASSERT_EQ(characterBoundaryFrom(text, start), start);
            for (std::size_t offset = start + 1; offset <= start + piece.size(); ++offset) {
                ASSERT_EQ(characterBoundaryFrom(text, offset), start + piece.size())
                    << ::testing::PrintToString(text) << " from " << offset;
            }
            start += piece.size();
        }
        ASSERT_EQ(characterBoundaryFrom(text, text.size() + 9), text.size());
    }
}

TEST(Characters, CaseIsMappedInFullAndInNoLocale) {
    struct Row {
        std::string text, upper, lower;
    };
    const std::vector<Row> rows = {
        {"", "", ""},
        {"aZ[`@{0", "AZ[`@{0", "az[`@{0"},
        {"straße", "STRASSE", "straße"},
        {"ﬁn", "FIN", "ﬁn"},
        {"İi", "İI", "i\u0307i"},
        {"ıI", "II", "ıi"},
        {"Éé", "ÉÉ", "éé"},
        {"ΟΔΟΣ", "ΟΔΟΣ", "οδος"},
        {"ŉ", "ʼN", "ŉ"},
        {"ǆǅǄ", "ǄǄǄ", "ǆǆǆ"},
        {"مرحبا 👍", "مرحبا 👍", "مرحبا 👍"},
        {"a\xff"
         "é\xe2\x82"
         "B",
         "A\xff"
         "É\xe2\x82"
         "B",
         "a\xff"
         "é\xe2\x82"
         "b"},
        {std::string("a\0é", 4), std::string("A\0É", 4), std::string("a\0é", 4)},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(uppercased(row.text), row.upper) << row.text;
        EXPECT_EQ(lowercased(row.text), row.lower) << row.text;
    }
}

TEST(Characters, ThreadsDoNotDisturbEachOther) {
    std::mt19937 random(11);
    std::vector<std::string> texts(200);
    for (std::string& text : texts) text = randomText(random);
    std::vector<Pieces> expected;
    for (const std::string& text : texts) expected.push_back(characters(text));
    std::vector<int> faults(4);
    std::vector<std::thread> threads;
    for (int& fault : faults) {
        threads.emplace_back([&] {
            for (std::size_t at = 0; at < texts.size(); ++at) fault += characters(texts[at]) != expected[at];
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(faults, std::vector<int>(4));
}

}  // namespace
}  // namespace vorpel::platform
