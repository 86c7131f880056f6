// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/prev_words_info.h"
#include "proximity/layouts.h"
#include "search/dic_traverse_session.h"
#include "search/dictionary.h"
#include "search/results/suggestion_results.h"
#include "search/suggest_options.h"
#include "support/plain_dictionary.h"
#include "text/diagnostics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace wordengine::testing {

struct FoundWord {
    std::u32string text;
    int score;
    int type;

    bool operator==(const FoundWord&) const = default;
    friend std::ostream& operator<<(std::ostream& stream, const FoundWord& word) {
        return stream << ::testing::PrintToString(word.text) << ' ' << word.score << ' ' << word.type;
    }
};

/// A typed word: letters, and where they were touched.
struct TypedWord {
    std::vector<int> codePoints, xs, ys;
};

/// A session over a plain dictionary and a plain keyboard; a letter is typed at its key's centre.
class SearchFixture {
public:
    static constexpr int MAX_RESULTS = 18;

    explicit SearchFixture(PlainDictionary dictionary, Layout layout = qwertyLayout())
        : layout_(std::move(layout)), proximityInfo_(layout_.build()) {
        Diagnostics::setStream(nullptr);
        auto policy = std::make_unique<PlainDictionary>(std::move(dictionary));
        dictionary_ = std::make_unique<Dictionary>(std::move(policy));
        startAfresh();
    }

    void startAfresh() { session_ = std::make_unique<DicTraverseSession>(true); }

    TypedWord touch(const std::u32string& text) const {
        TypedWord typed;
        for (const char32_t letter : text) {
            const int codePoint = static_cast<int>(letter);
            const int key = CharUtils::toBaseLowerCase(codePoint);
            const bool hasKey = layout_.keyOf(key) < layout_.keyCount();
            typed.codePoints.push_back(codePoint);
            typed.xs.push_back(hasKey ? layout_.centerX(key) : 0);
            typed.ys.push_back(hasKey ? layout_.centerY(key) : 0);
        }
        return typed;
    }

    /// Best first; the same words that a caller's queue would hold.
    std::vector<FoundWord> search(const TypedWord& typed, const PrevWordsInfo* prevWordsInfo = nullptr,
                                  std::vector<int> options = {}) {
        const SuggestOptions suggestOptions(options.data(), static_cast<int>(options.size()));
        const PrevWordsInfo none;
        SuggestionResults results(MAX_RESULTS);
        dictionary_->getSuggestions(proximityInfo_.get(), session_.get(), typed.xs.data(), typed.ys.data(),
                                    nullptr, nullptr, typed.codePoints.data(),
                                    static_cast<int>(typed.codePoints.size()),
                                    prevWordsInfo ? prevWordsInfo : &none, &suggestOptions, -1.0f, &results);
        return wordsOf(results);
    }
    std::vector<FoundWord> search(const std::u32string& text) { return search(touch(text)); }

    static std::vector<FoundWord> wordsOf(const SuggestionResults& results) {
        std::vector<FoundWord> words;
        for (const SuggestedWord& word : results.getSuggestionsVector()) {
            words.push_back(
                {std::u32string(word.getCodePoint(), word.getCodePoint() + word.getCodePointCount()),
                 word.getScore(), word.getType()});
        }
        std::reverse(words.begin(), words.end());
        return words;
    }

    static const FoundWord* find(const std::vector<FoundWord>& words, const std::u32string& text) {
        const auto word =
            std::find_if(words.begin(), words.end(), [&](const FoundWord& w) { return w.text == text; });
        return word == words.end() ? nullptr : &*word;
    }

    /// The session as a search for `text` begins with it, for questions to the policy.
    DicTraverseSession* prepare(const std::u32string& text) {
        typed_ = touch(text);
        session_->init(dictionary_.get(), nullptr, nullptr);
        session_->setupForGetSuggestions(proximityInfo_.get(), typed_.codePoints.data(),
                                         static_cast<int>(typed_.codePoints.size()), typed_.xs.data(),
                                         typed_.ys.data(), nullptr, nullptr, 1.0f, 1);
        return session_.get();
    }

    Dictionary& dictionary() { return *dictionary_; }
    DicTraverseSession& session() { return *session_; }
    const SearchStatistics& statistics() const { return session_->getStatistics(); }
    const ProximityInfo* proximityInfo() const { return proximityInfo_.get(); }
    const Layout& layout() const { return layout_; }

private:
    Layout layout_;
    std::unique_ptr<ProximityInfo> proximityInfo_;
    std::unique_ptr<Dictionary> dictionary_;
    std::unique_ptr<DicTraverseSession> session_;
    TypedWord typed_;
};

}  // namespace wordengine::testing
