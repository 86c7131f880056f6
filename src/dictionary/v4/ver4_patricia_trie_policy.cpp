// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/ver4_patricia_trie_policy.h"

#include "dictionary/ngram_listener.h"
#include "dictionary/v4/forgetting_curve_utils.h"
#include "node/dic_node_child.h"

#include <cstdio>

namespace wordengine {

Ver4PatriciaTriePolicy::Ver4PatriciaTriePolicy(Ver4DictBuffers::Ver4DictBuffersPtr buffers,
                                               std::optional<Counts> counts)
    : buffers_(std::move(buffers)),
      headerPolicy_(buffers_->getHeaderPolicy()),
      trieBuffer_(buffers_->getWritableTrieBuffer()),
      bigramPolicy_(buffers_->getMutableBigramDictContent(), buffers_->getTerminalPositionLookupTable(),
                    headerPolicy_),
      shortcutPolicy_(buffers_->getMutableShortcutDictContent()),
      nodeReader_(trieBuffer_, buffers_->getProbabilityContent(), headerPolicy_),
      ptNodeArrayReader_(trieBuffer_),
      nodeWriter_({trieBuffer_, buffers_->getMutableTerminalPositionLookupTable(),
                   buffers_->getMutableProbabilityContent(), &bigramPolicy_, &shortcutPolicy_, &nodeReader_,
                   &ptNodeArrayReader_, headerPolicy_}),
      updatingHelper_(trieBuffer_, &nodeReader_, &nodeWriter_),
      unigramCount_(counts ? counts->unigrams : headerPolicy_->getUnigramCount()),
      bigramCount_(counts ? counts->bigrams : headerPolicy_->getBigramCount()) {}

DynamicPtReadingHelper Ver4PatriciaTriePolicy::createReadingHelper(int ptNodeArrayPos) const {
    DynamicPtReadingHelper helper(&nodeReader_, &ptNodeArrayReader_, trieBuffer_->getTailPosition());
    helper.initWithPtNodeArrayPos(ptNodeArrayPos);
    return helper;
}

/// @return the same
bool Ver4PatriciaTriePolicy::noteDamage(bool isDamaged) const {
    if (isDamaged) isCorrupted_ = true;
    return isDamaged;
}

void Ver4PatriciaTriePolicy::readChildren(int ptNodeArrayPos, DicNodeChildList* outChildren) const {
    DynamicPtReadingHelper helper = createReadingHelper(ptNodeArrayPos);
    while (!helper.isEnd()) {
        const PtNodeParams child = helper.getPtNodeParams();
        if (noteDamage(!child.isValid())) break;
        const int size = child.getSiblingNodePos() - child.getHeadPos();
        // A node that has moved lies elsewhere than its next sibling.
        outChildren->countBytesRead(size > 0 ? size : 1);
        helper.goToNextSibling(child);
        if (child.representsNonWordInfo()) continue;
        const bool isTerminal =
            child.isTerminal() && !child.isDeleted() &&
            (!headerPolicy_->isDecayingDict() || child.getProbability() != NO_PROBABILITY);
        outChildren->add(child.getHeadPos(), child.getChildrenPos(), child.getProbability(), isTerminal,
                         child.hasChildren(), child.isBlacklisted() || child.isNotAWord(),
                         child.getCodePointCount(), child.getCodePoints());
    }
    noteDamage(helper.isError());
}

int Ver4PatriciaTriePolicy::getCodePointsAndProbabilityAndReturnCodePointCount(
    int ptNodePos, int maxCodePointCount, int* outCodePoints, int* outUnigramProbability) const {
    DynamicPtReadingHelper helper(&nodeReader_, &ptNodeArrayReader_, trieBuffer_->getTailPosition());
    helper.initWithPtNodePos(ptNodePos);
    const int count = helper.getCodePointsAndProbabilityAndReturnCodePointCount(
        maxCodePointCount, outCodePoints, outUnigramProbability);
    noteDamage(helper.isError());
    return count;
}

int Ver4PatriciaTriePolicy::getTerminalPtNodePositionOfWord(const int* word, int length,
                                                            bool forceLowerCaseSearch) const {
    DynamicPtReadingHelper helper = createReadingHelper(getRootPosition());
    const int pos = helper.getTerminalPtNodePositionOfWord(word, length, forceLowerCaseSearch);
    noteDamage(helper.isError());
    return fetchLivingWord(pos).isValid() ? pos : NO_DICT_POS;
}

PtNodeParams Ver4PatriciaTriePolicy::fetchLivingWord(int ptNodePos) const {
    if (ptNodePos == NO_DICT_POS) return PtNodeParams();
    const PtNodeParams word = nodeReader_.fetchPtNodeParamsInBufferFromPtNodePos(ptNodePos);
    return word.isValid() && word.isTerminal() && !word.isDeleted() ? word : PtNodeParams();
}

int Ver4PatriciaTriePolicy::getProbability(int unigramProbability, int bigramProbability) const {
    if (headerPolicy_->isDecayingDict()) {
        return ForgettingCurveUtils::getProbability(unigramProbability, bigramProbability);
    }
    if (unigramProbability == NO_PROBABILITY) return NO_PROBABILITY;
    // Here a pair has a probability of its own, not one that builds on its word's.
    return bigramProbability == NO_PROBABILITY ? unigramProbability : bigramProbability;
}

int Ver4PatriciaTriePolicy::getProbabilityOfPtNode(const int* prevWordsPtNodePos, int ptNodePos) const {
    const PtNodeParams word = fetchLivingWord(ptNodePos);
    if (!word.isValid() || word.isNotAWord() || word.isBlacklisted()) return NO_PROBABILITY;
    if (prevWordsPtNodePos == nullptr) return getProbability(word.getProbability(), NO_PROBABILITY);
    const BigramListContent& content = *buffers_->getBigramDictContent();
    int remainingEntryCount = content.getMaxEntryCount();
    int pos = getBigramsPositionOfPtNode(prevWordsPtNodePos[0]);
    while (const auto found = content.readNextEntry(&pos, &remainingEntryCount)) {
        if (!found->entry.isValid() || found->entry.getTargetTerminalId() != word.getTerminalId()) continue;
        const int bigramProbability = bigramPolicy_.getProbability(found->entry);
        if (bigramProbability != NO_PROBABILITY) {
            return getProbability(word.getProbability(), bigramProbability);
        }
    }
    noteDamage(remainingEntryCount < 0);
    return NO_PROBABILITY;
}

void Ver4PatriciaTriePolicy::iterateNgramEntries(const int* prevWordsPtNodePos,
                                                 NgramListener* listener) const {
    if (prevWordsPtNodePos == nullptr) return;
    const BigramListContent& content = *buffers_->getBigramDictContent();
    int remainingEntryCount = content.getMaxEntryCount();
    int pos = getBigramsPositionOfPtNode(prevWordsPtNodePos[0]);
    while (const auto found = content.readNextEntry(&pos, &remainingEntryCount)) {
        if (!found->entry.isValid()) continue;
        const int targetPos = buffers_->getTerminalPositionLookupTable()->getTerminalPtNodePosition(
            found->entry.getTargetTerminalId());
        listener->onVisitEntry(bigramPolicy_.getProbability(found->entry), targetPos);
    }
    noteDamage(remainingEntryCount < 0);
}

int Ver4PatriciaTriePolicy::getShortcutPositionOfPtNode(int ptNodePos) const {
    const PtNodeParams word = fetchLivingWord(ptNodePos);
    if (!word.isValid()) return NO_DICT_POS;
    return buffers_->getShortcutDictContent()->getShortcutListHeadPos(word.getTerminalId());
}

int Ver4PatriciaTriePolicy::getBigramsPositionOfPtNode(int ptNodePos) const {
    const PtNodeParams word = fetchLivingWord(ptNodePos);
    if (!word.isValid()) return NO_DICT_POS;
    return buffers_->getBigramDictContent()->getBigramListHeadPos(word.getTerminalId());
}

int Ver4PatriciaTriePolicy::answerTo(std::string_view query) const {
    const bool isDecaying = headerPolicy_->isDecayingDict();
    if (query == UNIGRAM_COUNT_QUERY) return unigramCount_;
    if (query == BIGRAM_COUNT_QUERY) return bigramCount_;
    if (query == MAX_UNIGRAM_COUNT_QUERY) {
        return isDecaying
                   ? ForgettingCurveUtils::getUnigramCountHardLimit(headerPolicy_->getMaxUnigramCount())
                   : Ver4DictConstants::MAX_DICTIONARY_SIZE;
    }
    if (query == MAX_BIGRAM_COUNT_QUERY) {
        return isDecaying ? ForgettingCurveUtils::getBigramCountHardLimit(headerPolicy_->getMaxBigramCount())
                          : Ver4DictConstants::MAX_DICTIONARY_SIZE;
    }
    return -1;
}

void Ver4PatriciaTriePolicy::getProperty(const char* query, int queryLength, char* outResult,
                                         int maxResultLength) {
    if (query == nullptr || queryLength < 0 || maxResultLength <= 0) return;
    const int answer = answerTo({query, static_cast<size_t>(queryLength)});
    if (answer >= 0) std::snprintf(outResult, static_cast<size_t>(maxResultLength), "%d", answer);
}

int Ver4PatriciaTriePolicy::getNextWordAndNextToken(int token, int* outCodePoints, int* outCodePointCount) {
    return wordWalk_.next(token, createReadingHelper(getRootPosition()), *this, outCodePoints,
                          outCodePointCount, &isCorrupted_);
}

}  // namespace wordengine
