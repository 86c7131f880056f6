// SPDX-License-Identifier: Apache-2.0
#include "storage/byte_array_utils.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace wordengine {
namespace {

std::vector<uint8_t> encode(const std::vector<int>& codePoints, bool writesTerminator) {
    const int count = static_cast<int>(codePoints.size());
    std::vector<uint8_t> bytes(
        static_cast<size_t>(ByteArrayUtils::calculateRequiredByteCountToStoreCodePoints(
            codePoints.data(), count, writesTerminator)));
    int pos = 0;
    ByteArrayUtils::writeCodePointsAndAdvancePosition(bytes.data(), codePoints.data(), count,
                                                      writesTerminator, &pos);
    EXPECT_EQ(static_cast<int>(bytes.size()), pos) << "what is written is what was counted";
    return bytes;
}

struct Decoded {
    std::vector<int> codePoints;
    int position;
    bool succeeded;
};

/// Reads and skips, which must agree, from position 0.
Decoded decode(const std::vector<uint8_t>& bytes, int maxLength) {
    const ReadOnlyByteArrayView view(bytes.data(), bytes.size());
    Decoded decoded{std::vector<int>(static_cast<size_t>(maxLength)), 0, false};
    const int count = ByteArrayUtils::readStringAndAdvancePosition(view, maxLength, decoded.codePoints.data(),
                                                                   &decoded.position, &decoded.succeeded);
    decoded.codePoints.resize(static_cast<size_t>(count));
    int skipPosition = 0;
    bool skipSucceeded = false;
    EXPECT_EQ(count,
              ByteArrayUtils::advancePositionToBehindString(view, maxLength, &skipPosition, &skipSucceeded));
    EXPECT_EQ(decoded.position, skipPosition);
    EXPECT_EQ(decoded.succeeded, skipSucceeded);
    return decoded;
}

std::vector<int> randomWord(std::mt19937* random) {
    const int edges[] = {0x00, 0x1E, 0x20, 0x7F, 0xFF, 0x100, 0x0643, 0xFFFF, 0x10FFFF, 0x110000, 0x1EFFFF};
    std::vector<int> word((*random)() % 12);
    for (int& codePoint : word) {
        codePoint = (*random)() % 2 ? edges[(*random)() % std::size(edges)]
                                    : static_cast<int>(0x20 + (*random)() % 0x60);
    }
    return word;
}

TEST(ByteArrayUtils, BytesOfEachKindUpToWhatEndsTheString) {
    EXPECT_EQ((std::vector<uint8_t>{'a', 0xFF, 0x00, 0x06, 0x43, 0x10, 0xFF, 0xFF, 0x1F}),
              encode({'a', 0xFF, 0x643, 0x10FFFF}, true));
    EXPECT_EQ((std::vector<uint8_t>{'a', 0x1F}), encode({'a', NO_CODE_POINT, 'b'}, true));
    EXPECT_EQ((std::vector<uint8_t>{'a'}), encode({'a', 0x1F, 'b'}, false));
}

TEST(ByteArrayUtils, WordsComeBackCutAtEveryLength) {
    std::mt19937 random(3);
    for (int round = 0; round < 500; ++round) {
        const std::vector<int> word = randomWord(&random);
        const std::vector<uint8_t> bytes = encode(word, true);
        for (int maxLength = 0; maxLength <= static_cast<int>(word.size()) + 2; ++maxLength) {
            const Decoded decoded = decode(bytes, maxLength);
            const size_t keptCount = std::min(word.size(), static_cast<size_t>(maxLength));
            ASSERT_EQ(std::vector<int>(word.begin(), word.begin() + static_cast<long>(keptCount)),
                      decoded.codePoints);
            ASSERT_TRUE(decoded.succeeded);
            // One code point beyond the limit goes too; for a word that fits it is the terminator.
            const std::vector<int> consumed(
                word.begin(), word.begin() + std::min<long>(static_cast<long>(word.size()), maxLength + 1));
            const bool readsTerminator = maxLength >= static_cast<int>(word.size());
            ASSERT_EQ(static_cast<int>(encode(consumed, readsTerminator).size()), decoded.position);
        }
    }
}

TEST(ByteArrayUtils, WhatCanBeStoredComesBackAndNothingElseDoes) {
    for (const int codePoint :
         {-2, -1, 0, 0x1E, 0x1F, 0x20, 0xFF, 0x100, 0x1EFFFF, 0x1F0000, 0x1FFFFF, 0x200000, 0x1000041}) {
        const Decoded decoded = decode(encode({codePoint}, true), 4);
        EXPECT_EQ(ByteArrayUtils::canBeStored(codePoint), decoded.codePoints == std::vector<int>{codePoint})
            << std::hex << codePoint;
    }
}

}  // namespace
}  // namespace wordengine
