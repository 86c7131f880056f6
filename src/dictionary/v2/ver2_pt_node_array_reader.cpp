// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/ver2_pt_node_array_reader.h"

#include "dictionary/v2/patricia_trie_reading_utils.h"
#include "storage/byte_reader.h"
#include "text/engine_constants.h"

namespace wordengine {

bool Ver2PtNodeArrayReader::readPtNodeArrayInfoAndReturnIfValid(int ptNodeArrayPos, int* outPtNodeCount,
                                                                int* outFirstPtNodePos) const {
    ByteReader reader(body_, ptNodeArrayPos);
    const int ptNodeCount = PatriciaTrieReadingUtils::getPtNodeArraySizeAndAdvancePosition(&reader);
    if (!reader.ok()) return false;
    *outPtNodeCount = ptNodeCount;
    *outFirstPtNodePos = reader.position();
    return true;
}

bool Ver2PtNodeArrayReader::readForwardLinkAndReturnIfValid(int forwardLinkPos,
                                                            int* outNextPtNodeArrayPos) const {
    // No field is read, so the last array may end where the body does.
    if (!ByteReader(body_, forwardLinkPos).ok()) return false;
    *outNextPtNodeArrayPos = NO_DICT_POS;
    return true;
}

}  // namespace wordengine
