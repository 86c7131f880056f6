// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/dictionary_model.h"
#include "text/utf.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vorpel::compiler::test {

inline std::string_view asText(const std::vector<uint8_t>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Its bytes stand one by one in docs/formats/dictionary-v2.md.
inline DictionaryModel smallModel() {
    return {{{"locale", "en"}},
            {{.word = "a", .probability = 200, .bigrams = {{"ant", 9}}},
             {.word = "an", .probability = 190},
             {.word = "ant", .probability = 120},
             {.word = "dont", .probability = 1, .isNotAWord = true, .shortcuts = {{"don't", 15}}},
             {.word = "و", .probability = 210}}};
}

/// What a random dictionary is like.
struct RandomModelShape {
    int words = 100;
    /// Letters are drawn from these.
    std::u32string alphabet = U"abcdefgh";
    int longestWord = 9;
    int bigramsPerWord = 3;
    /// One word in so many has shortcuts, flags.
    int oneInSpecial = 5;
};

/// Random models; the same seed and shape give the same model everywhere.
class RandomModelMaker {
public:
    explicit RandomModelMaker(uint32_t seed) : random_(seed) {}

    DictionaryModel make(const RandomModelShape& shape) {
        DictionaryModel model;
        model.attributes = {{"locale", "xx"}, {"description", "سماء é"}, {"date", "12345"}};
        std::set<std::string> words;
        for (int tries = 0; static_cast<int>(words.size()) < shape.words && tries < 20 * shape.words;
             ++tries) {
            words.insert(text(shape, 1 + below(shape.longestWord)));
        }
        for (const std::string& word : words) model.words.push_back(entry(word, shape));
        for (WordEntry& word : model.words) addBigrams(model, shape, &word);
        // A writer must not depend on the order.
        for (size_t i = model.words.size(); i > 1; --i) {
            std::swap(model.words[i - 1], model.words[below(static_cast<int>(i))]);
        }
        return model;
    }

    /// 0 to limit - 1. The library's distributions differ from one system to the next.
    int below(int limit) { return static_cast<int>(random_() % static_cast<uint32_t>(limit)); }

    std::string text(const RandomModelShape& shape, int length) {
        std::u32string letters;
        for (int i = 0; i < length; ++i) {
            letters += shape.alphabet[below(static_cast<int>(shape.alphabet.size()))];
        }
        return wordengine::utf32ToUtf8(letters);
    }

private:
    WordEntry entry(const std::string& word, const RandomModelShape& shape) {
        WordEntry entry;
        entry.word = word;
        entry.probability = below(256);
        if (below(shape.oneInSpecial) != 0) return entry;
        entry.isNotAWord = below(2) == 0;
        entry.isBlacklisted = below(3) == 0;
        for (int i = below(4); i > 0; --i) {
            const std::string target = text(shape, 1 + below(6)) + (below(2) ? " " + text(shape, 3) : "");
            entry.shortcuts.push_back({target, below(16)});
        }
        return entry;
    }

    void addBigrams(const DictionaryModel& model, const RandomModelShape& shape, WordEntry* word) {
        for (int i = below(2 * shape.bigramsPerWord + 1); i > 0; --i) {
            const std::string& target = model.words[below(static_cast<int>(model.words.size()))].word;
            const bool isNew =
                std::ranges::find(word->bigrams, target, &BigramEntry::target) == word->bigrams.end();
            if (isNew) word->bigrams.push_back({target, below(16)});
        }
    }

    std::mt19937 random_;
};

}  // namespace vorpel::compiler::test
