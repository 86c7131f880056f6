// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "dictionary/header_policy.h"
#include "dictionary/trie/dynamic_pt_reading_helper.h"
#include "dictionary/trie/word_walk.h"
#include "dictionary/v2/bigram_list_policy.h"
#include "dictionary/v2/shortcut_list_policy.h"
#include "dictionary/v2/ver2_particia_trie_node_reader.h"
#include "dictionary/v2/ver2_pt_node_array_reader.h"
#include "dictionary/word_property.h"
#include "storage/byte_array_view.h"
#include "storage/mmapped_buffer.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace wordengine {

/// A read-only dictionary in one file, read straight from the mapping. Any bytes may come: what does not
/// fit together sets the corruption mark and yields less, never a read outside the file. A header that
/// claims more bytes than the file has, or fewer than its own fields take, leaves an empty body.
class PatriciaTriePolicy final : public DictionaryStructureWithBufferPolicy {
public:
    /// The buffer begins with a header.
    explicit PatriciaTriePolicy(MmappedBuffer::MmappedBufferPtr mmappedBuffer);

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
    const DictionaryHeaderStructurePolicy* getHeaderStructurePolicy() const override {
        return &headerPolicy_;
    }
    const DictionaryShortcutsStructurePolicy* getShortcutsStructurePolicy() const override {
        return &shortcutListPolicy_;
    }

    bool addUnigramEntry(const int*, int, const UnigramProperty*) override { return false; }
    bool removeUnigramEntry(const int*, int) override { return false; }
    bool addNgramEntry(const PrevWordsInfo*, const BigramProperty*) override { return false; }
    bool removeNgramEntry(const PrevWordsInfo*, const int*, int) override { return false; }
    bool flush(const char*) override { return false; }
    bool flushWithGC(const char*) override { return false; }
    bool needsToRunGC(bool) const override { return false; }
    /// There are no properties: the answer is the empty string.
    void getProperty(const char* query, int queryLength, char* outResult, int maxResultLength) override;

    /// Allocates: the walk keeps the positions of all words.
    int getNextWordAndNextToken(int token, int* outCodePoints, int* outCodePointCount) override;
    bool isCorrupted() const override { return isCorrupted_; }

    /// Everything about one word, probabilities as they are stored.
    WordProperty getWordProperty(const int* word, int length) const;

    int getBigramsPositionOfPtNode(int ptNodePos) const;

private:
    /// A listener may look for the word of each entry of a list, which costs more the longer the file is.
    /// A list made to make both long is left alone after some tenths of a second.
    static constexpr int64_t MAX_BYTES_OF_WORD_SEARCHES_IN_ONE_LIST = int64_t{1} << 28;

    bool isInBody(int pos) const { return pos >= 0 && pos < static_cast<int>(body_.size()); }
    DynamicPtReadingHelper createReadingHelper() const;
    bool canSearchMoreWords(int64_t bytesAtStart) const {
        return bytesOfWordSearches_ - bytesAtStart <= MAX_BYTES_OF_WORD_SEARCHES_IN_ONE_LIST;
    }
    std::vector<BigramProperty> readBigramProperties(const PtNodeParams& ptNodeParams) const;
    std::vector<UnigramProperty::ShortcutProperty> readShortcutProperties(
        const PtNodeParams& ptNodeParams) const;

    MmappedBuffer::MmappedBufferPtr mmappedBuffer_;
    HeaderPolicy headerPolicy_;
    ReadOnlyByteArrayView body_;
    BigramListPolicy bigramListPolicy_;
    ShortcutListPolicy shortcutListPolicy_;
    Ver2ParticiaTrieNodeReader ptNodeReader_;
    Ver2PtNodeArrayReader ptNodeArrayReader_;
    WordWalk wordWalk_;
    mutable bool isCorrupted_ = false;
    /// Bytes that have been read to find words by their positions.
    mutable int64_t bytesOfWordSearches_ = 0;
};

}  // namespace wordengine
