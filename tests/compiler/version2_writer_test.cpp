// SPDX-License-Identifier: Apache-2.0
#include "compiler/version2_writer.h"

#include "compiler/dictionary_listing.h"
#include "compiler/dictionary_verifier.h"
#include "compiler/input_error.h"
#include "compiler/random_model.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace vorpel::compiler {
namespace {

using test::RandomModelMaker;
using test::RandomModelShape;
using vorpel::testing::TemporaryFolder;

std::map<std::string, WordEntry> byWord(const std::vector<WordEntry>& entries) {
    std::map<std::string, WordEntry> map;
    for (const WordEntry& entry : entries) EXPECT_TRUE(map.emplace(entry.word, entry).second) << entry.word;
    return map;
}

std::map<std::string, WordEntry> readBack(const std::string& path) {
    std::vector<WordEntry> entries;
    DictionaryListing listing = DictionaryListing::open(path);
    listing.forEachWord([&entries](const WordEntry& entry) { entries.push_back(entry); });
    return byWord(entries);
}

void expectRoundTrip(const DictionaryModel& model) {
    const TemporaryFolder folder;
    const std::vector<uint8_t> bytes = Version2Writer::write(model);
    const std::string path = folder.write("a.dic", test::asText(bytes));
    for (const VerifierFinding& finding : DictionaryVerifier::verify(bytes)) {
        ADD_FAILURE() << finding.position << ": " << finding.message;
    }
    const auto expected = byWord(model.words);
    const auto actual = readBack(path);
    ASSERT_EQ(expected.size(), actual.size());
    for (const auto& [word, entry] : expected) {
        ASSERT_TRUE(actual.contains(word)) << word;
        ASSERT_EQ(entry, actual.at(word)) << word;
    }
}

TEST(Version2WriterTest, RandomDictionariesReadBackAsWritten) {
    const std::u32string latin = U"abcdefghijklmnopqrstuvwxyz'-";
    const std::u32string mixed = U"abéÿĀابتثأ語😀\x01\x1E\x100000";
    const RandomModelShape shapes[] = {
        {.words = 0},
        {.words = 1, .alphabet = U"a", .longestWord = 1},
        {.words = 2, .alphabet = U"ا", .longestWord = 48},
        {.words = 40, .alphabet = U"ab", .longestWord = 6},
        {.words = 48, .alphabet = U"a", .longestWord = 48},
        {.words = 300, .alphabet = mixed, .longestWord = 5},
        {.words = 500, .alphabet = mixed, .longestWord = 48, .bigramsPerWord = 20},
        {.words = 1000, .alphabet = latin, .longestWord = 10, .oneInSpecial = 1},
        // Large enough for offsets of every width.
        {.words = 9000, .alphabet = U"abcdefghijklmnop", .longestWord = 16, .bigramsPerWord = 2},
    };
    uint32_t seed = 1;
    for (const RandomModelShape& shape : shapes) {
        for (int i = 0; i < (shape.words < 1000 ? 8 : 1); ++i) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            expectRoundTrip(RandomModelMaker(seed++).make(shape));
            if (HasFatalFailure()) return;
        }
    }
}

DictionaryModel modelOfSingleLetters(char32_t first, int count) {
    DictionaryModel model;
    for (int i = 0; i < count; ++i) {
        const std::string word = wordengine::utf32ToUtf8(std::u32string(1, first + static_cast<char32_t>(i)));
        model.words.push_back({.word = word, .probability = i % 256});
    }
    return model;
}

TEST(Version2WriterTest, LargeArraysHaveCountsOfTwoBytes) {
    for (const int count : {127, 128, 300, 1000}) expectRoundTrip(modelOfSingleLetters(0x4E00, count));
    EXPECT_TRUE(
        DictionaryVerifier::verify(Version2Writer::write(modelOfSingleLetters(0x10000, 32767))).empty());
    EXPECT_THROW(Version2Writer::write(modelOfSingleLetters(0x10000, 32768)), CompileError);
}

TEST(Version2WriterTest, TheWorkedExampleOfTheFormatsPage) {
    const std::vector<uint8_t> expected = {
        0x9B, 0xC1, 0x3A, 0xFE, 0x00, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00, 0x16,  // fixed part
        'l',  'o',  'c',  'a',  'l',  'e',  0x1F, 'e',  'n',  0x1F,              // one attribute
        0x03,                                                                    // 0: the root, three nodes
        0x54, 'a',  200,  0x18, 0x19, 0x1C,                                      // 1
        0x3A, 'd',  'o',  'n',  't',  0x1F, 0x01, 0x00, 0x09, 0x0F, 'd',  'o',   // 7
        'n',  '\'', 't',  0x1F,                                                  //
        0x10, 0x00, 0x06, 0x48, 210,                                             // 23
        0x01, 0x50, 'n',  190,  0x01,                                            // 28
        0x01, 0x10, 't',  120,                                                   // 33
    };
    EXPECT_EQ(expected, Version2Writer::write(test::smallModel()));
}

