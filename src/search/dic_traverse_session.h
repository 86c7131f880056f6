// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/multi_bigram_map.h"
#include "proximity/proximity_info_state.h"
#include "search/dic_nodes_cache.h"
#include "search/search_statistics.h"
#include "search/search_workspace.h"
#include "text/engine_constants.h"

namespace wordengine {

class Dictionary;
class DictionaryStructureWithBufferPolicy;
class PrevWordsInfo;
class ProximityInfo;
class SuggestOptions;

/// The working area of searches in one dictionary. What it keeps from request to request is what lets the
/// search for "hel" go on from the one for "he", and spares a warmed-up search every allocation. It owns
/// its storage; dictionary, geometry and options are the caller's and must outlive the request. One search
/// at a time, on one thread.
class DicTraverseSession {
public:
    /// Bytes from which on a dictionary is worth the large queues.
    static constexpr int DICTIONARY_SIZE_THRESHOLD_TO_USE_LARGE_CACHE_FOR_SUGGESTION = 262144;
    static constexpr int MAX_POINTER_COUNT = 2;

    explicit DicTraverseSession(bool usesLargeCache) : dicNodesCache_(usesLargeCache) {}
    DicTraverseSession(const DicTraverseSession&) = delete;
    DicTraverseSession& operator=(const DicTraverseSession&) = delete;

    /// First of all at each request. A dictionary that could not be opened throws std::runtime_error;
    /// null information stands for no previous word, null options for none.
    void init(const Dictionary* dictionary, const PrevWordsInfo* prevWordsInfo,
              const SuggestOptions* suggestOptions);

    /// Takes the input of the request in; arrays as for ProximityInfoState.
    void setupForGetSuggestions(const ProximityInfo* proximityInfo, const int* inputCodePoints, int inputSize,
                                const int* inputXs, const int* inputYs, const int* times,
                                const int* pointerIds, float maxSpatialDistance, int maxPointerCount);

    /// Starts a fresh search.
    void resetCache(int nextActiveSize, int maxWords);

    /// Whether there are nodes to go on from and the input only grew since they were kept.
    bool isContinuousSuggestionPossible() const;

    /// Whether exactly one pointer has points; its id is stored then, if asked for.
    bool isOnlyOnePointerUsed(int* pointerId) const;

    const ProximityInfoState* getProximityInfoState(int id) const { return &proximityInfoStates_[id]; }
    const ProximityInfo* getProximityInfo() const { return proximityInfo_; }
    const SuggestOptions* getSuggestOptions() const { return suggestOptions_; }
    const DictionaryStructureWithBufferPolicy* getDictionaryStructurePolicy() const {
        return dictionaryStructurePolicy_;
    }
    /// One position, NO_DICT_POS without a known previous word.
    const int* getPrevWordsPtNodePos() const { return prevWordsPtNodePos_; }
    /// Points of all pointers.
    int getInputSize() const { return inputSize_; }
    float getMultiWordCostMultiplier() const { return multiWordCostMultiplier_; }
    /// Whether some letters of the dictionary may be typed as two.
    bool hasDigraphs() const { return hasDigraphs_; }
    bool isTouchPositionCorrectionEnabled() const {
        return proximityInfoStates_[0].touchPositionCorrectionEnabled();
    }
    DicNodesCache* getDicTraverseCache() { return &dicNodesCache_; }
    const DicNodesCache* getDicTraverseCache() const { return &dicNodesCache_; }
    MultiBigramMap* getMultiBigramMap() { return &multiBigramMap_; }
    SearchWorkspace* getWorkspace() { return &workspace_; }

    /// What the last request's search did.
    const SearchStatistics& getStatistics() const { return statistics_; }
    SearchStatistics* getMutableStatistics() { return &statistics_; }

private:
    void initializeProximityInfoStates(const int* inputCodePoints, int inputSize, const int* inputXs,
                                       const int* inputYs, const int* times, const int* pointerIds,
                                       float maxSpatialDistance);

    int prevWordsPtNodePos_[1] = {NO_DICT_POS};
    const ProximityInfo* proximityInfo_ = nullptr;
    const Dictionary* dictionary_ = nullptr;
    const DictionaryStructureWithBufferPolicy* dictionaryStructurePolicy_ = nullptr;
    const SuggestOptions* suggestOptions_ = nullptr;
    DicNodesCache dicNodesCache_;
    MultiBigramMap multiBigramMap_;
    ProximityInfoState proximityInfoStates_[MAX_POINTER_COUNT];
    int inputSize_ = 0;
    int maxPointerCount_ = 1;
    float multiWordCostMultiplier_ = 1.0f;
    bool hasDigraphs_ = false;
    SearchWorkspace workspace_;
    SearchStatistics statistics_;
};

}  // namespace wordengine
