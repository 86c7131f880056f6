// SPDX-License-Identifier: Apache-2.0
#include "storage/byte_reader.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <random>
#include <vector>

namespace wordengine {
namespace {

TEST(ByteReader, ReadsBigEndian) {
    const std::vector<uint8_t> bytes = {0x01, 0x80, 0x02, 0xFE, 0xDC, 0xBA, 0x9B, 0xC1, 0x3A, 0xFE};
    ByteReader reader(bytes.data(), static_cast<int>(bytes.size()));
    EXPECT_EQ(0x01u, reader.readUint8());
    EXPECT_EQ(0x8002u, reader.readUint16());
    EXPECT_EQ(0xFEDCBAu, reader.readUint24());
    EXPECT_EQ(0x9BC13AFEu, reader.readUint32());
    EXPECT_TRUE(reader.ok());
    EXPECT_EQ(0, reader.remaining());
    reader.seek(1);
    EXPECT_EQ(0x8002FEu, reader.readUint(3));
    EXPECT_EQ(4, reader.position());
}

TEST(ByteReader, PositionsOutsideFail) {
    const std::vector<uint8_t> bytes = {'a', 'b', 'c'};
    for (const int position : {-1, 4, INT_MIN, INT_MAX}) {
        EXPECT_FALSE(ByteReader(bytes.data(), 3, position).ok()) << position;
        ByteReader seeking(bytes.data(), 3);
        seeking.seek(position);
        EXPECT_FALSE(seeking.ok()) << position;
        ByteReader skipping(bytes.data(), 3, 1);
        skipping.skip(position);
        EXPECT_FALSE(skipping.ok()) << position;
        ByteReader reading(bytes.data(), 3);
        EXPECT_EQ(0u, reading.readUint(position));
        EXPECT_FALSE(reading.ok()) << position;
    }
    EXPECT_TRUE(ByteReader(bytes.data(), 3, 3).ok());
    for (ByteReader empty :
         {ByteReader(nullptr, 10), ByteReader(bytes.data(), -1), ByteReader(ReadOnlyByteArrayView())}) {
        EXPECT_TRUE(empty.ok());
        EXPECT_EQ(0u, empty.readUint8());
        EXPECT_FALSE(empty.ok());
    }
}

TEST(ByteReader, RandomCallsOnRandomBytesStayInside) {
    std::mt19937 random(99);
    for (int round = 0; round < 20000; ++round) {
        const int size = static_cast<int>(random() % 24);
        // A block of its own for each round: the sanitizer guards its ends.
        const auto bytes = std::make_unique<uint8_t[]>(static_cast<size_t>(size));
        for (int i = 0; i < size; ++i)
            bytes[i] = static_cast<uint8_t>(random() % 3 ? random() % 0x40 : random());
        ByteReader reader(bytes.get(), size, static_cast<int>(random() % 26) - 1);
        for (int call = 0; call < 12; ++call) {
            const bool wasOk = reader.ok();
            const int before = reader.position();
            const int argument = random() % 8 ? static_cast<int>(random() % 8) : static_cast<int>(random());
            int out[8];
            switch (random() % 5) {
                case 0:
                    reader.readUint(argument);
                    break;
                case 1:
                    reader.skip(argument);
                    break;
                case 2:
                    reader.seek(argument);
                    break;
                case 3:
                    ASSERT_LE(reader.readString(8, out), 8);
                    break;
                default:
                    ASSERT_LE(reader.skipString(argument), size);
            }
            ASSERT_GE(reader.position(), 0);
            ASSERT_LE(reader.position(), size);
            if (!wasOk) {
                ASSERT_FALSE(reader.ok());
                ASSERT_EQ(before, reader.position());
            }
        }
    }
}

}  // namespace
}  // namespace wordengine
