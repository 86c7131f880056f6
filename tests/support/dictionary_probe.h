// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/dictionary_listing.h"
#include "compiler/dictionary_verifier.h"
#include "compiler/input_error.h"
#include "dictionary/binary_dictionary_shortcut_iterator.h"
#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "dictionary/ngram_listener.h"
#include "dictionary/prev_words_info.h"
#include "dictionary/v2/patricia_trie_policy.h"
#include "proximity/layouts.h"
#include "search/dic_traverse_session.h"
#include "search/dictionary.h"
#include "search/results/suggestion_results.h"
#include "search/suggest_options.h"
#include "support/answer_check.h"
#include "support/guarded_mapping.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace vorpel::testing {

/// Everything that can be asked of a dictionary file, asked of one whose bytes nobody vouches for. Under
/// sanitizers; what must hold whatever the bytes is required. The questions are few enough for some
/// hundred files a second.
class DictionaryProbe {
public:
    explicit DictionaryProbe(std::span<const uint8_t> file) : file_(file), mapping_(file) {}

    void run() {
        const bool isSound = compiler::DictionaryVerifier::verify(file_).empty();
        listWords();
        if (!open()) {
            require(!isSound, "what is verified can be opened");
            return;
        }
        readHeader();
        const bool isWhole = walk();
        isRefused_ = policy_->isCorrupted();
        if (isSound) requireSound(isWhole);
        readPositions();
        for (const Word& word : asked()) {
            lookUp(word);
            predict(word);
            search(word, nullptr);
        }
        if (words_.size() > 1) search(words_[1], &words_[0]);
    }

    /// Whether the file could not be opened or a walk over its words found it to be damaged.
    [[nodiscard]] bool isRefused() const { return isRefused_; }

private:
    using Word = std::vector<int>;

    static constexpr size_t MAX_WALKED_WORDS = 200;
    static constexpr size_t MAX_ASKED_WORDS = 2;
    static constexpr size_t MAX_TYPED_LETTERS = 5;
    static constexpr int MAX_RESULTS = 18;

    bool open() {
        using Factory = wordengine::DictionaryStructureWithBufferPolicyFactory;
        const bool opens =
            Factory::newPolicyForExistingDictFile(mapping_.path().c_str(), mapping_.offset(),
                                                  static_cast<int>(file_.size()), false) != nullptr;
        if (!opens) return false;
        auto policy = std::make_unique<wordengine::PatriciaTriePolicy>(mapping_.open());
        policy_ = policy.get();
        dictionary_.emplace(std::move(policy));
        return true;
    }

    /// As `dict words` and `dict info` do.
    void listWords() const {
        if (file_.empty()) return;
        const MemoryFile copy(file_);
        try {
            static_cast<void>(compiler::DictionaryListing::open(copy.path()).info());
        } catch (const compiler::CompileError&) {
            // Damaged, and told so.
        }
    }

    void readHeader() {
        int value[wordengine::Dictionary::HEADER_ATTRIBUTE_BUFFER_SIZE];
        for (const char* key : {"locale", "date", "none"}) {
            policy_->getHeaderStructurePolicy()->readHeaderValueOrQuestionMark(key, value, 32);
        }
    }

    /// Whether the walk came to its end.
    bool walk() {
        Word word(wordengine::WORD_LENGTH_LIMIT);
        int token = 0;
        do {
            int length = 0;
            token = dictionary_->getNextWordAndNextToken(token, word.data(), &length);
            require(length >= 0 && length <= wordengine::WORD_LENGTH_LIMIT, "walked words fit");
            if (length > 0) words_.emplace_back(word.begin(), word.begin() + length);
        } while (token != 0 && words_.size() < MAX_WALKED_WORDS);
        return token == 0;
    }

    void requireSound(bool isWholeWalk) {
        require(!isRefused_, "what is verified is not corrupted");
        for (const Word& word : words_) {
            const int position = policy_->getTerminalPtNodePositionOfWord(word.data(), lengthOf(word), false);
            require(position != wordengine::NO_DICT_POS, "what is walked is found");
            require(wordAt(position) == word, "a word's position leads to the word");
        }
        if (!isWholeWalk) return;
        std::vector<Word> sorted = words_;
        std::sort(sorted.begin(), sorted.end());
        require(std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end(), "no word is walked twice");
    }

