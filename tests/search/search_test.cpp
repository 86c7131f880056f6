// SPDX-License-Identifier: Apache-2.0
#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "search/search_fixture.h"
#include "search/typing/scoring_params.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace wordengine {
namespace {

using testing::FoundWord;
using testing::PlainDictionary;
using testing::SearchFixture;
using testing::TypedWord;

PlainDictionary smallEnglish(PlainDictionary::Chains chains = PlainDictionary::Chains::Merged) {
    PlainDictionary dictionary(chains);
    dictionary.word(U"the", 222).word(U"this", 200).word(U"then", 180).word(U"thin", 120).word(U"tea", 150);
    dictionary.word(U"there", 190)
        .word(U"good", 170)
        .word(U"goods", 90)
        .word(U"morning", 160)
        .word(U"hello", 165);
    dictionary.word(U"don't", 175).word(U"well-known", 100).word(U"Paris", 140).word(U"world", 170);
    dictionary.word(U"caf\u00E9", 90).word(U"i", 200).word(U"a", 210).word(U"is", 205).word(U"his", 195);
    return dictionary;
}

std::u32string best(const std::vector<FoundWord>& words) {
    return words.empty() ? U"" : words.front().text;
}

class SearchTest : public ::testing::TestWithParam<PlainDictionary::Chains> {
protected:
    SearchFixture fixture{smallEnglish(GetParam())};
};

TEST_P(SearchTest, EachKindOfSlipLeadsToTheWordMeant) {
    const struct {
        const char32_t* typed;
        const char32_t* meant;
        const char* slip;
    } cases[] = {
        {U"the", U"the", "none"},
        {U"teh", U"the", "swapped"},
        {U"thsi", U"this", "swapped at the end"},
        {U"hte", U"the", "swapped at the start"},
        {U"helo", U"hello", "left out, a double"},
        {U"wold", U"world", "left out"},
        {U"ello", U"hello", "left out at the start"},
        {U"morming", U"morning", "key beside"},
        {U"gello", U"hello", "key beside, first letter"},
        {U"helllo", U"hello", "once too often"},
        {U"worlpd", U"world", "put in"},
        {U"morkning", U"morning", "put in, key beside"},
        {U"worldx", U"world", "put in at the end"},
        {U"goodmorning", U"good morning", "space left out"},
        {U"goodbmorning", U"good morning", "key above the space hit for it"},
        {U"dont", U"don't", "apostrophe left out"},
        {U"wellknown", U"well-known", "hyphen left out"},
        {U"cafe", U"caf\u00E9", "accent left out"},
        {U"paris", U"Paris", "capital left out"},
        {U"mor", U"morning", "not finished"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.slip);
        fixture.startAfresh();
        const std::vector<FoundWord> words = fixture.search(c.typed);
        EXPECT_EQ(best(words), c.meant);
        EXPECT_LE(words.size(), 18u);
    }
}

TEST_P(SearchTest, ExactWordsAreMarkedAndPromoted) {
    const auto scoreOf = [&](const std::u32string& typed, const std::u32string& word) {
        fixture.startAfresh();
        const std::vector<FoundWord> words = fixture.search(typed);
        const FoundWord* const found = SearchFixture::find(words, word);
        return found ? *found : FoundWord{U"", 0, 0};
    };
    constexpr int EXACT =
        SuggestedWord::KIND_FLAG_EXACT_MATCH | SuggestedWord::KIND_FLAG_EXACT_MATCH_WITH_INTENTIONAL_OMISSION;
    EXPECT_EQ(scoreOf(U"hello", U"hello").type, SuggestedWord::KIND_CORRECTION | EXACT);
    EXPECT_EQ(scoreOf(U"paris", U"Paris").type, SuggestedWord::KIND_CORRECTION | EXACT);
    EXPECT_EQ(
        scoreOf(U"dont", U"don't").type,
        SuggestedWord::KIND_CORRECTION | SuggestedWord::KIND_FLAG_EXACT_MATCH_WITH_INTENTIONAL_OMISSION);
    EXPECT_EQ(scoreOf(U"helo", U"hello").type, SuggestedWord::KIND_CORRECTION);
    // The word's improbability is all that it pays.
    const float improbability = (255.0f - 165.0f) / 255.0f;
    const float distance = improbability * ScoringParams::DISTANCE_WEIGHT_LANGUAGE;
    const float expected =
        (1.0f - distance / (ScoringParams::DISTANCE_WEIGHT_LANGUAGE + 5 * 0.1f) + 1.1f) * 1e6f;
    EXPECT_NEAR(scoreOf(U"hello", U"hello").score, expected, 2);
}

TEST_P(SearchTest, LetterByLetterGivesTheAnswerOfAFreshSearch) {
    // In a dictionary this small no queue overflows, so that no path to a word is lost. What is lost are
    // words that end before the place where nodes were kept: they leave at least four points unused.
    for (const char32_t* text : {U"goodmorning", U"thsi", U"helllo", U"morming", U"wellknown", U"wolrdis"}) {
        fixture.startAfresh();
        const std::u32string word(text);
        for (size_t length = 1; length <= word.size(); ++length) {
            SCOPED_TRACE(length);
            const std::vector<FoundWord> grown = fixture.search(word.substr(0, length));
            // Nodes are kept from four letters on, so the fifth is the first to go on from them.
            EXPECT_EQ(fixture.statistics().continuedCachedSearch, length >= 5);
            SearchFixture other{smallEnglish(GetParam())};
            std::vector<FoundWord> fresh = other.search(word.substr(0, length));
            const float unused = 4 * ScoringParams::TERMINAL_INSERTION_COST;
            const float maxDistance =
                ScoringParams::DISTANCE_WEIGHT_LANGUAGE + 0.1f * static_cast<float>(length);
            const float bestOfLost = (1.0f - unused / maxDistance) * 1e6f;
            if (length >= 5) {
                std::erase_if(fresh, [&](const FoundWord& found) {
                    return static_cast<float>(found.score) <= bestOfLost &&
                           std::find(grown.begin(), grown.end(), found) == grown.end();
                });
            }
            EXPECT_EQ(grown, fresh);
        }
    }
}

TEST_P(SearchTest, AChangedPointStartsAfresh) {
    TypedWord typed = fixture.touch(U"morning");
    fixture.search(typed);
    EXPECT_GT(fixture.statistics().nodesCached, 0);
    typed = fixture.touch(U"morningt");
    fixture.search(typed);
    EXPECT_TRUE(fixture.statistics().continuedCachedSearch);
    typed = fixture.touch(U"morningth");
    typed.xs[0] += 3;
    const std::vector<FoundWord> words = fixture.search(typed);
    EXPECT_FALSE(fixture.statistics().continuedCachedSearch);
    fixture.startAfresh();
    EXPECT_EQ(words, fixture.search(typed));
    fixture.search(U"mo");
    EXPECT_FALSE(fixture.statistics().continuedCachedSearch);
}

INSTANTIATE_TEST_SUITE_P(Chains, SearchTest,
                         ::testing::Values(PlainDictionary::Chains::Merged,
                                           PlainDictionary::Chains::LetterByLetter));

TEST(SearchContextTest, AKnownPairWins) {
    PlainDictionary dictionary = smallEnglish();
    dictionary.word(U"than", 60).word(U"rather", 100).pair(U"rather", U"than", 250);
    SearchFixture fixture(std::move(dictionary));
    const auto search = [&](const std::u32string& previous) {
        const std::vector<int> codePoints = testing::codePointsOf(previous);
        const PrevWordsInfo info(codePoints.data(), static_cast<int>(codePoints.size()), false);
        fixture.startAfresh();
        return best(fixture.search(fixture.touch(U"thwn"), &info));
    };
    EXPECT_EQ(search(U"good"), U"then");
    EXPECT_EQ(search(U"rather"), U"than");
    EXPECT_EQ(search(U"RATHER"), U"than") << "the small form stands in";
}

TEST(SearchContextTest, RareAndShortCappedWordsAreNotFollowed) {
    PlainDictionary dictionary;
    dictionary.word(U"home", 39).word(U"hole", 40).word(U"Us", 100).word(U"us", 100).word(U"time", 150);
    dictionary.word(U"UN", 120);
    SearchFixture fixture(std::move(dictionary));
    const auto finds = [&](const std::u32string& typed, const std::u32string& words) {
        fixture.startAfresh();
        return SearchFixture::find(fixture.search(typed), words) != nullptr;
    };
    EXPECT_FALSE(finds(U"hometime", U"home time"));
    EXPECT_TRUE(finds(U"holetime", U"hole time"));
    EXPECT_TRUE(finds(U"ustime", U"us time"));
    EXPECT_FALSE(finds(U"ustime", U"Us time"));
    EXPECT_TRUE(finds(U"untime", U"UN time"));
}

TEST(SearchContextTest, UmlautsAreTypedAsTwoLettersWhereTheDictionarySaysSo) {
    for (const bool usesUmlauts : {true, false}) {
        PlainDictionary dictionary;
        dictionary.header.usesUmlauts = usesUmlauts;
        dictionary.word(U"fr\u00FCher", 150).word(U"\u00DCbel", 150);
        SearchFixture fixture(std::move(dictionary));
        for (const auto& [typed, meant] :
             {std::pair{U"frueher", U"fr\u00FCher"}, std::pair{U"uebel", U"\u00DCbel"}}) {
            fixture.startAfresh();
            const std::vector<FoundWord> words = fixture.search(typed);
            const FoundWord* const found = SearchFixture::find(words, meant);
            EXPECT_EQ(found && (found->type & SuggestedWord::KIND_FLAG_EXACT_MATCH) != 0, usesUmlauts);
        }
    }
}

TEST(SearchContextTest, OffensiveAndForbiddenWords) {
    PlainDictionary dictionary;
    dictionary.word(U"damn", 0).word(U"Damn", 0).word(U"adn", 120, true).shortcut(U"adn", U"and", true);
    SearchFixture fixture(std::move(dictionary));
    const std::vector<int> blocking = {0, 0, 1};
    const auto typeOf = [&](const std::u32string& typed, const std::u32string& word, bool blocks) {
        fixture.startAfresh();
        const std::vector<FoundWord> words =
            fixture.search(fixture.touch(typed), nullptr, blocks ? blocking : std::vector<int>());
        const FoundWord* const found = SearchFixture::find(words, word);
        return found ? found->type : 0;
    };
    EXPECT_TRUE(typeOf(U"damm", U"damn", false) & SuggestedWord::KIND_FLAG_POSSIBLY_OFFENSIVE);
    EXPECT_EQ(typeOf(U"damm", U"damn", true), 0);
    EXPECT_TRUE(typeOf(U"damn", U"damn", true) & SuggestedWord::KIND_FLAG_EXACT_MATCH);
    EXPECT_EQ(typeOf(U"damn", U"Damn", true), 0) << "a capital is no safe exact match";
    EXPECT_EQ(typeOf(U"adn", U"adn", false), 0);
    EXPECT_EQ(typeOf(U"adn", U"and", false), SuggestedWord::KIND_WHITELIST);
    EXPECT_EQ(typeOf(U"adm", U"and", false), SuggestedWord::KIND_SHORTCUT);
}

TEST(SearchContextTest, PredictionsAndProbabilities) {
    PlainDictionary dictionary = smallEnglish();
    dictionary.word(U"rare", 10).pair(U"good", U"morning", 230).pair(U"good", U"the", 240);
    dictionary.pair(U"good", U"world", NO_PROBABILITY).word(U"caf\u00E8", 95);
    SearchFixture fixture(std::move(dictionary));
    const std::vector<int> good = testing::codePointsOf(U"Good");
    const PrevWordsInfo info(good.data(), 4, false);
    SuggestionResults results(3);
    fixture.dictionary().getPredictions(&info, &results);
    const std::vector<FoundWord> expected = {{U"the", 240, SuggestedWord::KIND_PREDICTION},
                                             {U"morning", 230, SuggestedWord::KIND_PREDICTION},
                                             {U"world", 170, SuggestedWord::KIND_PREDICTION}};
    EXPECT_EQ(SearchFixture::wordsOf(results), expected);

    const auto ask = [&](const std::u32string& word, auto question) {
        const std::vector<int> codePoints = testing::codePointsOf(word);
        return question(codePoints.data(), static_cast<int>(codePoints.size()));
    };
    Dictionary& words = fixture.dictionary();
    const auto alone = [&](const int* w, int n) { return words.getProbability(w, n); };
    const auto afterGood = [&](const int* w, int n) { return words.getNgramProbability(&info, w, n); };
    const auto exact = [&](const int* w, int n) { return words.getMaxProbabilityOfExactMatches(w, n); };
    EXPECT_EQ(ask(U"the", alone), 222);
    EXPECT_EQ(ask(U"nothing", alone), NO_PROBABILITY);
    EXPECT_EQ(ask(U"the", afterGood), 240);
    EXPECT_EQ(ask(U"then", afterGood), NO_PROBABILITY);
    EXPECT_EQ(ask(U"DONT", exact), 175);
    EXPECT_EQ(ask(U"wellknown", exact), 100);
    EXPECT_EQ(ask(U"cafe", exact), 95);
    EXPECT_EQ(ask(U"mornin", exact), NO_PROBABILITY);
    EXPECT_EQ(ask(U"", exact), NO_PROBABILITY);
}

TEST(SearchEdgeTest, SiblingsThatAreAllAlikeEndTheSearchForSpellings) {
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
    vorpel::testing::TemporaryFolder folder;
    const Dictionary words(DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile(
        folder.write("alike.dic", file).c_str(), 0, static_cast<int>(file.size()), false));
    const int letters[] = {'a', 'a', 'a'};
    EXPECT_EQ(words.getMaxProbabilityOfExactMatches(letters, 2), 1);
    EXPECT_EQ(words.getMaxProbabilityOfExactMatches(letters, 3), NO_PROBABILITY);
}

TEST(SearchEdgeTest, InputsAtAndBeyondTheLimits) {
    SearchFixture fixture(smallEnglish());
    EXPECT_TRUE(fixture.search(U"").empty());
    for (size_t length = 40; length <= 60; ++length) {
        fixture.search(std::u32string(length, U'a'));
        const std::vector<FoundWord> words = fixture.search(std::u32string(length, U'q'));
        if (length > 48) {
            EXPECT_TRUE(words.empty());
        }
    }
    EXPECT_EQ(best(fixture.search(U"teh")), U"the") << "a refused request leaves the session as it was";
    // A key that the keyboard lacks.
    EXPECT_FALSE(fixture.search(U"th\u0416re").empty());
}

TEST(SearchEdgeTest, AWordOverTheLimitEndsThePassForTheBetterOnes) {
    // A path of 43 points is over the limit of 45 letters with three joiners left out, and not with two.
    const std::u32string word = U"qmzptdkwuxvnebrylsgfhaojciqtmwzkpduxlvnbeyrs";
    std::u32string longer = word;
    for (const size_t joiners : {1, 2, 3}) {
        longer.insert(joiners * 10, U"'");
        PlainDictionary dictionary;
        dictionary.word(word, 30).word(longer, 30);
        SearchFixture fixture(std::move(dictionary));
        EXPECT_EQ(SearchFixture::find(fixture.search(word), word) == nullptr, joiners == 3);
    }
}

TEST(SearchEdgeTest, MissingPiecesFindNothing) {
    SearchFixture fixture(smallEnglish());
    const TypedWord typed = fixture.touch(U"the");
    const PrevWordsInfo none;
    const auto search = [&](const Dictionary& dictionary, const ProximityInfo* proximityInfo, const int* xs,
                            const int* ys, const SuggestOptions* options) {
        SuggestionResults results(18);
        dictionary.getSuggestions(proximityInfo, &fixture.session(), xs, ys, nullptr, nullptr,
                                  typed.codePoints.data(), 3, &none, options, -1.0f, &results);
        return results.getSuggestionCount();
    };
    const int gesture[] = {1};
    const SuggestOptions drawn(gesture, 1);
    const Dictionary& words = fixture.dictionary();
    EXPECT_EQ(search(words, nullptr, typed.xs.data(), typed.ys.data(), nullptr), 0);
    EXPECT_EQ(search(words, fixture.proximityInfo(), typed.xs.data(), typed.ys.data(), &drawn), 0);
    EXPECT_EQ(search(words, fixture.proximityInfo(), nullptr, nullptr, nullptr), 0);
    EXPECT_GT(search(words, fixture.proximityInfo(), typed.xs.data(), typed.ys.data(), nullptr), 0);

    const Dictionary unopened(nullptr);
    EXPECT_THROW(
        try {
            search(unopened, fixture.proximityInfo(), typed.xs.data(), typed.ys.data(), nullptr);
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), "Dictionary Buffer Policy is nil.");
            throw;
        },
        std::runtime_error);
    SuggestionResults results(18);
    unopened.getPredictions(&none, &results);
    EXPECT_EQ(results.getSuggestionCount(), 0);
    EXPECT_EQ(unopened.getProbability(typed.codePoints.data(), 3), NO_PROBABILITY);
}

