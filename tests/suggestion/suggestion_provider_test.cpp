// SPDX-License-Identifier: Apache-2.0
#include "suggestion/suggestion_provider.h"

#include "compiler/dictionary_listing.h"
#include "compiler/input_error.h"
#include "dictionary/prev_words_info.h"
#include "search/results/suggestions_output_utils.h"
#include "search/suggest_options.h"
#include "suggestion/geometry_file.h"
#include "support/small_language.h"
#include "text/utf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <stdexcept>
#include <sys/stat.h>

namespace vorpel {
namespace {

using wordengine::SuggestedWord;

constexpr float NONE = SuggestionProvider::NO_TOUCH_COORDINATE;

/// A provider over real files, asked as the facade asks it.
class Typist {
public:
    explicit Typist(const testing::SmallLanguage& language)
        : provider(language.dictionaryPath(), language.folder().path(), "en") {}

    RankedSuggestions request(const std::string& word,
                              SuggestionProvider::KeyCoordinate touch = {NONE, NONE}) {
        std::vector<int> codePoints = wordengine::utf8ToCodePoints(word).value();
        wordengine::PrevWordsInfo context;
        const int values[4] = {};
        wordengine::SuggestOptions options(values, 4);
        return provider.rankSuggestions(18, codePoints.data(), static_cast<int>(codePoints.size()), &context,
                                        &options, &touch);
    }

    /// Letter by letter; the last answer.
    RankedSuggestions type(const std::string& word) {
        RankedSuggestions last;
        for (std::size_t length = 1; length <= word.size(); ++length) last = request(word.substr(0, length));
        return last;
    }

    SuggestionProvider provider;
};

std::vector<std::string> wordsOf(const RankedSuggestions& ranked) {
    return toUtf8Strings(ranked.words);
}

class SuggestionProviderTest : public ::testing::Test {
protected:
    SuggestionProviderTest() {
        language.word("the", 220).word("then", 160).word("they", 180).word("there", 170).word("hello", 150);
        language.word("this", 190).word("don't", 170).word("id", 90).correction("dont", "don't");
        language.shortcut("id", "I'd", compiler::WHITELIST_SHORTCUT_STRENGTH);
        language.shortcut("u", "you", compiler::WHITELIST_SHORTCUT_STRENGTH).word("you", 200).word("u", 50);
        language.writeDictionary();
        language.writeGeometry();
    }

