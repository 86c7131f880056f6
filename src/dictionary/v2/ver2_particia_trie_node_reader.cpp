// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/ver2_particia_trie_node_reader.h"

#include "dictionary/v2/patricia_trie_reading_utils.h"

#include <array>

namespace wordengine {

PtNodeParams Ver2ParticiaTrieNodeReader::fetchPtNodeParamsInBufferFromPtNodePos(int ptNodePos) const {
    NodeFlags flags;
    std::array<int, WORD_LENGTH_LIMIT> codePoints;
    int codePointCount, probability, childrenPos, shortcutPos, bigramPos;
    ByteReader reader(body_, ptNodePos);
    const bool isWhole = PatriciaTrieReadingUtils::readPtNodeInfo(
        &reader, shortcutPolicy_, bigramPolicy_, &flags, &codePointCount, codePoints.data(), &probability,
        &childrenPos, &shortcutPos, &bigramPos);
    if (!isWhole || codePointCount <= 0) return PtNodeParams();
    return PtNodeParams(ptNodePos, flags, codePointCount, codePoints.data(), probability, childrenPos,
                        shortcutPos, bigramPos, reader.position());
}

}  // namespace wordengine
