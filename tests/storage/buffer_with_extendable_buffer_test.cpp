// SPDX-License-Identifier: Apache-2.0
#include "storage/buffer_with_extendable_buffer.h"

#include "storage/byte_array_utils.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <vector>

namespace wordengine {
namespace {

constexpr int STEP = BufferWithExtendableBuffer::EXTEND_ADDITIONAL_BUFFER_SIZE_STEP;

TEST(ExtendableBuffer, StopsAtItsLimitAndTellsWhenItIsNear) {
    // Nine steps and a bit: 90 % are reached with the ninth.
    BufferWithExtendableBuffer buffer(10 * STEP);
    for (int step = 1; step <= 10; ++step) {
        ASSERT_TRUE(buffer.extend(STEP));
        EXPECT_EQ(step >= 9, buffer.isNearSizeLimit()) << step;
    }
    EXPECT_FALSE(buffer.extend(1));
}

TEST(ExtendableBuffer, HostileArgumentsAreRefused) {
    std::vector<uint8_t> original(8, 0xAB);
    BufferWithExtendableBuffer buffer({original.data(), original.size()}, INT_MAX);
    ASSERT_TRUE(buffer.writeUint(0x11223344, 4, 8));
    for (const int pos : {-1, -8, INT_MIN, INT_MAX, INT_MAX - 2, 13, 100}) {
        EXPECT_EQ(0u, buffer.readUint(4, pos)) << pos;
        EXPECT_FALSE(buffer.writeUint(0, 4, pos)) << pos;
        int out[4];
        int count = 77;
        int cursor = pos;
        buffer.readCodePointsAndAdvancePosition(4, out, &count, &cursor);
        EXPECT_EQ(0, count) << pos;
        EXPECT_EQ(pos, cursor);
    }
    for (const int size : {-1, 0, 5, INT_MAX, INT_MIN}) {
        EXPECT_EQ(0u, buffer.readUint(size, 0)) << size;
        EXPECT_FALSE(buffer.writeUint(0, size, 0)) << size;
    }
    EXPECT_FALSE(buffer.extend(-1));
    EXPECT_FALSE(buffer.extend(INT_MAX));
    EXPECT_EQ(12, buffer.getTailPosition());
    BufferWithExtendableBuffer none(-5);
    EXPECT_FALSE(none.extend(1));
}

/// The store beside a plain vector with the rules said once more: writes inside either region, or at
/// the tail up to the limit; reads that are whole.
class ModelTest : public testing::TestWithParam<int> {
protected:
    static constexpr int ORIGINAL_SIZE = 37;
    static constexpr int MAX_ADDITIONAL_SIZE = 300;

    [[nodiscard]] bool fits(int pos, int size, bool mayGrow) const {
        const int tail = static_cast<int>(model_.size());
        if (pos < 0 || pos > tail) return false;
        if (pos < ORIGINAL_SIZE) return pos + size <= ORIGINAL_SIZE;
        if (pos + size <= tail) return true;
        return mayGrow && pos == tail && pos + size <= ORIGINAL_SIZE + MAX_ADDITIONAL_SIZE;
    }

