// SPDX-License-Identifier: Apache-2.0
#include "search/search_model_fixture.h"

#include <functional>
#include <random>
#include <string>

namespace wordengine::testing {
namespace {

TEST_F(SearchModelTest, CaseAndAccents) {
    constexpr char32_t PLAIN[] = U"eouan";
    constexpr char32_t ACCENTED[] = U"\u00E9\u00F6\u00FC\u00E4\u00F1";
    const auto dress = [&](std::u32string word) {
        const size_t k = random_() % word.size();
        for (size_t i = 0; PLAIN[i]; ++i) {
            if (word[k] == PLAIN[i]) word[k] = ACCENTED[i];
        }
        if (below(2) == 0) word[0] -= 32;
        return word;
    };
    const auto bonusOf = [](const std::u32string& word) {
        double bonus = EXACT;
        bool hasCase = false;
        bool hasAccent = false;
        for (const char32_t letter : word) {
            hasCase |= smallOf(letter) != letter;
            hasAccent |= baseOf(letter) != letter;
        }
        if (hasCase) bonus -= WRONG_CASE;
        if (hasAccent) bonus -= WRONG_ACCENT;
        return bonus;
    };
    eachWord([&](const std::u32string& word) { expect(typist().match(word), word, bonusOf(word)); }, dress);
}

TEST_F(SearchModelTest, ApostropheAndHyphen) {
    const auto join = [&](std::u32string word) {
        return word.insert(random_() % word.size(), 1, U"'-"[below(2)]);
    };
    eachWord(
        [&](const std::u32string& word) {
            ModelTypist hand = typist();
            for (const char32_t letter : word) {
                if (letter == U'-') hand.pay(price::OMITTED_HYPHEN);
                if (letter != U'-' && letter != U'\'') hand.match(letter);
            }
            expect(hand, word);
        },
        join);
}

TEST_F(SearchModelTest, UmlautsAsTwoLetters) {
    constexpr char32_t BASES[] = U"aou";
    constexpr char32_t UMLAUTS[] = U"\u00E4\u00F6\u00FC";
    for (int i = 0; i < DICTIONARIES; ++i) {
        ModelWords words;
        words.usesUmlauts = true;
        const int which = below(3);
        const std::u32string before = randomWord(U"schrbl", 1, 3);
        const std::u32string behind = randomWord(U"nhrst", 1, 3);
        const std::u32string word = before + UMLAUTS[which] + behind;
        words.words[word].probability = 1 + below(255);
        open(words);
        expect(typist().match(before + BASES[which] + U"e" + behind), word, EXACT - DIGRAPH);
        expect(typist().match(word), word, EXACT - WRONG_ACCENT);
    }
}

TEST_F(SearchModelTest, KnownPairs) {
    eachWord([&](const std::u32string& word) {
        const int strength = below(16);
        ModelWords words = words_;
        words.words[U"so"] = {100, false, {{word, strength}}};
        open(words);
        previous_ = U"so";
        ModelTypist hand = typist();
        hand.match(word);
        const int probability = liftedProbability(words.words[word].probability, strength);
        expectAt(hand, word, hand.sum() + languageCost(probability), EXACT);
        previous_ = U"nobody";
        expect(hand, word, EXACT);
    });
}

/// Two words in one; each test says what stands between them.
class TwoWordsModelTest : public SearchModelTest {
protected:
    void eachPair(const std::function<void(const std::u32string&, const std::u32string&)>& body,
                  bool capital = false) {
        for (int i = 0; i < 3 * DICTIONARIES && !HasFailure(); ++i) {
            const std::u32string first = randomWord(U"theranois", 2, 9);
            std::u32string second = randomWord(U"goldenfrmi", 2, 9);
            if (capital) second[0] -= 32;
            ModelWords words;
            words.multipleWordsDemotionRate = i % 3 == 0 ? 100 : 40 + below(200);
            words.words[second].probability = 1 + below(255);
            words.words[first].probability = 40 + below(216);
            if (below(3) == 0) words.words[first].pairs[second] = below(16);
            open(words);
            body(first, second);
        }
    }
    void expectBoth(ModelTypist& hand, const std::u32string& first, const std::u32string& second) {
        hand.pay(price::SEVERAL_WORDS_AT_END).pay(languageOf(first));
        hand.pay(languageCost(words_.probabilityAfter(first, second)));
        // Long input is committed as several words when these come first, as they do here.
        const double committed = hand.points() >= 16 ? 1 : 0;
        const int score = finalScore(hand.sum(), hand.points(), committed);
        expectScore(hand, first + U" " + second, score, false);
    }
};

TEST_F(TwoWordsModelTest, LostSpace) {
    eachPair([&](const std::u32string& first, const std::u32string& second) {
        ModelTypist hand = typist();
        hand.match(first + second).pay(price::NEW_WORD * words_.furtherWordFactor());
        expectBoth(hand, first, second);
    });
}

TEST_F(TwoWordsModelTest, CapitalInTheSecondWord) {
    eachPair(
        [&](const std::u32string& first, const std::u32string& second) {
            ModelTypist hand = typist();
            hand.match(first + second).pay(price::NEW_WORD * words_.furtherWordFactor());
            expectBoth(hand.pay(price::CAPITAL_IN_LATER_WORD), first, second);
        },
        true);
}

TEST_F(TwoWordsModelTest, LetterHitForTheSpace) {
    eachPair([&](const std::u32string& first, const std::u32string& second) {
        // A word at which the dictionary ends is not looked at again, so the space is not tried there.
        ModelWords words = words_;
        words.words[first + U"s"].probability = 10;
        open(words);
        const char32_t hitLetter = U"xcvbnm"[below(6)];
        Touch touch = keyboard_.around(hitLetter, GOOD_AIM, random_);
        while (!keyboard_.isNearSpace(touch)) touch = keyboard_.around(hitLetter, GOOD_AIM, random_);
        ModelTypist hand = typist();
        hand.match(first).hitAt(hitLetter, touch).match(second);
        hand.pay((price::SPACE_HIT_AS_LETTER + price::NEW_WORD) * words_.furtherWordFactor());
        expectBoth(hand, first, second);
    });
}

}  // namespace
}  // namespace wordengine::testing
