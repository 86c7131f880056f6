// SPDX-License-Identifier: Apache-2.0
#include "compiler/dictionary_verifier.h"

#include "compiler/dictionary_listing.h"
#include "compiler/input_error.h"
#include "compiler/random_model.h"
#include "compiler/version2_writer.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <map>

namespace vorpel::compiler {
namespace {

using test::RandomModelMaker;
using vorpel::testing::TemporaryFolder;

std::string findingsAsText(const std::vector<uint8_t>& bytes) {
    std::string text;
    for (const VerifierFinding& finding : DictionaryVerifier::verify(bytes)) {
        text += std::to_string(finding.position) + ": " + finding.message + "\n";
    }
    return text;
}

TEST(DictionaryVerifierTest, NamesEachKindOfDamage) {
    constexpr size_t BODY = 22;
    struct Case {
        size_t position;
        uint8_t value;
        std::string finding;
    };
    const Case cases[] = {
        {0, 0x9A, "0: no dictionary"},
        {5, 3, "4: format version 3"},
        {7, 1, "6: flags that are not 0"},
        {8, 0x7F, "8: a header size of"},
        {11, 21, "an attribute's value does not end inside the header"},
        {12, 0x1F, "12: an attribute's key is empty"},
        {21, 'x', "an attribute's value does not end inside the header"},
        {BODY + 0, 2, "nothing leads to"},
        {BODY + 0, 4, "50: a node that leads to no word"},
        {BODY + 1, 0x10, "22: an array of nodes that does not end inside the file"},
        {BODY + 1, 0x44, "23: marks of a word on a node where no word ends"},
        {BODY + 2, 'd', "22: two nodes of one array begin with the same letter"},
        {BODY + 2, ' ', "a space in a word"},
        {BODY + 2, 0x1F, "a node without letters"},
        {BODY + 4, 0x17, "children inside what was read before"},
        {BODY + 4, 0x19, "50: 1 bytes that nothing leads to"},
        {BODY + 4, 0x80, "26: children outside the file"},
        {BODY + 5, 0x09, "a bigram without an offset"},
        {BODY + 5, 0x59, "28: a bigram that leads to no word"},
        {BODY + 6, 0x1B, "28: a bigram that leads to no word"},
        {BODY + 15, 0x0A, "a shortcut list that ends before its size"},
        {BODY + 15, 0x08, "36: a shortcut list that is longer than its size"},
        {BODY + 15, 0xFF, "36: a shortcut list whose size cannot be"},
        {BODY + 16, 0x1F, "a shortcut with unknown flags"},
        {BODY + 16, 0x8F, "a shortcut list that is longer than its size"},
        {BODY + 17, 0x1F, "an empty shortcut target"},
        {BODY + 24, 0x11, "46: a code point that does not exist"},
        {BODY + 29, 0x40, "a bigram that leads to no word"},
        {BODY + 33, 0x00, "55: an array without nodes"},
        {BODY + 34, 0x00, "56: a node that leads to no word"},
    };
    const std::vector<uint8_t> sound = Version2Writer::write(test::smallModel());
    ASSERT_EQ("", findingsAsText(sound));
    for (const Case& c : cases) {
        std::vector<uint8_t> damaged = sound;
        damaged[c.position] = c.value;
        EXPECT_NE(std::string::npos, findingsAsText(damaged).find(c.finding))
            << "byte " << c.position << ", wanted \"" << c.finding << "\", got\n"
            << findingsAsText(damaged);
    }
}

/// A file that passes must be readable as a whole: each word once, each found under its own name.
void expectHarmless(const std::string& path, const std::string& what) {
    std::map<std::string, int> seen;
    DictionaryListing listing = DictionaryListing::open(path);
    ASSERT_NO_THROW(listing.forEachWord([&](const WordEntry& entry) {
        EXPECT_EQ(1, ++seen[entry.word]) << what;
        const std::optional<WordEntry> found = listing.lookup(entry.word);
        ASSERT_TRUE(found) << what;
        EXPECT_EQ(entry, *found) << what;
    })) << what;
}

TEST(DictionaryVerifierTest, EveryChangedByteIsReportedOrDoesNoHarm) {
    const TemporaryFolder folder;
    DictionaryModel model = RandomModelMaker(11).make({.words = 8, .alphabet = U"abé", .longestWord = 5});
    for (const WordEntry& entry : test::smallModel().words) {
        if (entry.word != "a" && entry.word != "an") model.words.push_back(entry);
    }
    const std::vector<uint8_t> sound = Version2Writer::write(model);
    int reported = 0;
    int harmless = 0;
    for (size_t i = 0; i < sound.size(); ++i) {
        for (const int change : {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80, 0xFF}) {
            std::vector<uint8_t> damaged = sound;
            damaged[i] = static_cast<uint8_t>(damaged[i] ^ change);
            if (!DictionaryVerifier::verify(damaged).empty()) {
                ++reported;
                continue;
            }
            ++harmless;
            expectHarmless(folder.write("a.dic", test::asText(damaged)), "byte " + std::to_string(i));
        }
    }
    // Letters, probabilities and strengths are most of the bytes, and any value of them is sound.
    EXPECT_GT(reported, harmless / 2);
}

TEST(DictionaryVerifierTest, EveryCutAndEveryTailIsReported) {
    const std::vector<uint8_t> sound = Version2Writer::write(RandomModelMaker(12).make({.words = 60}));
    for (size_t size = 0; size < sound.size(); ++size) {
        const std::vector<uint8_t> cut(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_NE("", findingsAsText(cut)) << size;
    }
    std::vector<uint8_t> longer = sound;
    longer.push_back(0);
    EXPECT_EQ(std::to_string(sound.size()) + ": 1 bytes that nothing leads to\n", findingsAsText(longer));
}

TEST(DictionaryListingTest, WhatIsNoDictionaryIsRefused) {
    const TemporaryFolder folder;
    for (const char* content : {"", "not a dictionary at all", "\x9B\xC1\x3A\xFE\x01\x93............."}) {
        EXPECT_THROW(DictionaryListing::open(folder.write("a.dic", content)), CompileError) << content;
    }
    EXPECT_THROW(DictionaryListing::open(folder.path("missing")), CompileError);
    EXPECT_THROW(DictionaryListing::open(folder.path()), CompileError);
}

}  // namespace
}  // namespace vorpel::compiler