    /// Positions that a forged list may name.
    void readPositions() {
        const int size = static_cast<int>(file_.size());
        for (int position = -2; position < size + 2; position += 1 + size / 64) {
            wordAt(position);
            ListReader reader(this);
            policy_->iterateNgramEntries(&position, &reader);
            policy_->getProbabilityOfPtNode(&position, position / 2);
            readShortcuts(position);
        }
    }

    struct ListReader final : wordengine::NgramListener {
        explicit ListReader(const DictionaryProbe* owner) : probe(owner) {}
        void onVisitEntry(int, int target) override { probe->wordAt(target); }
        const DictionaryProbe* probe;
    };

    Word wordAt(int position) const {
        Word word(wordengine::WORD_LENGTH_LIMIT);
        int probability = 0;
        const int length = policy_->getCodePointsAndProbabilityAndReturnCodePointCount(
            position, lengthOf(word), word.data(), &probability);
        require(length >= 0 && length <= lengthOf(word), "words fit");
        word.resize(static_cast<size_t>(length));
        return word;
    }

    void readShortcuts(int position) const {
        wordengine::BinaryDictionaryShortcutIterator shortcuts(
            policy_->getShortcutsStructurePolicy(), policy_->getShortcutPositionOfPtNode(position));
        while (shortcuts.hasNext()) {
            int target[wordengine::WORD_LENGTH_LIMIT];
            int length = 0;
            shortcuts.next(target, &length, nullptr);
            require(length >= 0 && length <= wordengine::WORD_LENGTH_LIMIT, "shortcuts fit");
        }
    }

    /// Some words of the dictionary, and some that it need not have.
    std::vector<Word> asked() const {
        std::vector<Word> words = {{'i', 't', 'e', 'h'}};
        for (size_t i = 0; i < std::min(words_.size(), MAX_ASKED_WORDS); ++i) {
            words.push_back(words_[i]);
            if (words_[i].size() > 2) std::swap(words.back()[1], words.back()[2]);
        }
        return words;
    }

    void lookUp(const Word& word) {
        const int length = lengthOf(word);
        const wordengine::PrevWordsInfo previous(word.data(), length, false);
        dictionary_->getProbability(word.data(), length);
        dictionary_->getNgramProbability(&previous, word.data(), length);
        dictionary_->getMaxProbabilityOfExactMatches(word.data(), length);
        policy_->getWordProperty(word.data(), length);
    }

    void predict(const Word& previousWord) {
        const wordengine::PrevWordsInfo previous(previousWord.data(), lengthOf(previousWord), false);
        wordengine::SuggestionResults results(MAX_RESULTS);
        dictionary_->getPredictions(&previous, &results);
        checkAnswer(results.getSuggestionsVector(), MAX_RESULTS);
    }

    /// Letter by letter, each at the centre of its key.
    void search(const Word& word, const Word* previousWord) {
        static const wordengine::Layout layout = wordengine::qwertyLayout();
        static const std::unique_ptr<const wordengine::ProximityInfo> keyboard = layout.build();
        const int* const noWord = nullptr;
        const wordengine::PrevWordsInfo previous(previousWord ? previousWord->data() : noWord,
                                                 previousWord ? lengthOf(*previousWord) : 0, false);
        const wordengine::SuggestOptions options(nullptr, 0);
        std::vector<int> xs, ys;
        for (size_t i = 0; i < std::min(word.size(), MAX_TYPED_LETTERS); ++i) {
            const bool hasKey = layout.keyOf(word[i]) < layout.keyCount();
            xs.push_back(hasKey ? layout.centerX(word[i]) : 500);
            ys.push_back(hasKey ? layout.centerY(word[i]) : 300);
            wordengine::SuggestionResults results(MAX_RESULTS);
            dictionary_->getSuggestions(keyboard.get(), &session_, xs.data(), ys.data(), nullptr, nullptr,
                                        word.data(), static_cast<int>(i + 1), &previous, &options, -1.0f,
                                        &results);
            checkAnswer(results.getSuggestionsVector(), MAX_RESULTS);
        }
    }

    static int lengthOf(const Word& word) { return static_cast<int>(word.size()); }

    std::span<const uint8_t> file_;
    GuardedMapping mapping_;
    const wordengine::PatriciaTriePolicy* policy_ = nullptr;
    std::optional<wordengine::Dictionary> dictionary_;
    wordengine::DicTraverseSession session_{false};
    std::vector<Word> words_;
    bool isRefused_ = true;
};

}  // namespace vorpel::testing