TEST(SearchEdgeTest, RandomTypingOverARandomDictionaryStaysWithinBounds) {
    std::mt19937 random(17);
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const auto randomWord = [&](int maxLength) {
        std::u32string word;
        const std::u32string letters = U"aeinrst'-\u00FCE";
        for (int i = pick(1, maxLength); i > 0; --i) word += letters[static_cast<size_t>(pick(0, 10))];
        return word;
    };
    PlainDictionary dictionary;
    dictionary.header.usesUmlauts = true;
    for (int i = 0; i < 1500; ++i)
        dictionary.word(randomWord(i % 50 == 0 ? 48 : 9), pick(0, 255), i % 37 == 0);
    SearchFixture fixture(std::move(dictionary));
    for (int round = 0; round < 4; ++round) {
        const std::u32string word = randomWord(round % 4 == 0 ? 48 : 12);
        for (size_t length = 1; length <= word.size(); ++length) {
            const std::vector<FoundWord> words = fixture.search(word.substr(0, length));
            const SearchStatistics& statistics = fixture.statistics();
            EXPECT_LE(statistics.nodesExpanded, statistics.passes * 310);
            EXPECT_LE(statistics.passes, 100);
            for (const FoundWord& found : words) EXPECT_LE(found.text.size(), 48u);
        }
    }
}

}  // namespace
}  // namespace wordengine