    void writeAtRandom() {
        std::vector<uint8_t> bytes;
        std::vector<int> word;
        const int pos = randomPosition();
        int cursor = pos;
        bool isValid = true;
        bool isWritten;
        if (random_() % 3 > 0) {
            const auto data = static_cast<uint32_t>(random_());
            const int size = static_cast<int>(random_() % 6);
            isValid = size >= 1 && size <= 4;
            for (int i = size - 1; isValid && i >= 0; --i) {
                bytes.push_back(static_cast<uint8_t>(data >> (8 * i)));
            }
            isWritten = buffer_.writeUintAndAdvancePosition(data, size, &cursor);
        } else {
            word.resize(random_() % 6);
            for (int& codePoint : word) {
                codePoint = random_() % 2 ? 'a' : 0x0643;
                if (codePoint != 'a') bytes.insert(bytes.end(), {0x00, 0x06});
                bytes.push_back(static_cast<uint8_t>(codePoint));
            }
            const bool writesTerminator = random_() % 2;
            if (writesTerminator) bytes.push_back(0x1F);
            isWritten = buffer_.writeCodePointsAndAdvancePosition(word.data(), static_cast<int>(word.size()),
                                                                  writesTerminator, &cursor);
        }
        const int size = static_cast<int>(bytes.size());
        ASSERT_EQ(isValid && fits(pos, size, true), isWritten);
        ASSERT_EQ(isWritten ? pos + size : pos, cursor);
        if (!isWritten) return;
        model_.resize(std::max(model_.size(), static_cast<size_t>(pos + size)));
        std::copy(bytes.begin(), bytes.end(), model_.begin() + pos);
        std::vector<int> readBack(word.size());
        int count = 0;
        cursor = pos;
        buffer_.readCodePointsAndAdvancePosition(static_cast<int>(word.size()), readBack.data(), &count,
                                                 &cursor);
        ASSERT_EQ(word, readBack);
    }

    void extendAtRandom() {
        const int size = static_cast<int>(random_() % 20) - 2;
        const bool isExpected = size >= 0 && fits(static_cast<int>(model_.size()), size, true);
        ASSERT_EQ(isExpected, buffer_.extend(size));
        if (isExpected) model_.resize(model_.size() + static_cast<size_t>(size));
    }

    void readAtRandom() {
        const int size = static_cast<int>(random_() % 6);
        const int pos = randomPosition();
        uint32_t expected = 0;
        const bool isWhole = size >= 1 && size <= 4 && fits(pos, size, false);
        for (int i = 0; isWhole && i < size; ++i)
            expected = (expected << 8) | model_[static_cast<size_t>(pos + i)];
        int cursor = pos;
        ASSERT_EQ(expected, buffer_.readUintAndAdvancePosition(size, &cursor));
        ASSERT_EQ(isWhole ? pos + size : pos, cursor);
    }

    /// Mostly inside or at the tail, at times just outside.
    int randomPosition() {
        const int tail = static_cast<int>(model_.size());
        return random_() % 3 == 0 ? tail : static_cast<int>(random_() % static_cast<unsigned>(tail + 6)) - 3;
    }

    std::mt19937 random_{static_cast<unsigned>(GetParam())};
    std::vector<uint8_t> original_ = std::vector<uint8_t>(ORIGINAL_SIZE);
    BufferWithExtendableBuffer buffer_{{original_.data(), original_.size()}, MAX_ADDITIONAL_SIZE};
    std::vector<uint8_t> model_ = original_;
};

TEST_P(ModelTest, RandomOperationsAgreeWithPlainVector) {
    for (int i = 0; i < 600; ++i) {
        const unsigned kind = static_cast<unsigned>(random_() % 8);
        if (kind == 0) {
            extendAtRandom();
        } else if (kind <= 3) {
            writeAtRandom();
        } else {
            readAtRandom();
        }
        if (HasFatalFailure()) return;
        ASSERT_EQ(static_cast<int>(model_.size()), buffer_.getTailPosition());
    }
    // A copy, with its regions cut elsewhere.
    const int tail = buffer_.getTailPosition();
    std::vector<uint8_t> otherOriginal(6);
    BufferWithExtendableBuffer copy({otherOriginal.data(), otherOriginal.size()}, tail - 6);
    ASSERT_TRUE(copy.copy(&buffer_));
    for (int pos = 0; pos < tail; ++pos) {
        ASSERT_EQ(model_[static_cast<size_t>(pos)], buffer_.readUint(1, pos));
        ASSERT_EQ(model_[static_cast<size_t>(pos)], copy.readUint(1, pos));
    }
    BufferWithExtendableBuffer tooSmall(tail - 1);
    EXPECT_FALSE(tooSmall.copy(&buffer_));
}

INSTANTIATE_TEST_SUITE_P(ExtendableBuffer, ModelTest, testing::Range(1, 21));

}  // namespace
}  // namespace wordengine
