// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "dictionary/ngram_listener.h"
#include "text/engine_constants.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <vector>

namespace wordengine {

/// A small fixed set of positions: it may claim one that was never added, never the other way round.
class BloomFilter {
public:
    void addToFilter(int position) { filter_[indexOf(position)] = true; }
    bool testFilter(int position) const { return filter_[indexOf(position)]; }
    void clear() { filter_.reset(); }

private:
    // A prime, so that regular distances between positions spread over all bits.
    static constexpr size_t BIT_COUNT = 1021;

    static size_t indexOf(int position) { return static_cast<unsigned int>(position) % BIT_COUNT; }

    std::bitset<BIT_COUNT> filter_;
};

/// What a search has learned about the words that may follow its previous words: each list is read once,
/// at the first question. Storage is kept across `clear`, so that a warmed-up map allocates nothing.
class MultiBigramMap {
public:
    static constexpr int MAX_CACHED_PREV_WORDS_IN_BIGRAM_MAP = 25;

    MultiBigramMap() {
        for (BigramMap& map : bigramMaps_) map.reserve();
    }

    /// The probability of the word at `nextWordPosition` after the previous word.
    int getBigramProbability(const DictionaryStructureWithBufferPolicy* policy, const int* prevWordsPtNodePos,
                             int nextWordPosition, int unigramProbability);

    void clear() { usedMapCount_ = 0; }

private:
    /// The list of one previous word, as an open-addressed table. Its size is bounded whatever the list
    /// holds: what finds no place after MAX_ENTRY_COUNT entries, far beyond any real word, is dropped.
    class BigramMap final : public NgramListener {
    public:
        static constexpr size_t DEFAULT_HASH_MAP_SIZE_FOR_EACH_BIGRAM_MAP = 100;
        static constexpr size_t MAX_ENTRY_COUNT = 65536;

        /// Room for a usual list.
        void reserve();
        void init(const DictionaryStructureWithBufferPolicy* policy, const int* prevWordsPtNodePos);
        int getBigramProbability(const DictionaryStructureWithBufferPolicy* policy, int nextWordPosition,
                                 int unigramProbability) const;
        void onVisitEntry(int ngramProbability, int targetPtNodePos) override;

    private:
        /// Taken while its generation is the table's: a new generation empties the table at no cost.
        struct Slot {
            int targetPtNodePos = NO_DICT_POS;
            int probability = NO_PROBABILITY;
            unsigned int generation = 0;
        };

        static constexpr size_t NO_SLOT = static_cast<size_t>(-1);

        /// Where the target is or may be put; NO_SLOT if its neighbourhood is full.
        size_t findSlot(const std::vector<Slot>& slots, int targetPtNodePos) const;
        bool isFree(const Slot& slot) const { return slot.generation != generation_; }
        bool isCrowdedBy(size_t slotIndex) const;
        bool makeRoom();

        std::vector<Slot> slots_;
        size_t entryCount_ = 0;
        unsigned int generation_ = 0;
        bool isFull_ = false;
        BloomFilter bloomFilter_;
    };

    const BigramMap* findMap(int prevWordPtNodePos) const;
    static int readBigramProbabilityFromBinaryDictionary(const DictionaryStructureWithBufferPolicy* policy,
                                                         const int* prevWordsPtNodePos, int nextWordPosition,
                                                         int unigramProbability);

    // Positions apart from the maps: they are scanned at every question and fill two cache lines.
    std::array<int, MAX_CACHED_PREV_WORDS_IN_BIGRAM_MAP> prevWordPtNodePositions_;
    std::array<BigramMap, MAX_CACHED_PREV_WORDS_IN_BIGRAM_MAP> bigramMaps_;
    int usedMapCount_ = 0;
};

}  // namespace wordengine