void expectRefusal(const DictionaryModel& model, const std::string& reason) {
    try {
        Version2Writer::write(model);
        ADD_FAILURE() << "not refused: " << reason;
    } catch (const CompileError& error) {
        EXPECT_NE(std::string::npos, std::string(error.what()).find(reason)) << error.what();
    }
}

TEST(Version2WriterTest, WhatTheFormatCannotHoldIsRefused) {
    struct Case {
        std::string reason;
        DictionaryModel model;
    };
    const std::string tooLong(49, 'x');
    const std::string tooLongArabic = wordengine::utf32ToUtf8(std::u32string(49, U'ا'));
    WordEntry manyShortcuts{.word = "many"};
    for (int i = 0; i < 1400; ++i) manyShortcuts.shortcuts.push_back({std::string(46, 'y'), 3});
    const Case cases[] = {
        {"more than 48 code points", {{}, {{.word = tooLong}}}},
        {"more than 48 code points", {{}, {{.word = tooLongArabic}}}},
        {"more than 48 code points", {{}, {{.word = "a", .shortcuts = {{tooLong, 1}}}}}},
        {"holds a space", {{}, {{.word = "a b"}}}},
        {"is empty", {{}, {{.word = ""}}}},
        {"is empty", {{}, {{.word = "a", .shortcuts = {{"", 1}}}}}},
        {"not UTF-8", {{}, {{.word = "\xC3"}}}},
        {"U+001F", {{}, {{.word = "a\x1F"}}}},
        {"stands twice", {{}, {{.word = "a"}, {.word = "b"}, {.word = "a"}}}},
        {"256, not 0 to 255", {{}, {{.word = "a", .probability = 256}}}},
        {"-1, not 0 to 255", {{}, {{.word = "a", .probability = -1}}}},
        {"16, not 0 to 15", {{}, {{.word = "a", .shortcuts = {{"b", 16}}}}}},
        {"16, not 0 to 15", {{}, {{.word = "a", .bigrams = {{"a", 16}}}}}},
        {"\"b\", which is no word", {{}, {{.word = "a", .bigrams = {{"b", 1}}}}}},
        {"two bigrams to \"a\"", {{}, {{.word = "a", .bigrams = {{"a", 1}, {"a", 2}}}}}},
        {"more than 65535 bytes", {{}, {manyShortcuts}}},
        {"more than 256 code points", {{{"k", std::string(257, 'v')}}, {}}},
        {"more than 256 code points", {{{std::string(257, 'k'), "v"}}, {}}},
        {"is empty", {{{"k", ""}}, {}}},
        {"stands twice", {{{"k", "v"}, {"k", "w"}}, {}}},
    };
    for (const Case& c : cases) expectRefusal(c.model, c.reason);
}

TEST(Version2WriterTest, WhatJustFitsReadsBack) {
    DictionaryModel model;
    const std::string value = wordengine::utf32ToUtf8(std::u32string(256, U'ا'));
    const std::string longest = wordengine::utf32ToUtf8(std::u32string(48, U'ش'));
    model.attributes = {{std::string(256, 'k'), value}, {"locale", "ar"}};
    WordEntry full{.word = longest, .probability = 255};
    for (int i = 0; i < 1336; ++i) full.shortcuts.push_back({std::string(46, 'y') + (i % 2 ? "a" : "b"), 15});
    model.words = {full,
                   {.word = std::string(48, 'a'), .bigrams = {{longest, 15}, {std::string(48, 'a'), 0}}}};
    expectRoundTrip(model);
}

TEST(Version2WriterTest, OffsetsBeyondThreeBytesAreRefused) {
    // The children of "z" lie behind 16 MiB of shortcuts below "m".
    DictionaryModel model{{}, {{.word = "za"}, {.word = "zb"}}};
    const std::string target = wordengine::utf32ToUtf8(std::u32string(48, U'ش'));
    for (int w = 0; w < 257; ++w) {
        WordEntry entry{.word = "m" + std::to_string(w)};
        entry.shortcuts.assign(448, {target, 1});
        model.words.push_back(std::move(entry));
    }
    expectRefusal(model, "more than three bytes");
}

TEST(Version2WriterTest, AFileIsReplacedAsAWholeOrNotAtAll) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.dic", "old");
    DictionaryModel model{{}, {{.word = "a"}}};
    Version2Writer::writeFile(model, path);
    EXPECT_EQ(1u, readBack(path).size());
    model.words.push_back({.word = "not a word"});
    EXPECT_THROW(Version2Writer::writeFile(model, path), CompileError);
    EXPECT_EQ(1u, readBack(path).size());
    EXPECT_THROW(Version2Writer::writeFile({}, folder.path("none/a.dic")), CompileError);
    EXPECT_EQ(1, std::distance(std::filesystem::directory_iterator(folder.path()), {}));
}

}  // namespace
}  // namespace vorpel::compiler
