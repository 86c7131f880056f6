// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "dictionary/trie/dynamic_pt_reading_helper.h"
#include "dictionary/trie/dynamic_pt_updating_helper.h"
#include "dictionary/trie/word_walk.h"
#include "dictionary/v4/ver4_bigram_list_policy.h"
#include "dictionary/v4/ver4_dict_buffers.h"
#include "dictionary/v4/ver4_patricia_trie_node_reader.h"
#include "dictionary/v4/ver4_patricia_trie_node_writer.h"
#include "dictionary/v4/ver4_pt_node_array_reader.h"
#include "dictionary/v4/ver4_shortcut_list_policy.h"
#include "dictionary/word_property.h"

#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace wordengine {

/// A dictionary that learns: words, pairs and shortcuts can be added, changed and removed. Any bytes may
/// come; what does not fit together sets the corruption mark, and a corrupted dictionary refuses changes. A
/// removed word is absent for whoever looks, and its places are used again when it comes back.
class Ver4PatriciaTriePolicy final : public DictionaryStructureWithBufferPolicy {
public:
    static constexpr const char* UNIGRAM_COUNT_QUERY = "UNIGRAM_COUNT";
    static constexpr const char* BIGRAM_COUNT_QUERY = "BIGRAM_COUNT";
    static constexpr const char* MAX_UNIGRAM_COUNT_QUERY = "MAX_UNIGRAM_COUNT";
    static constexpr const char* MAX_BIGRAM_COUNT_QUERY = "MAX_BIGRAM_COUNT";

    /// What a change may take of each part; it is refused where there is less.
    static constexpr int MARGIN_TO_REFUSE_DYNAMIC_OPERATIONS = 1024;
    static constexpr int MIN_DICT_SIZE_TO_REFUSE_DYNAMIC_OPERATIONS =
        Ver4DictConstants::MAX_DICTIONARY_SIZE - MARGIN_TO_REFUSE_DYNAMIC_OPERATIONS;

    /// The buffers must be there; how much they hold, the header says.
    explicit Ver4PatriciaTriePolicy(Ver4DictBuffers::Ver4DictBuffersPtr buffers)
        : Ver4PatriciaTriePolicy(std::move(buffers), std::nullopt) {}

    struct Counts {
        int unigrams = 0;
        int bigrams = 0;
    };

    /// The same, where the header is older than the buffers.
    Ver4PatriciaTriePolicy(Ver4DictBuffers::Ver4DictBuffersPtr buffers, std::optional<Counts> counts);

    int getRootPosition() const override { return 0; }
    void readChildren(int ptNodeArrayPos, DicNodeChildList* outChildren) const override;
    int getCodePointsAndProbabilityAndReturnCodePointCount(int ptNodePos, int maxCodePointCount,
                                                           int* outCodePoints,
                                                           int* outUnigramProbability) const override;
    int getTerminalPtNodePositionOfWord(const int* word, int length,
                                        bool forceLowerCaseSearch) const override;
    int getProbability(int unigramProbability, int bigramProbability) const override;
    int getProbabilityOfPtNode(const int* prevWordsPtNodePos, int ptNodePos) const override;
    void iterateNgramEntries(const int* prevWordsPtNodePos, NgramListener* listener) const override;
    int getShortcutPositionOfPtNode(int ptNodePos) const override;
    int getBigramsPositionOfPtNode(int ptNodePos) const;
    const DictionaryHeaderStructurePolicy* getHeaderStructurePolicy() const override { return headerPolicy_; }
    const DictionaryShortcutsStructurePolicy* getShortcutsStructurePolicy() const override {
        return &shortcutPolicy_;
    }

    bool addUnigramEntry(const int* word, int length, const UnigramProperty* unigramProperty) override;
    bool removeUnigramEntry(const int* word, int length) override;
    bool addNgramEntry(const PrevWordsInfo* prevWordsInfo, const BigramProperty* bigramProperty) override;
    bool removeNgramEntry(const PrevWordsInfo* prevWordsInfo, const int* word, int length) override;

    // A dictionary in memory has no files yet.
    bool flush(const char*) override { return false; }
    bool flushWithGC(const char*) override { return false; }
    bool needsToRunGC(bool mindsBlockByGC) const override;

    /// Copies what is worth keeping into buffers without a trie. This dictionary can be read afterwards, and
    /// no more be changed.
    bool collectInto(Ver4DictBuffers* buffersToWrite, Counts* outCounts);

    /// Answers the four queries, each in full; leaves the result alone for any other.
    void getProperty(const char* query, int queryLength, char* outResult, int maxResultLength) override;
    int getNextWordAndNextToken(int token, int* outCodePoints, int* outCodePointCount) override;
    bool isCorrupted() const override { return isCorrupted_; }

    [[nodiscard]] int getUnigramCount() const { return unigramCount_; }
    [[nodiscard]] int getBigramCount() const { return bigramCount_; }

    /// Everything about one word, probabilities as they count now.
    [[nodiscard]] WordProperty getWordProperty(const int* word, int length) const;

private:
    [[nodiscard]] DynamicPtReadingHelper createReadingHelper(int ptNodeArrayPos) const;
    [[nodiscard]] PtNodeParams fetchLivingWord(int ptNodePos) const;
    [[nodiscard]] bool canChange() const;
    bool noteDamage(bool isDamaged) const;
    bool addBeginningOfSentence(const int* word, int length);
    bool addShortcuts(int wordPos, const UnigramProperty& unigramProperty);
    [[nodiscard]] int getPositionOfPreviousWord(const PrevWordsInfo& prevWordsInfo) const;
    [[nodiscard]] int answerTo(std::string_view query) const;
    [[nodiscard]] std::vector<BigramProperty> readBigramProperties(int terminalId) const;
    [[nodiscard]] std::vector<UnigramProperty::ShortcutProperty> readShortcutProperties(int terminalId) const;

    Ver4DictBuffers::Ver4DictBuffersPtr buffers_;
    const HeaderPolicy* headerPolicy_;
    BufferWithExtendableBuffer* trieBuffer_;
    Ver4BigramListPolicy bigramPolicy_;
    Ver4ShortcutListPolicy shortcutPolicy_;
    Ver4PatriciaTrieNodeReader nodeReader_;
    Ver4PtNodeArrayReader ptNodeArrayReader_;
    Ver4PatriciaTrieNodeWriter nodeWriter_;
    DynamicPtUpdatingHelper updatingHelper_;
    int unigramCount_;
    int bigramCount_;
    WordWalk wordWalk_;
    bool isCollected_ = false;
    mutable bool isCorrupted_ = false;
};

}  // namespace wordengine
