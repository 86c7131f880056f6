// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/ver4_patricia_trie_node_reader.h"

#include "dictionary/header_policy.h"
#include "dictionary/trie/buffer_cursor.h"
#include "dictionary/trie/dynamic_pt_reading_utils.h"
#include "dictionary/v2/patricia_trie_reading_utils.h"
#include "dictionary/v4/forgetting_curve_utils.h"

#include <array>

namespace wordengine {

PtNodeParams Ver4PatriciaTrieNodeReader::fetchFollowingMoves(int ptNodePos, Probability probability) const {
    PtNodeParams ptNodeParams = fetchPtNodeInfo(ptNodePos, NO_DICT_POS, probability);
    for (int moves = 0; ptNodeParams.isMoved(); ++moves) {
        if (moves == MAX_MOVES) return PtNodeParams();
        ptNodeParams =
            fetchPtNodeInfo(ptNodeParams.getParentPos(), ptNodeParams.getSiblingNodePos(), probability);
    }
    return ptNodeParams;
}

PtNodeParams Ver4PatriciaTrieNodeReader::fetchPtNodeInfo(int ptNodePos, int siblingNodePos,
                                                         Probability probability) const {
    BufferCursor cursor(buffer_, ptNodePos);
    ByteReader* const reader = cursor.reader();
    const NodeFlags flags = PatriciaTrieReadingUtils::getFlagsAndAdvancePosition(reader);
    const int parentOffset = DynamicPtReadingUtils::readOffsetAndAdvancePosition(reader);
    std::array<int, WORD_LENGTH_LIMIT> codePoints;
    const int codePointCount = PatriciaTrieReadingUtils::getCharsAndAdvancePosition(
        reader, flags, WORD_LENGTH_LIMIT, codePoints.data());
    int terminalIdFieldPos = NO_DICT_POS;
    int terminalId = PtNodeParams::NOT_A_TERMINAL_ID;
    if (PatriciaTrieReadingUtils::isTerminal(flags)) {
        terminalIdFieldPos = cursor.pos();
        terminalId = static_cast<int>(reader->readUint32());
    }
    const int childrenPosFieldPos = cursor.pos();
    const int childrenOffset = DynamicPtReadingUtils::readOffsetAndAdvancePosition(reader);
    if (!cursor.ok() || codePointCount <= 0) return PtNodeParams();
    return PtNodeParams(ptNodePos, flags, DynamicPtReadingUtils::getParentPtNodePos(parentOffset, ptNodePos),
                        codePointCount, codePoints.data(), terminalIdFieldPos, terminalId,
                        probability == Probability::READ ? readProbability(terminalId) : NO_PROBABILITY,
                        childrenPosFieldPos,
                        DynamicPtReadingUtils::getPosOrNone(childrenOffset, childrenPosFieldPos),
                        siblingNodePos == NO_DICT_POS ? cursor.pos() : siblingNodePos);
}

int Ver4PatriciaTrieNodeReader::readProbability(int terminalId) const {
    if (terminalId < 0) return NO_PROBABILITY;
    const ProbabilityEntry entry = probabilityContent_->getProbabilityEntry(terminalId);
    if (!entry.hasHistoricalInfo()) return entry.getProbability();
    return ForgettingCurveUtils::decodeProbability(entry.getHistoricalInfo(), headerPolicy_);
}

}  // namespace wordengine
