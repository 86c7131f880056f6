// SPDX-License-Identifier: Apache-2.0
#include "text/utf.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace wordengine {
namespace {

TEST(Utf8, EveryCharacterComesBack) {
    std::vector<int> all;
    size_t expectedSize = 0;
    for (int c = 0; c <= 0x10FFFF; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF) continue;
        all.push_back(c);
        expectedSize += c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
    }
    const std::string text = codePointsToUtf8(all);
    EXPECT_EQ(expectedSize, text.size());
    EXPECT_TRUE(utf8ToCodePoints(text) == all);
    EXPECT_TRUE(utf8ToCodePointsLenient(text) == all);
    EXPECT_EQ("a\xC3\xAF\xE2\x82\xAC\xF0\x9F\x98\x80", utf32ToUtf8(U"a\u00EF\u20AC\U0001F600"));
    // No character is written as the replacement.
    EXPECT_EQ("\xEF\xBF\xBD\xEF\xBF\xBD", codePointsToUtf8(std::vector<int>{0xDFFF, 0x110000}));
}

TEST(Utf8, BadBytesAreRefusedOrReplaced) {
    const struct {
        std::string text;
        std::u32string lenient;
    } samples[] = {
        {"a\x80z", U"a\uFFFDz"},                            // stray continuation
        {"a\xC3", U"a\uFFFD"},                              // cut short
        {"\xC3z", U"\uFFFDz"},                              // next letter survives
        {"\xE2\x82", U"\uFFFD"},                            // cut short after two
        {"\xE2\x82z", U"\uFFFDz"},                          // the read part is one mark
        {"\xF0\x9F\x98", U"\uFFFD"},                        // cut short after three
        {"\xC0\xAF", U"\uFFFD\uFFFD"},                      // over-long
        {"\xE0\x80\xAF", U"\uFFFD\uFFFD\uFFFD"},            // over-long
        {"\xF0\x80\x80\xAF", U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // over-long
        {"\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD"},            // surrogate
        {"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // above U+10FFFF
        {"\xF8\x88\x80\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xFF", U"\uFFFD"},
        {"\xE2\xC3\xA9", U"\uFFFD\u00E9"},  // a character right behind
    };
    for (const auto& sample : samples) {
        EXPECT_FALSE(isValidUtf8(sample.text));
        EXPECT_FALSE(utf8ToUtf32(sample.text));
        EXPECT_FALSE(utf8ToCodePoints(sample.text));
        EXPECT_EQ(sample.lenient, utf8ToUtf32Lenient(sample.text));
    }
}

TEST(Utf8, RandomBytesNeverDisagree) {
    std::mt19937 random(20260101);
    // Mostly bytes with a meaning in longer sequences, or else all is ASCII and strays.
    const std::string bytes = "az\x80\x8F\x90\x9F\xA0\xBF\xC0\xC2\xDF\xE0\xE2\xED\xEF\xF0\xF1\xF4\xF5\xFF";
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 8, '\0');
        for (char& byte : text) byte = bytes[random() % bytes.size()];
        const auto strict = utf8ToCodePoints(text);
        const auto lenient = utf8ToCodePointsLenient(text);
        ASSERT_EQ(isValidUtf8(text), strict.has_value());
        if (strict) {
            ASSERT_EQ(*strict, lenient);
            ASSERT_EQ(text, codePointsToUtf8(*strict));
        } else {
            ASSERT_NE(text, codePointsToUtf8(lenient));
        }
        ASSERT_LE(lenient.size(), text.size());
        ASSERT_TRUE(isValidUtf8(codePointsToUtf8(lenient)));
    }
}

}  // namespace
}  // namespace wordengine
