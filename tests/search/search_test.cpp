// SPDX-License-Identifier: Apache-2.0
#include "search/model_language.h"
#include "search/random_language.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace wordengine::testing {
namespace {

// What the paths of a search are worth is compared with a plain search, in search_brute_force_test. Here is
// what lies around them: options, the other questions to a dictionary, and requests at the limits.

class SearchTest : public ::testing::Test {
protected:
    ModelLanguage open(ModelWords words) const { return ModelLanguage(words, keyboard_); }

    std::vector<FoundWord> type(ModelLanguage& language, const std::u32string& text) const {
        language.startAfresh();
        return language.search(keyboard_.touch(text));
    }

    const ModelKeyboard keyboard_;
};

TEST_F(SearchTest, OffensiveAndForbiddenWordsAndShortcuts) {
    ModelLanguage language = open({.words = {{U"damn", {0}},
                                             {U"Damn", {0}},
                                             {U"adn", {120, true, {}, {{U"and", 15}}}},
                                             {U"id", {90, false, {}, {{U"ID", 14}}}}}});
    const int blocking[] = {0, 0, 1};
    const SuggestOptions blocks(blocking, 3);
    const auto typeOf = [&](const std::u32string& typed, const std::u32string& word,
                            const SuggestOptions* options = nullptr) {
        language.startAfresh();
        const std::vector<FoundWord> words = language.search(keyboard_.touch(typed), U"", nullptr, options);
        const FoundWord* const found = find(words, word);
        return found ? found->type : 0;
    };
    EXPECT_TRUE(typeOf(U"damm", U"damn") & SuggestedWord::KIND_FLAG_POSSIBLY_OFFENSIVE);
    EXPECT_EQ(typeOf(U"damm", U"damn", &blocks), 0);
    EXPECT_TRUE(typeOf(U"damn", U"damn", &blocks) & SuggestedWord::KIND_FLAG_EXACT_MATCH);
    EXPECT_EQ(typeOf(U"damn", U"Damn", &blocks), 0) << "a capital is no safe exact match";
    EXPECT_FALSE(typeOf(U"damn", U"Damn") & SuggestedWord::KIND_FLAG_EXACT_MATCH);
    EXPECT_EQ(typeOf(U"adn", U"adn"), 0);
    EXPECT_EQ(typeOf(U"adn", U"and"), SuggestedWord::KIND_WHITELIST);
    EXPECT_EQ(typeOf(U"adm", U"and"), SuggestedWord::KIND_SHORTCUT);
    const std::vector<FoundWord> words = type(language, U"is");
    EXPECT_EQ(find(words, U"ID")->score, find(words, U"id")->score - 2) << "behind its word";
}

TEST_F(SearchTest, RareAndShortCapitalisedWordsAreNotFollowed) {
    ModelLanguage language =
        open({.words = {{U"home", {39}}, {U"hole", {40}}, {U"Us", {119}}, {U"UN", {120}}, {U"time", {150}}}});
    const auto finds = [&](const std::u32string& typed, const std::u32string& words) {
        return find(type(language, typed), words) != nullptr;
    };
    EXPECT_FALSE(finds(U"hometime", U"home time"));
    EXPECT_TRUE(finds(U"holetime", U"hole time"));
    EXPECT_FALSE(finds(U"ustime", U"Us time"));
    EXPECT_TRUE(finds(U"untime", U"UN time"));
}

TEST_F(SearchTest, PredictionsAndProbabilities) {
    ModelLanguage language = open({.words = {{U"good", {170, false, {{U"the", 15}, {U"morning", 3}}}},
                                             {U"the", {222}},
                                             {U"morning", {160}},
                                             {U"then", {180}},
                                             {U"don't", {175}},
                                             {U"well-known", {100}},
                                             {U"caf\u00E8", {95}},
                                             {U"caf\u00E9", {90}}}});
    const std::vector<int> good = codePointsOf(U"Good");
    const PrevWordsInfo info(good.data(), 4, false);
    SuggestionResults results(3);
    language.dictionary().getPredictions(&info, &results);
    const std::vector<FoundWord> expected = {{U"the", 254, SuggestedWord::KIND_PREDICTION},
                                             {U"morning", 183, SuggestedWord::KIND_PREDICTION}};
    EXPECT_EQ(wordsOf(results), expected) << "the small form stands in for the capital";

    const Dictionary& words = language.dictionary();
    const auto alone = [&](const int* w, int n) { return words.getProbability(w, n); };
    const auto afterGood = [&](const int* w, int n) { return words.getNgramProbability(&info, w, n); };
    const auto exact = [&](const int* w, int n) { return words.getMaxProbabilityOfExactMatches(w, n); };
    const struct {
        std::u32string word;
        std::function<int(const int*, int)> question;
        int probability;
    } cases[] = {
        {U"the", alone, 222},         {U"nothing", alone, NO_PROBABILITY},
        {U"the", afterGood, 254},     {U"then", afterGood, NO_PROBABILITY},
        {U"DONT", exact, 175},        {U"wellknown", exact, 100},
        {U"cafe", exact, 95},         {U"mornin", exact, NO_PROBABILITY},
        {U"", exact, NO_PROBABILITY},
    };
    for (const auto& c : cases) {
        const std::vector<int> codePoints = codePointsOf(c.word);
        EXPECT_EQ(c.question(codePoints.data(), static_cast<int>(codePoints.size())), c.probability);
    }
}

TEST_F(SearchTest, SiblingsThatAreAllAlikeEndTheSearchForSpellings) {
    // Arrays of 32,767 nodes "a", each of which leads to the next array: copies of all would fill memory.
    constexpr int COUNT = 0x7FFF;
    constexpr int NODE_SIZE = 6;
    std::string file("\x9B\xC1\x3A\xFE\0\2\0\0\0\0\0\x0C", 12);
    for (const bool isLast : {false, false, true}) {
        file += "\xFF\xFF";
        for (int i = 0; i < COUNT; ++i) {
            const int offset = (COUNT - i) * NODE_SIZE - 3;
            file += isLast ? "\x10" : "\xD0";
            file += "a\1";
            for (const int shift : {16, 8, 0}) {
                if (!isLast) file += static_cast<char>(offset >> shift);
            }
        }
    }
    const vorpel::testing::MemoryFile memory(file);
    const Dictionary words(DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile(
        memory.path().c_str(), 0, static_cast<int>(file.size()), false));
    const int letters[] = {'a', 'a', 'a'};
    EXPECT_EQ(words.getMaxProbabilityOfExactMatches(letters, 2), 1);
    EXPECT_EQ(words.getMaxProbabilityOfExactMatches(letters, 3), NO_PROBABILITY);
}

TEST_F(SearchTest, InputsAtAndBeyondTheLimits) {
    const std::u32string longWord(44, U'a');
    ModelLanguage language = open({.words = {{U"the", {222}}, {longWord, {150}}}});
    EXPECT_TRUE(type(language, U"").empty());
    EXPECT_NE(find(type(language, std::u32string(48, U'a')), longWord), nullptr);
    for (const size_t length : {49, 60}) {
        EXPECT_TRUE(language.search(keyboard_.touch(std::u32string(length, U'a'))).empty());
    }
    EXPECT_NE(find(language.search(keyboard_.touch(U"teh")), U"the"), nullptr)
        << "a refused request leaves the session as it was";
    EXPECT_NE(find(type(language, U"th\u0416"), U"the"), nullptr) << "a key that the keyboard lacks";
}

TEST_F(SearchTest, AWordOverTheLimitEndsThePassForTheBetterOnes) {
    // A path of 43 points is over the limit of 45 letters with three joiners left out, and not with two.
    const std::u32string word = U"qmzptdkwuxvnebrylsgfhaojciqtmwzkpduxlvnbeyrs";
    std::u32string longer = word;
    for (const size_t joiners : {1, 2, 3}) {
        longer.insert(joiners * 10, U"'");
        ModelLanguage language = open({.words = {{word, {30}}, {longer, {30}}}});
        EXPECT_EQ(find(type(language, word), word) == nullptr, joiners == 3);
    }
}

TEST_F(SearchTest, MissingPiecesFindNothing) {
    ModelLanguage language = open({.words = {{U"the", {222}}}});
    const TypedWord typed = keyboard_.touch(U"the");
    const int* const xs = typed.xs.data();
    const auto search = [&](const Dictionary& dictionary, const ProximityInfo* proximityInfo,
                            const int* places) {
        SuggestionResults results(18);
        dictionary.getSuggestions(proximityInfo, language.session(), places, places, nullptr, nullptr,
                                  typed.codePoints.data(), 3, nullptr, nullptr, -1.0f, &results);
        return results.getSuggestionCount();
    };
    const Dictionary& words = language.dictionary();
    EXPECT_EQ(search(words, nullptr, xs), 0);
    EXPECT_EQ(search(words, keyboard_.proximityInfo(), nullptr), 0);
    EXPECT_GT(search(words, keyboard_.proximityInfo(), xs), 0);
    const int gesture[] = {1};
    const SuggestOptions drawn(gesture, 1);
    EXPECT_TRUE(language.search(typed, U"", nullptr, &drawn).empty());

    const Dictionary unopened(nullptr);
    EXPECT_THROW(search(unopened, keyboard_.proximityInfo(), xs), std::runtime_error);
    SuggestionResults results(18);
    unopened.getPredictions(nullptr, &results);
    EXPECT_EQ(results.getSuggestionCount(), 0);
}

/// The plain search knows no full queues; this dictionary fills them.
TEST_F(SearchTest, ManyWordsStayWithinBounds) {
    RandomLanguage random(17);
    ModelLanguage language = open(random.words(1500, 9));
    for (int round = 0; round < 4; ++round) {
        std::u32string text;
        for (int i = 0; i < 40; ++i) text += U"adeocnsx"[random.below(8)];
        for (size_t length = 1; length <= text.size(); ++length) {
            const std::vector<FoundWord> words = language.search(keyboard_.touch(text.substr(0, length)));
            EXPECT_LE(language.statistics().nodesExpanded, language.statistics().passes * 310);
            EXPECT_LE(language.statistics().passes, 100);
            for (const FoundWord& found : words) EXPECT_LE(found.text.size(), 48u);
        }
    }
}

}  // namespace
}  // namespace wordengine::testing
