// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/ver4_pt_node_array_reader.h"

#include "dictionary/trie/buffer_cursor.h"
#include "dictionary/trie/dynamic_pt_reading_utils.h"
#include "dictionary/v2/patricia_trie_reading_utils.h"

namespace wordengine {

bool Ver4PtNodeArrayReader::readPtNodeArrayInfoAndReturnIfValid(int ptNodeArrayPos, int* outPtNodeCount,
                                                                int* outFirstPtNodePos) const {
    BufferCursor cursor(buffer_, ptNodeArrayPos);
    const int count = PatriciaTrieReadingUtils::getPtNodeArraySizeAndAdvancePosition(cursor.reader());
    if (!cursor.ok()) return false;
    *outPtNodeCount = count;
    *outFirstPtNodePos = cursor.pos();
    return true;
}

bool Ver4PtNodeArrayReader::readForwardLinkAndReturnIfValid(int forwardLinkPos,
                                                            int* outNextPtNodeArrayPos) const {
    BufferCursor cursor(buffer_, forwardLinkPos);
    const int offset = DynamicPtReadingUtils::readOffsetAndAdvancePosition(cursor.reader());
    if (!cursor.ok()) return false;
    *outNextPtNodeArrayPos = DynamicPtReadingUtils::getForwardLinkPosition(offset, forwardLinkPos);
    return true;
}

}  // namespace wordengine
