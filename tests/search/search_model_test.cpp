// SPDX-License-Identifier: Apache-2.0
#include "search/search_model_fixture.h"

#include <functional>
#include <random>
#include <string>

namespace wordengine::testing {
namespace {

TEST_F(SearchModelTest, NoSlipHoweverBadlyAimed) {
    for (const double aim : {0.0, 0.3, 0.7, 1.6}) {
        eachWord([&](const std::u32string& word) { expect(typist(aim).match(word), word, EXACT); });
    }
}

TEST_F(SearchModelTest, NeighbouringKey) {
    eachWord([&](const std::u32string& word) {
        const size_t k = random_() % word.size();
        ModelTypist hand = typist();
        hand.match(word.substr(0, k)).missFor(word[k]).match(word.substr(k + 1));
        hand.pay(k == 0 ? price::NEAR_KEY_AT_START : price::NEAR_KEY).pay(price::FIRST_NEAR_KEY);
        expect(hand.pay(price::NEAR_KEY_AT_END), word);
    });
}

TEST_F(SearchModelTest, OnlyTheFirstNeighbouringKeyCostsMore) {
    eachWord([&](const std::u32string& word) {
        ModelTypist hand = typist(0);
        hand.missFor(word[0]).match(word.substr(1, word.size() - 2)).missFor(word.back());
        hand.pay(price::NEAR_KEY_AT_START).pay(price::FIRST_NEAR_KEY).pay(price::NEAR_KEY);
        expect(hand.pay(price::NEAR_KEY_AT_END), word);
    });
}

TEST_F(SearchModelTest, LetterOfNoNearKey) {
    eachWord([&](const std::u32string& word) {
        const size_t k = 1 + random_() % (word.size() - 1);
        ModelTypist hand = typist();
        hand.match(word.substr(0, k)).hitAt(U'p', keyboard_.centre(U'p')).match(word.substr(k + 1));
        if (smallBaseOf(word[k]) == U'p' || keyboard_.isNear(keyboard_.centre(U'p'), word[k])) return;
        // Charged twice: as a letter in another's place, and as a key that was far off.
        hand.pay(price::SUBSTITUTED).pay(price::OF_KEY_WIDTHS * 1.2);
        hand.pay(price::NEAR_KEY).pay(price::FIRST_NEAR_KEY);
        expect(hand.pay(price::NEAR_KEY_AT_END).pay(price::EDIT_AT_END), word);
    });
}

TEST_F(SearchModelTest, Omission) {
    eachWord([&](const std::u32string& word) {
        const size_t k = random_() % (word.size() - 1);
        if (word[k] == word[k + 1]) return;
        ModelTypist hand = typist();
        hand.match(word.substr(0, k)).match(word.substr(k + 1));
        expect(hand.pay(k == 0 ? price::OMITTED_FIRST : price::OMITTED).pay(price::EDIT_AT_END), word);
    });
}

TEST_F(SearchModelTest, OmissionOfADoubleLetterAtAKeyBeside) {
    eachWord([&](const std::u32string& word) {
        for (size_t k = 0; k + 1 < word.size(); ++k) {
            if (word[k] != word[k + 1]) continue;
            ModelTypist hand = typist();
            hand.match(word.substr(0, k)).missFor(word[k]).match(word.substr(k + 2));
            hand.pay(k == 0 ? price::OMITTED_FIRST : price::OMITTED_DOUBLE).pay(price::EDIT_AT_END);
            hand.pay(k == 0 ? price::NEAR_KEY_AT_START : price::NEAR_KEY).pay(price::FIRST_NEAR_KEY);
            expect(hand.pay(price::NEAR_KEY_AT_END), word);
        }
    });
}

TEST_F(SearchModelTest, Insertion) {
    for (const char32_t* extras : {U"qwertyuiopasdfghjklzxcvbnm", U"asdewq"}) {
        const std::u32string keys(extras);
        eachWord([&](const std::u32string& word) {
            const size_t k = random_() % word.size();
            const char32_t extra = keys[random_() % keys.size()];
            const int point = static_cast<int>(k);
            ModelTypist hand = typist();
            hand.match(word.substr(0, k)).hit(extra).hit(word[k]).match(word.substr(k + 1));
            const bool isBesideNext = hand.isListedAt(point + 1, extra);
            const bool isBesidePrevious = k > 0 && hand.isListedAt(point - 1, extra);
            if (k == 0) hand.pay(price::INSERTED_FIRST);
            hand.pay(extra == word[k]                   ? price::INSERTED_TWICE
                     : isBesideNext || isBesidePrevious ? price::INSERTED_NEAR
                                                        : price::INSERTED);
            // The letter behind is charged by its distance alone.
            hand.pay(price::OF_KEY_WIDTHS * hand.keyWidthsAt(point + 1, word[k]));
            expect(hand.pay(price::EDIT_AT_END), word);
        });
    }
}

TEST_F(SearchModelTest, LettersPastTheEnd) {
    eachWord([&](const std::u32string& word) {
        const int extras = 1 + below(3);
        ModelTypist hand = typist();
        hand.match(word);
        for (int i = 0; i < extras; ++i) hand.hit(U"qpm"[below(3)]);
        expect(hand.pay(price::INSERTED_BEHIND * extras).pay(price::EDIT_AT_END), word);
    });
}

TEST_F(SearchModelTest, Transposition) {
    eachWord([&](const std::u32string& word) {
        const size_t k = random_() % (word.size() - 1);
        if (word[k] == word[k + 1]) return;
        const int point = static_cast<int>(k);
        ModelTypist hand = typist();
        hand.match(word.substr(0, k)).hit(word[k + 1]).hit(word[k]).match(word.substr(k + 2));
        const double keyWidths = hand.keyWidthsAt(point + 1, word[k]) + hand.keyWidthsAt(point, word[k + 1]);
        hand.pay(price::SWAPPED).pay(price::OF_KEY_WIDTHS * keyWidths);
        expect(hand.pay(price::EDIT_AT_END), word);
    });
}

TEST_F(SearchModelTest, UnfinishedWord) {
    eachWord([&](const std::u32string& word) {
        const size_t k = 1 + random_() % (word.size() - 1);
        ModelTypist hand = typist();
        hand.match(word.substr(0, k)).pay(price::FIRST_COMPLETED);
        expect(hand.pay(price::COMPLETED * static_cast<double>(word.size() - k - 1)), word);
    });
}
}  // namespace
}  // namespace wordengine::testing
