// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/bigram_list_policy.h"

#include "dictionary/v2/bigram_list_read_write_utils.h"
#include "storage/byte_reader.h"
#include "text/engine_constants.h"

namespace wordengine {

void BigramListPolicy::getNextBigram(int* outBigramPos, int* outProbability, bool* outHasNext,
                                     int* bigramEntryPos) const {
    ByteReader reader(body_, *bigramEntryPos);
    BigramListReadWriteUtils::BigramFlags flags = 0;
    if (BigramListReadWriteUtils::getBigramEntryPropertiesAndAdvancePosition(&reader, &flags, outBigramPos)) {
        *outProbability = BigramListReadWriteUtils::getProbabilityFromFlags(flags);
        *outHasNext = BigramListReadWriteUtils::hasNext(flags);
        *bigramEntryPos = reader.position();
    } else {
        *outBigramPos = NO_DICT_POS;
        *outProbability = NO_PROBABILITY;
        *outHasNext = false;
    }
}

bool BigramListPolicy::skipAllBigrams(int* pos) const {
    ByteReader reader(body_, *pos);
    const bool hasSkipped = BigramListReadWriteUtils::skipExistingBigrams(&reader);
    *pos = reader.position();
    return hasSkipped;
}

}  // namespace wordengine
