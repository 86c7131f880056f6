// SPDX-License-Identifier: Apache-2.0
#include "dictionary/multi_bigram_map.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace wordengine {

namespace {

// A crowded neighbourhood makes the table grow rather than the probing long: list entries are chosen by
// whoever made the file, and could be chosen to meet.
constexpr size_t MAX_PROBE_COUNT = 64;

size_t firstSlotIndexOf(int targetPtNodePos, size_t slotCount) {
    constexpr uint32_t GOLDEN_RATIO = 0x9E3779B9;
    const uint32_t hash = static_cast<uint32_t>(targetPtNodePos) * GOLDEN_RATIO;
    return hash >> (32 - std::countr_zero(slotCount));
}

}  // namespace

int MultiBigramMap::getBigramProbability(const DictionaryStructureWithBufferPolicy* policy,
                                         const int* prevWordsPtNodePos, int nextWordPosition,
                                         int unigramProbability) {
    if (prevWordsPtNodePos == nullptr || prevWordsPtNodePos[0] == NO_DICT_POS) {
        return policy->getProbability(unigramProbability, NO_PROBABILITY);
    }
    const BigramMap* map = findMap(prevWordsPtNodePos[0]);
    if (map == nullptr) {
        if (usedMapCount_ >= MAX_CACHED_PREV_WORDS_IN_BIGRAM_MAP) {
            return readBigramProbabilityFromBinaryDictionary(policy, prevWordsPtNodePos, nextWordPosition,
                                                             unigramProbability);
        }
        bigramMaps_[usedMapCount_].init(policy, prevWordsPtNodePos);
        prevWordPtNodePositions_[usedMapCount_] = prevWordsPtNodePos[0];
        map = &bigramMaps_[usedMapCount_++];
    }
    return map->getBigramProbability(policy, nextWordPosition, unigramProbability);
}

const MultiBigramMap::BigramMap* MultiBigramMap::findMap(int prevWordPtNodePos) const {
    const auto end = prevWordPtNodePositions_.begin() + usedMapCount_;
    const auto found = std::find(prevWordPtNodePositions_.begin(), end, prevWordPtNodePos);
    return found == end ? nullptr : &bigramMaps_[found - prevWordPtNodePositions_.begin()];
}

int MultiBigramMap::readBigramProbabilityFromBinaryDictionary(
    const DictionaryStructureWithBufferPolicy* policy, const int* prevWordsPtNodePos, int nextWordPosition,
    int unigramProbability) {
    const int probability = policy->getProbabilityOfPtNode(prevWordsPtNodePos, nextWordPosition);
    if (probability != NO_PROBABILITY) return probability;
    return policy->getProbability(unigramProbability, NO_PROBABILITY);
}

void MultiBigramMap::BigramMap::reserve() {
    slots_.assign(std::bit_ceil(DEFAULT_HASH_MAP_SIZE_FOR_EACH_BIGRAM_MAP), Slot());
}

void MultiBigramMap::BigramMap::init(const DictionaryStructureWithBufferPolicy* policy,
                                     const int* prevWordsPtNodePos) {
    if (++generation_ == 0) {
        std::fill(slots_.begin(), slots_.end(), Slot());
        generation_ = 1;
    }
    entryCount_ = 0;
    isFull_ = false;
    bloomFilter_.clear();
    policy->iterateNgramEntries(prevWordsPtNodePos, this);
}

int MultiBigramMap::BigramMap::getBigramProbability(const DictionaryStructureWithBufferPolicy* policy,
                                                    int nextWordPosition, int unigramProbability) const {
    int bigramProbability = NO_PROBABILITY;
    if (bloomFilter_.testFilter(nextWordPosition)) {
        const size_t index = findSlot(slots_, nextWordPosition);
        if (index != NO_SLOT && !isFree(slots_[index])) bigramProbability = slots_[index].probability;
    }
    return policy->getProbability(unigramProbability, bigramProbability);
}

void MultiBigramMap::BigramMap::onVisitEntry(int ngramProbability, int targetPtNodePos) {
    if (targetPtNodePos == NO_DICT_POS || isFull_) return;
    size_t index = findSlot(slots_, targetPtNodePos);
    while (isCrowdedBy(index)) {
        if (!makeRoom()) return;
        index = findSlot(slots_, targetPtNodePos);
    }
    // A word that is listed twice has the last probability.
    if (isFree(slots_[index])) ++entryCount_;
    slots_[index] = {targetPtNodePos, ngramProbability, generation_};
    bloomFilter_.addToFilter(targetPtNodePos);
}

size_t MultiBigramMap::BigramMap::findSlot(const std::vector<Slot>& slots, int targetPtNodePos) const {
    size_t index = firstSlotIndexOf(targetPtNodePos, slots.size());
    for (size_t probe = 0; probe < MAX_PROBE_COUNT; ++probe) {
        if (isFree(slots[index]) || slots[index].targetPtNodePos == targetPtNodePos) return index;
        index = (index + 1) & (slots.size() - 1);
    }
    return NO_SLOT;
}

bool MultiBigramMap::BigramMap::isCrowdedBy(size_t slotIndex) const {
    if (slotIndex == NO_SLOT) return true;
    return isFree(slots_[slotIndex]) && 2 * (entryCount_ + 1) > slots_.size();
}

bool MultiBigramMap::BigramMap::makeRoom() {
    for (size_t slotCount = slots_.size() * 2; slotCount <= 2 * MAX_ENTRY_COUNT; slotCount *= 2) {
        std::vector<Slot> grown(slotCount);
        const bool haveAllMoved = std::all_of(slots_.begin(), slots_.end(), [&](const Slot& slot) {
            if (isFree(slot)) return true;
            const size_t index = findSlot(grown, slot.targetPtNodePos);
            if (index != NO_SLOT) grown[index] = slot;
            return index != NO_SLOT;
        });
        if (!haveAllMoved) continue;
        slots_ = std::move(grown);
        return true;
    }
    isFull_ = true;
    return false;
}

}  // namespace wordengine
