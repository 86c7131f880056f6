// SPDX-License-Identifier: Apache-2.0
#include "dictionary/binary_dictionary_bigrams_iterator.h"
#include "dictionary/trie/pt_node_params.h"
#include "dictionary/v2/patricia_trie_policy.h"
#include "dictionary/v2/shortcut_list_reading_utils.h"
#include "storage/byte_reader.h"
#include "text/engine_constants.h"

#include <array>

namespace wordengine {

namespace {

// What this format does not keep.
constexpr int NO_TIMESTAMP = -1;
constexpr int NO_LEVEL = 0;
constexpr int NO_COUNT = 0;

/// More than any real word has. An entry of one byte may stand for a word of 48 letters, so that a list as
/// long as its file would take many times the file in memory.
constexpr size_t MAX_BIGRAMS_OF_A_WORD = 65536;

}  // namespace

WordProperty PatriciaTriePolicy::getWordProperty(const int* word, int length) const {
    const int ptNodePos = getTerminalPtNodePositionOfWord(word, length, false);
    if (ptNodePos == NO_DICT_POS) return WordProperty();
    const PtNodeParams ptNodeParams = ptNodeReader_.fetchPtNodeParamsInBufferFromPtNodePos(ptNodePos);
    const std::vector<int> codePoints(word, word + length);
    const std::vector<BigramProperty> bigrams = readBigramProperties(ptNodeParams);
    const UnigramProperty unigramProperty(ptNodeParams.getCodePoints()[0] == CODE_POINT_BEGINNING_OF_SENTENCE,
                                          ptNodeParams.isNotAWord(), ptNodeParams.isBlacklisted(),
                                          ptNodeParams.getProbability(), NO_TIMESTAMP, NO_LEVEL, NO_COUNT,
                                          readShortcutProperties(ptNodeParams));
    return WordProperty(&codePoints, &unigramProperty, &bigrams);
}

std::vector<BigramProperty> PatriciaTriePolicy::readBigramProperties(const PtNodeParams& ptNodeParams) const {
    std::vector<BigramProperty> properties;
    std::array<int, WORD_LENGTH_LIMIT> codePoints;
    const int64_t bytesAtStart = bytesOfWordSearches_;
    BinaryDictionaryBigramsIterator bigrams(&bigramListPolicy_, ptNodeParams.getBigramsPos());
    while (bigrams.hasNext() && canSearchMoreWords(bytesAtStart) &&
           properties.size() < MAX_BIGRAMS_OF_A_WORD) {
        bigrams.next();
        int unigramProbability;
        const int length = getCodePointsAndProbabilityAndReturnCodePointCount(
            bigrams.getBigramPos(), WORD_LENGTH_LIMIT, codePoints.data(), &unigramProbability);
        if (length < 1) continue;
        properties.emplace_back(std::vector<int>(codePoints.begin(), codePoints.begin() + length),
                                bigrams.getProbability(), NO_TIMESTAMP, NO_LEVEL, NO_COUNT);
    }
    return properties;
}

std::vector<UnigramProperty::ShortcutProperty> PatriciaTriePolicy::readShortcutProperties(
    const PtNodeParams& ptNodeParams) const {
    std::vector<UnigramProperty::ShortcutProperty> properties;
    if (ptNodeParams.getShortcutPos() == NO_DICT_POS) return properties;
    std::array<int, WORD_LENGTH_LIMIT> target;
    ByteReader reader(body_, shortcutListPolicy_.getStartPos(ptNodeParams.getShortcutPos()));
    int listEnd = ptNodeParams.getShortcutPos();
    shortcutListPolicy_.skipAllShortcuts(&listEnd);
    ShortcutListReadingUtils::ShortcutFlags flags = ShortcutListReadingUtils::FLAG_ATTRIBUTE_HAS_NEXT;
    // Entries that claim to go on past their list would fill memory with the rest of the file.
    while (ShortcutListReadingUtils::hasNext(flags) && reader.position() < listEnd) {
        flags = ShortcutListReadingUtils::getFlagsAndForwardPointer(&reader);
        const int length =
            ShortcutListReadingUtils::readShortcutTarget(&reader, WORD_LENGTH_LIMIT, target.data());
        if (!reader.ok()) break;
        properties.emplace_back(std::vector<int>(target.begin(), target.begin() + length),
                                ShortcutListReadingUtils::getProbabilityFromFlags(flags));
    }
    return properties;
}

}  // namespace wordengine
