// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/patricia_trie_policy.h"

#include "dictionary/binary_dictionary_bigrams_iterator.h"
#include "dictionary/ngram_listener.h"
#include "dictionary/trie/pt_node_params.h"
#include "dictionary/v2/patricia_trie_reading_utils.h"
#include "dictionary/v2/patricia_trie_word_finder.h"
#include "node/dic_node_child.h"
#include "storage/byte_reader.h"
#include "text/char_utils.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <array>
#include <utility>

namespace wordengine {

namespace {

constexpr int HIGHEST_PROBABILITY = 255;

/// A pair's four bits are steps of the way from its word's own probability up to the highest.
constexpr float BIGRAM_PROBABILITY_STEP_COUNT = 16.5f;

/// The part of the file behind the header, none if the header can not be believed. It ends where a
/// three-byte offset added to a position would no longer be a position.
ReadOnlyByteArrayView bodyOf(ReadOnlyByteArrayView file, int headerSize) {
    constexpr size_t MAX_BODY_SIZE = 0x7FFFFFFF - 0xFFFFFF;
    if (headerSize < FormatUtils::DICTIONARY_MINIMUM_SIZE) return {};
    const size_t bodyOffset = static_cast<size_t>(headerSize);
    if (bodyOffset > file.size()) return {};
    return {file.data() + bodyOffset, std::min(file.size() - bodyOffset, MAX_BODY_SIZE)};
}

}  // namespace

PatriciaTriePolicy::PatriciaTriePolicy(MmappedBuffer::MmappedBufferPtr mmappedBuffer)
    : mmappedBuffer_(std::move(mmappedBuffer)),
      headerPolicy_(mmappedBuffer_->getReadOnlyByteArrayView(), FormatUtils::VERSION_2),
      body_(bodyOf(mmappedBuffer_->getReadOnlyByteArrayView(), headerPolicy_.getSize())),
      bigramListPolicy_(body_),
      shortcutListPolicy_(body_),
      ptNodeReader_(body_, &bigramListPolicy_, &shortcutListPolicy_),
      ptNodeArrayReader_(body_) {}

void PatriciaTriePolicy::readChildren(int ptNodeArrayPos, DicNodeChildList* outChildren) const {
    ByteReader reader(body_, ptNodeArrayPos);
    const int bytesAhead = reader.ok() ? reader.remaining() : 0;
    const int ptNodeCount = PatriciaTrieReadingUtils::getPtNodeArraySizeAndAdvancePosition(&reader);
    std::array<int, WORD_LENGTH_LIMIT> codePoints;
    for (int i = 0; i < ptNodeCount && reader.ok(); ++i) {
        const int ptNodePos = reader.position();
        NodeFlags flags;
        codePoints[0] = NO_CODE_POINT;
        int codePointCount, probability, childrenPos, shortcutPos, bigramPos;
        const bool isWhole = PatriciaTrieReadingUtils::readPtNodeInfo(
            &reader, &shortcutListPolicy_, &bigramListPolicy_, &flags, &codePointCount, codePoints.data(),
            &probability, &childrenPos, &shortcutPos, &bigramPos);
        // Other first letters are marks of the dictionary's own, which nobody types.
        if (!isWhole || !CharUtils::isInUnicodeSpace(codePoints[0])) continue;
        outChildren->add(
            ptNodePos, childrenPos, probability, PatriciaTrieReadingUtils::isTerminal(flags),
            PatriciaTrieReadingUtils::hasChildrenInFlags(flags),
            PatriciaTrieReadingUtils::isBlacklisted(flags) || PatriciaTrieReadingUtils::isNotAWord(flags),
            codePointCount, codePoints.data());
    }
    if (!reader.ok()) isCorrupted_ = true;
    // How far a read that failed has gone is not known.
    outChildren->countBytesRead(reader.ok() ? bytesAhead - reader.remaining() : bytesAhead);
}

int PatriciaTriePolicy::getCodePointsAndProbabilityAndReturnCodePointCount(int ptNodePos,
                                                                           int maxCodePointCount,
                                                                           int* outCodePoints,
                                                                           int* outUnigramProbability) const {
    *outUnigramProbability = NO_PROBABILITY;
    if (!isInBody(ptNodePos)) return 0;
    PatriciaTrieWordFinder finder(body_, &shortcutListPolicy_, &bigramListPolicy_);
    const int length = finder.find(ptNodePos, maxCodePointCount, outCodePoints, outUnigramProbability);
    if (finder.hasMetCorruption()) isCorrupted_ = true;
    bytesOfWordSearches_ += finder.bytesRead();
    return length;
}

DynamicPtReadingHelper PatriciaTriePolicy::createReadingHelper() const {
    DynamicPtReadingHelper helper(&ptNodeReader_, &ptNodeArrayReader_, static_cast<int>(body_.size()));
    helper.initWithPtNodeArrayPos(getRootPosition());
    return helper;
}

int PatriciaTriePolicy::getTerminalPtNodePositionOfWord(const int* word, int length,
                                                        bool forceLowerCaseSearch) const {
    DynamicPtReadingHelper helper = createReadingHelper();
    const int pos = helper.getTerminalPtNodePositionOfWord(word, length, forceLowerCaseSearch);
    if (helper.isError()) isCorrupted_ = true;
    return pos;
}

int PatriciaTriePolicy::getProbability(int unigramProbability, int bigramProbability) const {
    if (unigramProbability == NO_PROBABILITY || bigramProbability == NO_PROBABILITY) {
        return unigramProbability;
    }
    const float step =
        static_cast<float>(HIGHEST_PROBABILITY - unigramProbability) / BIGRAM_PROBABILITY_STEP_COUNT;
    return unigramProbability + static_cast<int>(static_cast<float>(bigramProbability + 1) * step);
}

int PatriciaTriePolicy::getProbabilityOfPtNode(const int* prevWordsPtNodePos, int ptNodePos) const {
    if (ptNodePos == NO_DICT_POS) return NO_PROBABILITY;
    const PtNodeParams ptNodeParams = ptNodeReader_.fetchPtNodeParamsInBufferFromPtNodePos(ptNodePos);
    if (ptNodeParams.isNotAWord() || ptNodeParams.isBlacklisted()) return NO_PROBABILITY;
    if (prevWordsPtNodePos == nullptr) return getProbability(ptNodeParams.getProbability(), NO_PROBABILITY);
    BinaryDictionaryBigramsIterator bigrams(&bigramListPolicy_,
                                            getBigramsPositionOfPtNode(prevWordsPtNodePos[0]));
    while (bigrams.hasNext()) {
        bigrams.next();
        if (bigrams.getBigramPos() == ptNodePos && bigrams.getProbability() != NO_PROBABILITY) {
            return getProbability(ptNodeParams.getProbability(), bigrams.getProbability());
        }
    }
    return NO_PROBABILITY;
}

void PatriciaTriePolicy::iterateNgramEntries(const int* prevWordsPtNodePos, NgramListener* listener) const {
    if (prevWordsPtNodePos == nullptr) return;
    const int64_t bytesAtStart = bytesOfWordSearches_;
    BinaryDictionaryBigramsIterator bigrams(&bigramListPolicy_,
                                            getBigramsPositionOfPtNode(prevWordsPtNodePos[0]));
    while (bigrams.hasNext() && canSearchMoreWords(bytesAtStart)) {
        bigrams.next();
        listener->onVisitEntry(bigrams.getProbability(), bigrams.getBigramPos());
    }
}

int PatriciaTriePolicy::getShortcutPositionOfPtNode(int ptNodePos) const {
    if (ptNodePos == NO_DICT_POS) return NO_DICT_POS;
    return ptNodeReader_.fetchPtNodeParamsInBufferFromPtNodePos(ptNodePos).getShortcutPos();
}

int PatriciaTriePolicy::getBigramsPositionOfPtNode(int ptNodePos) const {
    if (ptNodePos == NO_DICT_POS) return NO_DICT_POS;
    return ptNodeReader_.fetchPtNodeParamsInBufferFromPtNodePos(ptNodePos).getBigramsPos();
}

void PatriciaTriePolicy::getProperty(const char*, int, char* outResult, int maxResultLength) {
    if (maxResultLength > 0) outResult[0] = '\0';
}

int PatriciaTriePolicy::getNextWordAndNextToken(int token, int* outCodePoints, int* outCodePointCount) {
    return wordWalk_.next(token, createReadingHelper(), *this, outCodePoints, outCodePointCount,
                          &isCorrupted_);
}

}  // namespace wordengine
