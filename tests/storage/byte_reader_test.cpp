// SPDX-License-Identifier: Apache-2.0
#include "storage/byte_reader.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace wordengine {
namespace {

TEST(ByteReader, RandomCallsOnRandomBytesStayInsideAndFailWhenTheyMust) {
    std::mt19937 random(99);
    for (int round = 0; round < 20000; ++round) {
        const int size = static_cast<int>(random() % 24);
        // A block of its own for each round: the sanitizer guards its ends.
        const auto bytes = std::make_unique<uint8_t[]>(static_cast<size_t>(size));
        for (int i = 0; i < size; ++i)
            bytes[i] = static_cast<uint8_t>(random() % 3 ? random() % 0x40 : random());
        const int start = static_cast<int>(random() % 26) - 1;
        ByteReader reader(bytes.get(), size, start);
        ASSERT_EQ(start >= 0 && start <= size, reader.ok());
        for (int call = 0; call < 12; ++call) {
            const bool wasOk = reader.ok();
            const int before = reader.position();
            const int argument = random() % 8 ? static_cast<int>(random() % 8) : static_cast<int>(random());
            const bool fits = argument >= 0 && argument <= size - before;
            uint32_t expected = 0;
            int out[8];
            switch (random() % 5) {
                case 0: {
                    const bool isWhole = wasOk && fits && argument >= 1 && argument <= 4;
                    for (int i = 0; isWhole && i < argument; ++i)
                        expected = expected << 8 | bytes[before + i];
                    ASSERT_EQ(expected, reader.readUint(argument));
                    ASSERT_EQ(isWhole, reader.ok());
                    break;
                }
                case 1:
                    reader.skip(argument);
                    ASSERT_EQ(wasOk && fits, reader.ok());
                    break;
                case 2:
                    reader.seek(argument);
                    ASSERT_EQ(wasOk && argument >= 0 && argument <= size, reader.ok());
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