    testing::SmallLanguage language;
};

TEST_F(SuggestionProviderTest, AKnownWordIsLeftOutAndNeverCorrected) {
    Typist typist(language);
    const RankedSuggestions ranked = typist.type("the");
    EXPECT_TRUE(ranked.typedWordFound);
    EXPECT_FALSE(ranked.canAutoCorrect);
    const std::vector<std::string> words = wordsOf(ranked);
    EXPECT_EQ(std::count(words.begin(), words.end(), "the"), 0);
    EXPECT_EQ(std::count(words.begin(), words.end(), "they"), 1);
}

TEST_F(SuggestionProviderTest, WhitelistReplacesOnlyWhatIsNoWord) {
    Typist typist(language);
    const RankedSuggestions slip = typist.type("dont");
    ASSERT_FALSE(slip.words.empty());
    EXPECT_EQ(wordsOf(slip).front(), "don't");
    EXPECT_TRUE(typist.provider.isWhiteListedWord(slip.words.front()));
    EXPECT_EQ(slip.words.front().getScore(), 2147483646);
    EXPECT_TRUE(slip.canAutoCorrect);

    const RankedSuggestions word = Typist(language).type("id");
    EXPECT_EQ(wordsOf(word).front(), "I'd");
    EXPECT_TRUE(word.typedWordFound);
    EXPECT_TRUE(word.refused);
    EXPECT_FALSE(word.canAutoCorrect);

    const RankedSuggestions oneByte = Typist(language).type("u");
    EXPECT_EQ(wordsOf(oneByte).front(), "you");
    EXPECT_TRUE(oneByte.refused);
    EXPECT_FALSE(oneByte.canAutoCorrect);
}

TEST_F(SuggestionProviderTest, RanksByScoreAndThenLongerFirst) {
    Typist typist(language);
    const RankedSuggestions ranked = typist.type("th");
    ASSERT_GT(ranked.words.size(), 2U);
    for (std::size_t i = 1; i < ranked.words.size(); ++i) {
        const SuggestedWord& better = ranked.words[i - 1];
        const SuggestedWord& worse = ranked.words[i];
        EXPECT_GE(better.getScore(), worse.getScore());
        if (better.getScore() == worse.getScore()) {
            EXPECT_GE(better.getCodePointCount(), worse.getCodePointCount());
        }
    }
}

TEST_F(SuggestionProviderTest, ALetterTypedLaterKeepsTheTouchesOfTheEarlierOnes) {
    // "hello" with every touch on its key, but for the first, which comes down on the edge to "g".
    Typist exact(language);
    Typist aside(language);
    exact.request("h");
    aside.request("h", {206, 83});
    RankedSuggestions exactAnswer;
    RankedSuggestions asideAnswer;
    for (const char* typed : {"he", "hel", "hell"}) {
        exactAnswer = exact.request(typed);
        asideAnswer = aside.request(typed);
    }
    ASSERT_EQ(wordsOf(exactAnswer).front(), "hello");
    ASSERT_EQ(wordsOf(asideAnswer).front(), "hello");
    EXPECT_GT(exactAnswer.words.front().getScore(), asideAnswer.words.front().getScore());
}

TEST_F(SuggestionProviderTest, EachCoordinateStandsForTheKeyOnItsOwn) {
    const auto scoreOf = [&](SuggestionProvider::KeyCoordinate touch) {
        const RankedSuggestions ranked = Typist(language).request("t", touch);
        return ranked.words.empty() ? 0 : ranked.words.front().getScore();
    };
    const int centered = scoreOf({NONE, NONE});
    EXPECT_LT(scoreOf({NONE, 60}), centered);
    EXPECT_LT(scoreOf({180, NONE}), centered);
    EXPECT_EQ(scoreOf({168, 29}), centered);
}

TEST_F(SuggestionProviderTest, NumbersThatAreNoPlacesAreHarmless) {
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float value : {std::numeric_limits<float>::quiet_NaN(), infinity, -infinity, 3e38f, -1.0f}) {
        Typist typist(language);
        typist.request("t", {value, value});
        EXPECT_NO_THROW(typist.request("th", {value, 10}));
    }
}

TEST_F(SuggestionProviderTest, SafetyNetGuardsFromFourLetters) {
    Typist typist(language);
    const struct {
        const char* typed;
        const char* suggested;
        bool isBlocked;
    } cases[] = {{"abc", "xyzuvw", false},  {"abcd", "axyz", false},  {"abcd", "wxyz", true},
                 {"abcde", "abxyz", false}, {"abcde", "awxyz", true}, {"abcdef", "abwxyz", false},
                 {"abcdef", "avwxyz", true}};
    for (const auto& c : cases) {
        const std::vector<int> typed = wordengine::utf8ToCodePoints(c.typed).value();
        const std::vector<int> suggested = wordengine::utf8ToCodePoints(c.suggested).value();
        EXPECT_EQ(typist.provider.shouldBlockAutoCorrectionBySafetyNet(
                      typed.data(), static_cast<int>(typed.size()), suggested.data(),
                      static_cast<int>(suggested.size())),
                  c.isBlocked)
            << c.typed << " " << c.suggested;
    }
}

SuggestedWord suggestion(const std::string& text, int score, int type) {
    const std::vector<int> points = wordengine::utf8ToCodePoints(text).value();
    return SuggestedWord(points.data(), static_cast<int>(points.size()), score, type, wordengine::NO_INDEX,
                         wordengine::SuggestionsOutputUtils::NO_FIRST_WORD_CONFIDENCE);
}

TEST_F(SuggestionProviderTest, ThresholdIsPassedByItsOwnValue) {
    Typist typist(language);
    const std::vector<int> typed = wordengine::utf8ToCodePoints("hell").value();
    const auto passes = [&](int score, int type) {
        return typist.provider.suggestionExceedsAutoCorrectionThreshold(suggestion("hello", score, type),
                                                                        typed.data(), 4, 0.5f);
    };
    // One of five letters differs, so a score of 625000 is worth 0.5.
    EXPECT_TRUE(passes(625000, SuggestedWord::KIND_CORRECTION));
    EXPECT_FALSE(passes(624000, SuggestedWord::KIND_CORRECTION));
    EXPECT_TRUE(passes(-5, SuggestedWord::KIND_WHITELIST));
    EXPECT_FALSE(passes(-5, SuggestedWord::KIND_SHORTCUT));
}

TEST_F(SuggestionProviderTest, TheLastWhitelistedWordAndTheTypedOneCanBeTakenOut) {
    Typist typist(language);
    std::vector<SuggestedWord> words{suggestion("a", 1, SuggestedWord::KIND_WHITELIST), suggestion("b", 1, 0),
                                     suggestion("b", 1, 1), suggestion("c", 1, 1)};
    EXPECT_EQ(typist.provider.getWhitelistedWordOrNull(words), "");
    EXPECT_TRUE(typist.provider.getSuggestedWordsExcludingTypedWordsForRecorrection(words, "b"));
    EXPECT_EQ(toUtf8Strings(words), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_FALSE(typist.provider.getSuggestedWordsExcludingTypedWordsForRecorrection(words, "x"));
    words.erase(words.begin() + 1, words.end());
    EXPECT_EQ(typist.provider.getWhitelistedWordOrNull(words), "a");
}

/// They would be waited for, for ever.
TEST_F(SuggestionProviderTest, PipesFoldersAndOtherFilesAreNoDictionaries) {
    const std::string pipe = language.folder().path("pipe.dic");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {pipe, language.folder().path(), std::string("/dev/zero")}) {
        EXPECT_EQ(SuggestionProvider::get_file_size(path), -1);
        EXPECT_THROW(compiler::DictionaryListing::open(path), compiler::CompileError);
        EXPECT_THROW(GeometryFile::load(path), std::runtime_error);
        SuggestionProvider provider(path, language.folder().path(), "en");
        wordengine::PrevWordsInfo none;
        EXPECT_TRUE(provider.getPredictions(18, &none).empty());
    }
    ASSERT_EQ(mkfifo(language.folder().path("en_US_P_pipe.json").c_str(), 0600), 0);
    EXPECT_THROW(Typist{language}, std::runtime_error);
    std::filesystem::remove(language.folder().path("en_US_P_pipe.json"));
    language.folder().write("en_US.dic", "no dictionary");
    EXPECT_EQ(SuggestionProvider::get_file_size(language.dictionaryPath()), 13);
    Typist typist(language);
    EXPECT_THROW(typist.request("t"), std::runtime_error);
}

}  // namespace
}  // namespace vorpel
