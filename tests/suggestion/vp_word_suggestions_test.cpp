// SPDX-License-Identifier: Apache-2.0
#include "suggestion/vp_word_suggestions.h"

#include "platform/memory_user_defaults.h"
#include "platform/posix/folder_bundle.h"
#include "support/small_language.h"
#include "text/utf.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vorpel {
namespace {

using Words = std::vector<std::string>;

constexpr TouchPoint NOWHERE{};

class VPWordSuggestionsTest : public ::testing::Test {
protected:
    VPWordSuggestionsTest() : english("en"), arabic("ar") {
        english.word("hello", 150).word("help", 140).word("world", 140).pair("hello", "world", 9);
        english.writeDictionary();
        english.writeGeometry();
        arabic.word("مرحبا", 150).word("شكرا", 140);
        arabic.writeDictionary();
        arabic.writeGeometry();
        defaults.setString("Language", "en");
    }

    /// One request.
    Words ask(VPWordSuggestions& service, const std::string& word, const std::string& previous = "") {
        canAutoCorrect = true;
        return service.getSuggestionsForWord(word, previous, NOWHERE, &canAutoCorrect);
    }

    /// A request after each letter; the first word of the last answer.
    std::string type(VPWordSuggestions& service, const std::string& word) {
        const std::u32string letters = wordengine::utf8ToUtf32(word).value();
        Words answer;
        for (std::size_t count = 1; count <= letters.size(); ++count) {
            answer = ask(service, wordengine::utf32ToUtf8(letters.substr(0, count)));
        }
        return answer.empty() ? "(nothing)" : answer.front();
    }

    testing::SmallLanguage english;
    testing::SmallLanguage arabic;
    platform::MemoryUserDefaults defaults;
    platform::FolderBundle bundle{{english.folder().path(), arabic.folder().path()}};
    bool canAutoCorrect = true;
};

TEST_F(VPWordSuggestionsTest, AnswersInTheStoredLanguage) {
    const auto service = VPWordSuggestions::create(bundle, defaults);
    EXPECT_EQ(service->isReady(), true);
    EXPECT_EQ(type(*service, "hrllo"), "hello");
    EXPECT_TRUE(canAutoCorrect);

    platform::FolderBundle arabicBundle({arabic.folder().path()});
    for (const char* language : {"ar", "fr", ""}) {
        defaults.setString("Language", language);
        const auto other = VPWordSuggestions::create(arabicBundle, defaults);
        EXPECT_EQ(type(*other, "مرحا"), "مرحبا") << language;
    }
    const platform::MemoryUserDefaults unset;
    EXPECT_EQ(type(*VPWordSuggestions::create(arabicBundle, unset), "شكر"), "شكرا");
}

TEST_F(VPWordSuggestionsTest, RequestsBeforeSetUpAndAfterDismissalAreEmpty) {
    VPWordSuggestions service(bundle, defaults);
    EXPECT_EQ(service.isReady(), std::nullopt);
    EXPECT_TRUE(ask(service, "h").empty());
    service.setUp();
    EXPECT_FALSE(ask(service, "h").empty());
    EXPECT_NO_THROW(ask(service, "\xff\xfe", "\xc3"));
    service.dismissWordSuggestor();
    EXPECT_TRUE(ask(service, "h").empty());
}

TEST_F(VPWordSuggestionsTest, WithoutDictionaryOrGeometryTheAnswerIsEmpty) {
    testing::TemporaryFolder empty;
    platform::FolderBundle nothing({empty.path()});
    EXPECT_TRUE(ask(*VPWordSuggestions::create(nothing, defaults), "h").empty());
    EXPECT_FALSE(canAutoCorrect);

    platform::FolderBundle noGeometry({empty.path(), english.folder().path()});
    EXPECT_TRUE(ask(*VPWordSuggestions::create(noGeometry, defaults), "h").empty());

    platform::FolderBundle geometryOnly({english.folder().path()});
    std::filesystem::remove(english.dictionaryPath());
    EXPECT_TRUE(ask(*VPWordSuggestions::create(geometryOnly, defaults), "h").empty());
    // A failed request leaves the flag as it was.
    EXPECT_TRUE(canAutoCorrect);

    const std::string broken = english.folder().write("en_US_P_113.json", "{\"keyCount\": 3");
    try {
        VPWordSuggestions::create(bundle, defaults);
        FAIL() << "a broken geometry file was taken";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find(broken), std::string::npos) << error.what();
    }
}

TEST_F(VPWordSuggestionsTest, TheTouchCountsOnlyWhereItIsAsked) {
    const auto service = VPWordSuggestions::create(bundle, defaults);
    const auto scoreWith = [&](TouchPoint touch) {
        return service->getRankedSuggestionsForWord("h", "", touch)->words.size();
    };
    const std::size_t known = scoreWith({10000, 10000});
    ASSERT_GT(known, 0U);
    EXPECT_EQ(scoreWith({20, 29}), known);
    service->useTouchPoint = true;
    EXPECT_EQ(scoreWith({10000, 10000}), known);
    // A touch on "q" with the letter "h": far from all that begins with h.
    const auto aside = service->getRankedSuggestionsForWord("h", "", {20, 29});
    const auto centered = service->getRankedSuggestionsForWord("h", "", {10000, 10000});
    ASSERT_FALSE(aside->words.empty());
    EXPECT_LT(aside->words.front().getScore(), centered->words.front().getScore());
}

TEST_F(VPWordSuggestionsTest, LiveFramesStandInForTheStoredCentres) {
    const compiler::KeyPage page = compiler::layOutKeyPage("en", 0, 375, 216);
    std::vector<std::optional<LiveKeyFrame>> frames;
    Words caps;
    for (const compiler::KeyFrame& key : page.keys) {
        frames.push_back(LiveKeyFrame{key.x, key.y, key.width, key.height});
        caps.push_back(std::string(1, static_cast<char>(key.codePoint | 0x20)));
    }
    frames.emplace_back(std::nullopt);
    caps.emplace_back("é");
    const auto service = VPWordSuggestions::create(bundle, defaults, frames, caps, 375, 216);
    EXPECT_TRUE(service->useTouchPoint);
    Words answer;
    const TouchPoint none{10000, 10000};
    for (const char* typed : {"h", "he", "hel", "hell"}) {
        answer = service->getSuggestionsForWord(typed, "", none, &canAutoCorrect);
    }
    ASSERT_FALSE(answer.empty());
    EXPECT_EQ(answer.front(), "hello");
}

}  // namespace
}  // namespace vorpel
