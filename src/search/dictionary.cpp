// SPDX-License-Identifier: Apache-2.0
#include "search/dictionary.h"

#include "dictionary/ngram_listener.h"
#include "dictionary/prev_words_info.h"
#include "search/dic_traverse_session.h"
#include "search/dictionary_utils.h"
#include "search/gesture_suggest_policy_factory.h"
#include "search/results/suggestion_results.h"
#include "search/suggest.h"
#include "search/suggest_options.h"
#include "search/typing/typing_suggest_policy_factory.h"
#include "text/diagnostics.h"
#include "text/engine_constants.h"
#include "text/time_keeper.h"

#include <utility>

namespace wordengine {

/// Adds each word that an n-gram list names to the results.
class Dictionary::NgramListenerForPrediction final : public NgramListener {
public:
    NgramListenerForPrediction(const PrevWordsInfo* prevWordsInfo, SuggestionResults* suggestionResults,
                               const DictionaryStructureWithBufferPolicy* dictStructurePolicy)
        : prevWordsInfo_(prevWordsInfo),
          suggestionResults_(suggestionResults),
          dictStructurePolicy_(dictStructurePolicy) {}

    void onVisitEntry(int ngramProbability, int targetPtNodePos) override {
        if (targetPtNodePos == NO_DICT_POS) return;
        // Any word may begin a sentence: without a count of its own an entry says nothing.
        if (ngramProbability == NO_PROBABILITY && prevWordsInfo_ &&
            prevWordsInfo_->isNthPrevWordBeginningOfSentence(1)) {
            return;
        }
        int targetCodePoints[WORD_LENGTH_LIMIT];
        int unigramProbability = NO_PROBABILITY;
        const int codePointCount = dictStructurePolicy_->getCodePointsAndProbabilityAndReturnCodePointCount(
            targetPtNodePos, WORD_LENGTH_LIMIT, targetCodePoints, &unigramProbability);
        if (codePointCount <= 0) return;
        suggestionResults_->addPrediction(
            targetCodePoints, codePointCount,
            dictStructurePolicy_->getProbability(unigramProbability, ngramProbability));
    }

private:
    const PrevWordsInfo* const prevWordsInfo_;
    SuggestionResults* const suggestionResults_;
    const DictionaryStructureWithBufferPolicy* const dictStructurePolicy_;
};

Dictionary::Dictionary(
    DictionaryStructureWithBufferPolicy::StructurePolicyPtr dictionaryStructureWithBufferPolicy)
    : dictionaryStructureWithBufferPolicy_(std::move(dictionaryStructureWithBufferPolicy)),
      gestureSuggest_(
          std::make_unique<Suggest<SuggestPolicy>>(GestureSuggestPolicyFactory::getGestureSuggestPolicy())),
      typingSuggest_(std::make_unique<Suggest<TypingSuggestPolicy>>(
          TypingSuggestPolicyFactory::getTypingSuggestPolicy())) {}

Dictionary::~Dictionary() = default;

void Dictionary::getSuggestions(const ProximityInfo* proximityInfo, DicTraverseSession* traverseSession,
                                const int* xCoordinates, const int* yCoordinates, const int* times,
                                const int* pointerIds, const int* inputCodePoints, int inputSize,
                                const PrevWordsInfo* prevWordsInfo, const SuggestOptions* suggestOptions,
                                float languageWeight, SuggestionResults* outSuggestionResults) const {
    TimeKeeper::setCurrentTime();
    traverseSession->init(this, prevWordsInfo, suggestOptions);
    const bool isGesture = suggestOptions && suggestOptions->isGesture();
    Diagnostics::print("isGestureBool: %d\n", isGesture);
    const SuggestInterface& suggest = isGesture ? *gestureSuggest_ : *typingSuggest_;
    suggest.getSuggestions(proximityInfo, traverseSession, xCoordinates, yCoordinates, times, pointerIds,
                           inputCodePoints, inputSize, languageWeight, outSuggestionResults);
}

void Dictionary::getPredictions(const PrevWordsInfo* prevWordsInfo,
                                SuggestionResults* outSuggestionResults) const {
    TimeKeeper::setCurrentTime();
    const DictionaryStructureWithBufferPolicy* const policy = getDictionaryStructurePolicy();
    if (!policy) return;
    NgramListenerForPrediction listener(prevWordsInfo, outSuggestionResults, policy);
    int prevWordsPtNodePos[] = {NO_DICT_POS};
    if (prevWordsInfo) prevWordsInfo->getPrevWordsTerminalPtNodePos(policy, prevWordsPtNodePos, true);
    policy->iterateNgramEntries(prevWordsPtNodePos, &listener);
}

int Dictionary::getProbability(const int* word, int length) const {
    return getNgramProbability(nullptr, word, length);
}

int Dictionary::getNgramProbability(const PrevWordsInfo* prevWordsInfo, const int* word, int length) const {
    TimeKeeper::setCurrentTime();
    const DictionaryStructureWithBufferPolicy* const policy = getDictionaryStructurePolicy();
    if (!policy) return NO_PROBABILITY;
    const int nextWordPos = policy->getTerminalPtNodePositionOfWord(word, length, false);
    if (nextWordPos == NO_DICT_POS) return NO_PROBABILITY;
    if (!prevWordsInfo) return policy->getProbabilityOfPtNode(nullptr, nextWordPos);
    int prevWordsPtNodePos[] = {NO_DICT_POS};
    prevWordsInfo->getPrevWordsTerminalPtNodePos(policy, prevWordsPtNodePos, true);
    return policy->getProbabilityOfPtNode(prevWordsPtNodePos, nextWordPos);
}

int Dictionary::getMaxProbabilityOfExactMatches(const int* word, int length) const {
    TimeKeeper::setCurrentTime();
    const DictionaryStructureWithBufferPolicy* const policy = getDictionaryStructurePolicy();
    return policy ? DictionaryUtils::getMaxProbabilityOfExactMatches(policy, word, length) : NO_PROBABILITY;
}

bool Dictionary::addUnigramEntry(const int* word, int length, const UnigramProperty* unigramProperty) {
    TimeKeeper::setCurrentTime();
    return dictionaryStructureWithBufferPolicy_ &&
           dictionaryStructureWithBufferPolicy_->addUnigramEntry(word, length, unigramProperty);
}

bool Dictionary::removeUnigramEntry(const int* word, int length) {
    TimeKeeper::setCurrentTime();
    return dictionaryStructureWithBufferPolicy_ &&
           dictionaryStructureWithBufferPolicy_->removeUnigramEntry(word, length);
}

bool Dictionary::addNgramEntry(const PrevWordsInfo* prevWordsInfo, const BigramProperty* bigramProperty) {
    TimeKeeper::setCurrentTime();
    return dictionaryStructureWithBufferPolicy_ &&
           dictionaryStructureWithBufferPolicy_->addNgramEntry(prevWordsInfo, bigramProperty);
}

bool Dictionary::removeNgramEntry(const PrevWordsInfo* prevWordsInfo, const int* word, int length) {
    TimeKeeper::setCurrentTime();
    return dictionaryStructureWithBufferPolicy_ &&
           dictionaryStructureWithBufferPolicy_->removeNgramEntry(prevWordsInfo, word, length);
}

bool Dictionary::flush(const char* filePath) {
    TimeKeeper::setCurrentTime();
    return dictionaryStructureWithBufferPolicy_ && dictionaryStructureWithBufferPolicy_->flush(filePath);
}

bool Dictionary::flushWithGC(const char* filePath) {
    TimeKeeper::setCurrentTime();
    return dictionaryStructureWithBufferPolicy_ &&
           dictionaryStructureWithBufferPolicy_->flushWithGC(filePath);
}

bool Dictionary::needsToRunGC(bool mindsBlockByGC) const {
    TimeKeeper::setCurrentTime();
    return dictionaryStructureWithBufferPolicy_ &&
           dictionaryStructureWithBufferPolicy_->needsToRunGC(mindsBlockByGC);
}

void Dictionary::getProperty(const char* query, int queryLength, char* outResult, int maxResultLength) {
    TimeKeeper::setCurrentTime();
    if (dictionaryStructureWithBufferPolicy_) {
        dictionaryStructureWithBufferPolicy_->getProperty(query, queryLength, outResult, maxResultLength);
    } else if (maxResultLength > 0) {
        outResult[0] = '\0';
    }
}

int Dictionary::getNextWordAndNextToken(int token, int* outCodePoints, int* outCodePointCount) {
    TimeKeeper::setCurrentTime();
    return dictionaryStructureWithBufferPolicy_
               ? dictionaryStructureWithBufferPolicy_->getNextWordAndNextToken(token, outCodePoints,
                                                                               outCodePointCount)
               : 0;
}

}  // namespace wordengine
