// SPDX-License-Identifier: Apache-2.0
#include "text/char_utils.h"

#include "text/utf.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace wordengine {
namespace {

TEST(SmallLetters, AgreeWithAWalkOverThePairs) {
    std::vector<int> expected(0x10000);
    for (int c = 0; c <= 0xFFFF; ++c) expected[c] = c;
    for (const auto& pair : SORTED_CHAR_MAP) expected[pair.capital] = pair.small;
    for (int c = 0; c <= 0xFFFF; ++c) {
        ASSERT_EQ(expected[c], CharUtils::latin_tolower(static_cast<uint16_t>(c))) << std::hex << c;
    }
}

TEST(SmallLetters, SamplesOfEachScript) {
    const std::pair<int, int> samples[] = {
        {'Z', 'z'},       {'[', '['},         {0xC4, 0xE4},     {0xD7, 0xD7},       {0xDF, 0xDF},
        {0x0130, 'i'},    {0x0178, 0xFF},     {0x01C4, 0x01C6}, {0x0391, 0x03B1},   {0x0410, 0x0430},
        {0x04C0, 0x04CF}, {0x0531, 0x0561},   {0x0627, 0x0627}, {0x10A0, 0x2D00},   {0x1E9E, 0xDF},
        {0x1F88, 0x1F80}, {0x212A, 'k'},      {0x2160, 0x2170}, {0x24B6, 0x24D0},   {0x2C62, 0x026B},
        {0xA640, 0xA641}, {0xA78D, 0x0265},   {0xFF21, 0xFF41}, {0x10400, 0x10400}, {0x100C4, 0x100C4},
        {-1, -1},         {INT_MAX, INT_MAX},
    };
    for (const auto& [capital, small] : samples) {
        EXPECT_EQ(small, CharUtils::toLowerCase(capital)) << std::hex << capital;
    }
}

TEST(BaseLetters, SamplesOfEachKind) {
    const std::pair<int, int> samples[] = {
        {'A', 'A'},       {0xB2, '2'},        {0xE9, 'e'},      {0xD8, 'O'},      {0xDF, 's'},
        {0xC6, 0xC6},     {0x0130, 'I'},      {0x0142, 'l'},    {0x01C4, 'D'},    {0x0385, 0xA8},
        {0x0401, 0x0415}, {0x0419, 0x0419},   {0x0500, 0x0500}, {0x1EA4, 0x1EA4}, {0x0623, 0x0623},
        {-1, -1},         {INT_MIN, INT_MIN},
    };
    for (const auto& [codePoint, base] : samples) {
        EXPECT_EQ(base, CharUtils::toBaseCodePoint(codePoint)) << std::hex << codePoint;
    }
}

TEST(BaseLetters, FoldingTwiceChangesNothingButForLettersWithTwoSteps) {
    std::set<int> changing;
    for (int c = 0; c <= 0x10FFFF; ++c) {
        const int once = CharUtils::toBaseLowerCase(c);
        if (CharUtils::toBaseLowerCase(once) != once) changing.insert(c);
    }
    // Greek letters that lose one of two marks, the capital sharp s, the Angstrom sign.
    EXPECT_EQ((std::set<int>{0x0385, 0x0390, 0x03B0, 0x03D3, 0x03D4, 0x1E9E, 0x212B}), changing);
}

TEST(BaseLetters, CapitalAndSmallLetterFoldAlike) {
    std::set<int> different;
    for (const auto& pair : SORTED_CHAR_MAP) {
        if (CharUtils::toBaseLowerCase(pair.capital) != CharUtils::toBaseLowerCase(pair.small)) {
            different.insert(pair.capital);
        }
    }
    // The lunate sigma, whose small form is one of the final sigma, and the two of above.
    EXPECT_EQ((std::set<int>{0x03F9, 0x1E9E, 0x212B}), different);
}

class CodePointsToUtf8Test : public testing::Test {
protected:
    /// Converts into a buffer of exactly `size` bytes, so that the sanitizer sees one byte too many.
    std::string convert(const std::vector<int>& codePoints, int size) {
        std::vector<char> out(static_cast<size_t>(size), '#');
        const int length = CharUtils::codePointsToUtf8(codePoints.data(), static_cast<int>(codePoints.size()),
                                                       out.data(), size);
        EXPECT_LT(length, size);
        EXPECT_EQ('\0', out[static_cast<size_t>(length)]);
        return std::string(out.data(), static_cast<size_t>(length));
    }
};

TEST_F(CodePointsToUtf8Test, NeverSplitsCharacterAtAnySize) {
    const std::vector<int> word = {'a', 0xE9, 0x0643, 0x20AC, 0x1F600, 'z', 0x10FFFF};
    const std::string whole = codePointsToUtf8(word);
    std::vector<size_t> ends = {0};
    for (size_t count = 1; count <= word.size(); ++count) {
        ends.push_back(codePointsToUtf8(std::vector<int>(word.begin(), word.begin() + count)).size());
    }
    for (int size = 1; size <= static_cast<int>(whole.size()) + 3; ++size) {
        size_t expectedLength = 0;
        for (const size_t end : ends) {
            if (end <= static_cast<size_t>(size) - 1) expectedLength = end;
        }
        EXPECT_EQ(whole.substr(0, expectedLength), convert(word, size)) << size;
    }
}

TEST_F(CodePointsToUtf8Test, StopsAtZeroAndMarksWhatIsNoCharacterAsInvalid) {
    EXPECT_EQ("ab", convert({'a', 'b', 0, 'c'}, 50));
    for (const int codePoint :
         {0xD800, 0xDFFF, 0x110000, 0x1EFFFF, 0x1FFFFF, 0x200000, INT_MAX, -1, INT_MIN}) {
        EXPECT_FALSE(isValidUtf8(convert({'a', codePoint, 'b'}, 50))) << std::hex << codePoint;
    }
}

}  // namespace
}  // namespace wordengine
