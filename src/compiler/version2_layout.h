// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/dictionary_model.h"
#include "compiler/patricia_trie.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorpel::compiler {

/// A model ready for writing: words sorted and decoded, bigram targets resolved, everything within the
/// limits of the format. Refers to the model, which must outlive it.
class PreparedModel {
public:
    /// Throws CompileError for whatever the format cannot hold.
    explicit PreparedModel(const DictionaryModel& model);

    int wordCount() const { return static_cast<int>(entries_.size()); }
    const WordEntry& entry(int word) const { return *entries_[word]; }
    const std::vector<std::u32string_view>& words() const { return words_; }
    /// The word that the n-th bigram of this word leads to.
    int bigramTarget(int word, int n) const { return targets_[firstBigram_[word] + n]; }
    /// Where the bigrams of a word begin in a flat list of all.
    int firstBigram(int word) const { return firstBigram_[word]; }
    /// Bytes of the word's shortcut list with its size field, 0 for an empty one.
    int shortcutListSize(int word) const { return shortcutListSizes_[word]; }
    int bigramCount() const { return static_cast<int>(targets_.size()); }

private:
    void sortEntries(const DictionaryModel& model);
    void decodeWords();
    void resolveBigrams();
    int findWord(const std::string& word) const;

    std::vector<const WordEntry*> entries_;
    std::u32string text_;
    std::vector<std::u32string_view> words_;
    std::vector<int> shortcutListSizes_;
    std::vector<int> firstBigram_;
    std::vector<int> targets_;
};

/// Where each part of the body goes, and how many bytes each offset takes: the fewest that hold it.
/// A longer offset moves what lies behind it, which may make other offsets longer; sizes only ever grow,
/// so that repeating it comes to an end.
class Version2Layout {
public:
    /// Throws CompileError when an offset would need more than three bytes.
    Version2Layout(const PreparedModel& model, const PatriciaTrie& trie);

    int64_t bodySize() const { return bodySize_; }
    /// 0 for a node without children.
    int childOffsetSize(int node) const { return childOffsetSizes_[node]; }
    int bigramOffsetSize(int bigram) const { return bigramOffsetSizes_[bigram]; }
    int64_t arrayPosition(int array) const { return arrayPositions_[array]; }
    int64_t wordPosition(int word) const { return nodePositions_[nodeOfWord_[word]]; }

private:
    void measureNodes();
    void place();
    bool growOffsets();
    bool growBigramOffsets(int node, int64_t listPosition);
    bool fit(int64_t offset, uint8_t* size, int node) const;

    const PreparedModel& model_;
    const PatriciaTrie& trie_;
    /// Bytes from a node's start to the field of its children's offset, and those of its shortcuts.
    std::vector<int> headSizes_;
    std::vector<int> shortcutSizes_;
    std::vector<int> nodeOfWord_;
    std::vector<uint8_t> childOffsetSizes_;
    std::vector<uint8_t> bigramOffsetSizes_;
    std::vector<int64_t> nodePositions_;
    std::vector<int64_t> arrayPositions_;
    int64_t bodySize_ = 0;
};

/// Bytes of a string in the dictionary's encoding.
int encodedSize(std::u32string_view text);

}  // namespace vorpel::compiler
