// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/patricia_trie_word_finder.h"

#include "dictionary/v2/patricia_trie_reading_utils.h"
#include "storage/byte_reader.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <array>

namespace wordengine {

int PatriciaTrieWordFinder::find(int ptNodePos, int maxCodePointCount, int* outCodePoints,
                                 int* outUnigramProbability) {
    codePoints_ = outCodePoints;
    maxCodePointCount_ = maxCodePointCount;
    *outUnigramProbability = NO_PROBABILITY;
    int pos = 0;
    for (int level = 0; level < maxCodePointCount; ++level) {
        const int arrayPos = pos;
        ByteReader reader(body_, arrayPos);
        const ScanResult result = scanArray(&reader, ptNodePos, &pos);
        if (reader.position() > arrayPos) bytesRead_ += reader.position() - arrayPos;
        switch (result) {
            case ScanResult::FOUND:
                return readLastNode(ptNodePos, outUnigramProbability);
            case ScanResult::CAN_DESCEND:
                if (!appendNodeAndGoToChildren(&pos)) return 0;
                break;
            case ScanResult::RAN_OUT:
                break;
            case ScanResult::FAILED:
                hasMetCorruption_ = true;
                return 0;
        }
    }
    return 0;
}

PatriciaTrieWordFinder::ScanResult PatriciaTrieWordFinder::scanArray(ByteReader* reader, int ptNodePos,
                                                                     int* outPos) const {
    // No node lies at the very beginning, where the root's count is.
    constexpr int NO_CANDIDATE = 0;
    int lastCandidate = NO_CANDIDATE;
    const int ptNodeCount = PatriciaTrieReadingUtils::getPtNodeArraySizeAndAdvancePosition(reader);
    for (int i = 0; i < ptNodeCount && reader->ok(); ++i) {
        const int startPos = reader->position();
        if (startPos == ptNodePos) return ScanResult::FOUND;
        const NodeFlags flags = PatriciaTrieReadingUtils::getFlagsAndAdvancePosition(reader);
        PatriciaTrieReadingUtils::skipCharacters(reader, flags, WORD_LENGTH_LIMIT);
        if (PatriciaTrieReadingUtils::isTerminal(flags)) {
            PatriciaTrieReadingUtils::readProbabilityAndAdvancePosition(reader);
        }
        const int childrenPos =
            PatriciaTrieReadingUtils::readChildrenPositionAndAdvancePosition(reader, flags);
        const bool isLast = i == ptNodeCount - 1;
        if (childrenPos != NO_DICT_POS && childrenPos <= ptNodePos) lastCandidate = startPos;
        // The word lies below the candidate as soon as a later node's children begin behind the word.
        if (lastCandidate != NO_CANDIDATE && reader->ok() && (isLast || childrenPos > ptNodePos)) {
            *outPos = lastCandidate;
            return ScanResult::CAN_DESCEND;
        }
        int shortcutPos, bigramPos;
        PatriciaTrieReadingUtils::skipLists(reader, flags, shortcutPolicy_, bigramPolicy_, &shortcutPos,
                                            &bigramPos);
    }
    *outPos = reader->position();
    return reader->ok() ? ScanResult::RAN_OUT : ScanResult::FAILED;
}

bool PatriciaTrieWordFinder::appendNodeAndGoToChildren(int* inOutPos) {
    std::array<int, WORD_LENGTH_LIMIT> codePoints;
    ByteReader reader(body_, *inOutPos);
    const NodeFlags flags = PatriciaTrieReadingUtils::getFlagsAndAdvancePosition(&reader);
    const int count = PatriciaTrieReadingUtils::getCharsAndAdvancePosition(&reader, flags, WORD_LENGTH_LIMIT,
                                                                           codePoints.data());
    if (PatriciaTrieReadingUtils::isTerminal(flags)) {
        PatriciaTrieReadingUtils::readProbabilityAndAdvancePosition(&reader);
    }
    *inOutPos = PatriciaTrieReadingUtils::readChildrenPositionAndAdvancePosition(&reader, flags);
    if (wordLength_ + count >= maxCodePointCount_) return false;
    std::copy_n(codePoints.begin(), count, codePoints_ + wordLength_);
    wordLength_ += count;
    return true;
}

int PatriciaTrieWordFinder::readLastNode(int ptNodePos, int* outUnigramProbability) {
    std::array<int, WORD_LENGTH_LIMIT> codePoints;
    ByteReader reader(body_, ptNodePos);
    const NodeFlags flags = PatriciaTrieReadingUtils::getFlagsAndAdvancePosition(&reader);
    const int count = PatriciaTrieReadingUtils::getCharsAndAdvancePosition(&reader, flags, WORD_LENGTH_LIMIT,
                                                                           codePoints.data());
    const int probability = PatriciaTrieReadingUtils::readProbabilityAndAdvancePosition(&reader);
    if (!PatriciaTrieReadingUtils::isTerminal(flags) || count < 1) return 0;
    if (!reader.ok()) {
        hasMetCorruption_ = true;
        return 0;
    }
    const int storedCount = std::min(count, maxCodePointCount_ - wordLength_);
    std::copy_n(codePoints.begin(), storedCount, codePoints_ + wordLength_);
    *outUnigramProbability = probability;
    return wordLength_ + storedCount;
}

}  // namespace wordengine
