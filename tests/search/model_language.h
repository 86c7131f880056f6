// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/dictionary_model.h"
#include "compiler/version2_writer.h"
#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "dictionary/prev_words_info.h"
#include "search/dic_traverse_session.h"
#include "search/dictionary.h"
#include "search/model_costs.h"
#include "search/model_keyboard.h"
#include "search/results/suggestion_results.h"
#include "search/suggest_options.h"
#include "support/memory_file.h"
#include "text/diagnostics.h"
#include "text/utf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace wordengine::testing {

inline std::vector<int> codePointsOf(const std::u32string& text) {
    return std::vector<int>(text.begin(), text.end());
}

struct FoundWord {
    std::u32string text;
    int score;
    int type;

    bool operator==(const FoundWord&) const = default;
    friend std::ostream& operator<<(std::ostream& stream, const FoundWord& word) {
        return stream << ::testing::PrintToString(word.text) << ' ' << word.score << ' ' << word.type;
    }
};

/// Best first; the same words that a caller's queue would hold.
inline std::vector<FoundWord> wordsOf(const SuggestionResults& results) {
    std::vector<FoundWord> words;
    for (const SuggestedWord& word : results.getSuggestionsVector()) {
        const int* const begin = word.getCodePoint();
        words.push_back({{begin, begin + word.getCodePointCount()}, word.getScore(), word.getType()});
    }
    std::reverse(words.begin(), words.end());
    return words;
}

/// Null for a word that was not found.
inline const FoundWord* find(const std::vector<FoundWord>& words, const std::u32string& text) {
    const auto word =
        std::find_if(words.begin(), words.end(), [&](const FoundWord& each) { return each.text == text; });
    return word == words.end() ? nullptr : &*word;
}

/// A word of a small dictionary, and the strengths, 0 to 15, with which others follow it.
struct ModelWord {
    int probability = 0;
    bool isNotAWord = false;
    std::map<std::u32string, int> pairs = {};
    std::map<std::u32string, int> shortcuts = {};
};

/// A small dictionary in plain maps.
struct ModelWords {
    std::map<std::u32string, ModelWord> words = {};
    bool usesUmlauts = false;
    /// In percent, of what a further word costs: 200 halves it.
    int multipleWordsDemotionRate = 100;

    double furtherWordFactor() const { return 100.0 / multipleWordsDemotionRate; }
    /// Null for what is no word.
    const ModelWord* find(const std::u32string& text) const {
        const auto word = words.find(text);
        return word == words.end() ? nullptr : &word->second;
    }
    /// What the word before it makes of the word's probability; both are in the dictionary, or there is none
    /// before.
    int probabilityAfter(const std::u32string& previous, const std::u32string& text) const {
        const int probability = find(text)->probability;
        const ModelWord* const first = find(previous);
        if (!first) return probability;
        const auto pair = first->pairs.find(text);
        return pair == first->pairs.end() ? probability : liftedProbability(probability, pair->second);
    }
};

/// The same words in a compiled file, opened as any dictionary is, searched on the generated keyboard.
class ModelLanguage {
public:
    static constexpr size_t MAX_RESULTS = 18;

    /// The keyboard must live as long.
    ModelLanguage(const ModelWords& words, const ModelKeyboard& keyboard)
        : proximityInfo_(keyboard.proximityInfo()) {
        Diagnostics::setStream(nullptr);
        const std::vector<uint8_t> bytes = vorpel::compiler::Version2Writer::write(modelOf(words));
        const vorpel::testing::MemoryFile file(bytes);
        auto policy = DictionaryStructureWithBufferPolicyFactory::newPolicyForFileDict(
            file.path().c_str(), 0, static_cast<int>(bytes.size()));
        if (!policy) throw std::runtime_error("the dictionary does not open");
        dictionary_ = std::make_unique<Dictionary>(std::move(policy));
        startAfresh();
    }

    /// A session that remembers nothing. The large queues, so that small dictionaries never fill them.
    void startAfresh() { session_ = std::make_unique<DicTraverseSession>(true); }

    /// Best first.
    std::vector<FoundWord> search(const TypedWord& typed, const std::u32string& previous = {},
                                  const int* times = nullptr, const SuggestOptions* options = nullptr) {
        const std::vector<int> previousCodePoints = codePointsOf(previous);
        const PrevWordsInfo previousWord(previousCodePoints.data(),
                                         static_cast<int>(previousCodePoints.size()), false);
        SuggestionResults results(MAX_RESULTS);
        dictionary_->getSuggestions(proximityInfo_, session_.get(), typed.xs.data(), typed.ys.data(), times,
                                    nullptr, typed.codePoints.data(),
                                    static_cast<int>(typed.codePoints.size()), &previousWord, options, -1.0f,
                                    &results);
        return wordsOf(results);
    }

    const Dictionary& dictionary() const { return *dictionary_; }
    DicTraverseSession* session() { return session_.get(); }
    const SearchStatistics& statistics() const { return session_->getStatistics(); }

private:
    static vorpel::compiler::DictionaryModel modelOf(const ModelWords& words) {
        vorpel::compiler::DictionaryModel model;
        model.attributes = {{"locale", "test"}};
        if (words.usesUmlauts) model.attributes.push_back({"REQUIRES_GERMAN_UMLAUT_PROCESSING", "1"});
        model.attributes.push_back(
            {"MULTIPLE_WORDS_DEMOTION_RATE", std::to_string(words.multipleWordsDemotionRate)});
        for (const auto& [text, word] : words.words) {
            vorpel::compiler::WordEntry entry;
            entry.word = utf32ToUtf8(text);
            entry.probability = word.probability;
            entry.isNotAWord = word.isNotAWord;
            for (const auto& [target, strength] : word.pairs) {
                entry.bigrams.push_back({utf32ToUtf8(target), strength});
            }
            for (const auto& [target, strength] : word.shortcuts) {
                entry.shortcuts.push_back({utf32ToUtf8(target), strength});
            }
            model.words.push_back(std::move(entry));
        }
        return model;
    }

    const ProximityInfo* proximityInfo_;
    std::unique_ptr<Dictionary> dictionary_;
    std::unique_ptr<DicTraverseSession> session_;
};

}  // namespace wordengine::testing
