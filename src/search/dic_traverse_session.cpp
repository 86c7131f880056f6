// SPDX-License-Identifier: Apache-2.0
#include "search/dic_traverse_session.h"

#include "dictionary/dictionary_header_structure_policy.h"
#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "dictionary/prev_words_info.h"
#include "search/dictionary.h"
#include "text/digraph_utils.h"

#include <stdexcept>

namespace wordengine {

void DicTraverseSession::init(const Dictionary* dictionary, const PrevWordsInfo* prevWordsInfo,
                              const SuggestOptions* suggestOptions) {
    statistics_ = SearchStatistics();
    dictionary_ = dictionary;
    dictionaryStructurePolicy_ = dictionary->getDictionaryStructurePolicy();
    if (!dictionaryStructurePolicy_) throw std::runtime_error("Dictionary Buffer Policy is nil.");
    multiWordCostMultiplier_ =
        dictionaryStructurePolicy_->getHeaderStructurePolicy()->getMultiWordCostMultiplier();
    hasDigraphs_ =
        DigraphUtils::getDigraphTypeForDictionary(dictionaryStructurePolicy_->getHeaderStructurePolicy()) !=
        DigraphUtils::DIGRAPH_TYPE_NONE;
    workspace_.children.attach(dictionaryStructurePolicy_);
    suggestOptions_ = suggestOptions;
    prevWordsPtNodePos_[0] = NO_DICT_POS;
    if (prevWordsInfo) {
        prevWordsInfo->getPrevWordsTerminalPtNodePos(dictionaryStructurePolicy_, prevWordsPtNodePos_, true);
    }
}

void DicTraverseSession::setupForGetSuggestions(const ProximityInfo* proximityInfo,
                                                const int* inputCodePoints, int inputSize, const int* inputXs,
                                                const int* inputYs, const int* times, const int* pointerIds,
                                                float maxSpatialDistance, int maxPointerCount) {
    proximityInfo_ = proximityInfo;
    maxPointerCount_ = maxPointerCount;
    initializeProximityInfoStates(inputCodePoints, inputSize, inputXs, inputYs, times, pointerIds,
                                  maxSpatialDistance);
}

void DicTraverseSession::initializeProximityInfoStates(const int* inputCodePoints, int inputSize,
                                                       const int* inputXs, const int* inputYs,
                                                       const int* times, const int* pointerIds,
                                                       float maxSpatialDistance) {
    // Two pointers mean drawn words, whose points are sampled.
    const bool isGeometric = maxPointerCount_ == MAX_POINTER_COUNT;
    inputSize_ = 0;
    for (int pointerId = 0; pointerId < maxPointerCount_; ++pointerId) {
        proximityInfoStates_[pointerId].initInputParams(pointerId, maxSpatialDistance, proximityInfo_,
                                                        inputCodePoints, inputSize, inputXs, inputYs, times,
                                                        pointerIds, isGeometric);
        inputSize_ += proximityInfoStates_[pointerId].size();
    }
}

void DicTraverseSession::resetCache(int nextActiveSize, int maxWords) {
    dicNodesCache_.reset(nextActiveSize, maxWords);
    multiBigramMap_.clear();
}

bool DicTraverseSession::isContinuousSuggestionPossible() const {
    if (!dicNodesCache_.hasCachedDicNodesForContinuousSuggestion()) return false;
    for (const ProximityInfoState& state : proximityInfoStates_) {
        if (state.isUsed() && !state.isContinuousSuggestionPossible()) return false;
    }
    return true;
}

bool DicTraverseSession::isOnlyOnePointerUsed(int* pointerId) const {
    int usedPointerCount = 0;
    int usedPointerId = 0;
    for (int i = 0; i < MAX_POINTER_COUNT; ++i) {
        if (!proximityInfoStates_[i].isUsed()) continue;
        ++usedPointerCount;
        usedPointerId = i;
    }
    if (usedPointerCount != 1) return false;
    if (pointerId) *pointerId = usedPointerId;
    return true;
}

}  // namespace wordengine
