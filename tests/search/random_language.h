// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/model_keyboard.h"
#include "search/model_language.h"

#include <cstdint>
#include <iterator>
#include <random>
#include <string>

namespace wordengine::testing {

/// Small dictionaries of letters that lie side by side, and input that nearly fits them. The same seed
/// gives the same everywhere.
class RandomLanguage {
public:
    explicit RandomLanguage(uint32_t seed) : random_(seed) {}

    int below(int limit) { return static_cast<int>(random_() % static_cast<uint32_t>(limit)); }
    bool oneIn(int chances) { return below(chances) == 0; }
    std::mt19937& source() { return random_; }

    /// With capitals, accents, joiners, forms that are no words, pairs, rare and common words.
    ModelWords words(int count, int longest) {
        ModelWords words;
        words.usesUmlauts = oneIn(3);
        if (oneIn(3)) words.multipleWordsDemotionRate = 30 + below(300);
        while (static_cast<int>(words.words.size()) < count) {
            ModelWord& word = words.words[text(1 + below(longest))];
            word.probability = oneIn(4) ? below(45) : 40 + below(216);
            word.isNotAWord = oneIn(8);
        }
        for (auto& [text, word] : words.words) {
            if (oneIn(2)) word.pairs[anyOf(words)] = below(16);
        }
        return words;
    }

    const std::u32string& anyOf(const ModelWords& words) {
        return std::next(words.words.begin(), below(static_cast<int>(words.words.size())))->first;
    }

    /// A word or two with some letters changed, or letters that are no word.
    std::u32string slippedText(const ModelWords& words) {
        std::u32string typed = oneIn(6) ? text(1 + below(6)) : anyOf(words);
        if (oneIn(2)) typed += (oneIn(3) ? U"c" : U"") + anyOf(words);
        for (int slips = below(3); slips > 0; --slips) {
            const size_t i = random_() % typed.size();
            if (oneIn(3)) typed.insert(i, text(1));
            if (oneIn(3)) typed[i] = text(1)[0];
            if (oneIn(3) && typed.size() > 1) typed.erase(i, 1);
            if (oneIn(3) && i + 1 < typed.size()) std::swap(typed[i], typed[i + 1]);
        }
        return typed;
    }

    /// Letters typed as keys give them, now and then as they stand.
    void touch(const ModelKeyboard& keyboard, const std::u32string& text, double aim, TypedWord* typed) {
        for (const char32_t letter : text) {
            const Touch at = keyboard.around(smallBaseOf(letter), aim, random_);
            typed->add(oneIn(12) ? letter : smallBaseOf(letter), at);
        }
    }

private:
    std::u32string text(int length) {
        static const std::u32string LETTERS = U"aaassddeeooccxn\u00E9\u00F6\u00D6AS'-";
        std::u32string text;
        for (; length > 0; --length) text += LETTERS[random_() % LETTERS.size()];
        return text;
    }

    std::mt19937 random_;
};

}  // namespace wordengine::testing
