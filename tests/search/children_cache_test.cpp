// SPDX-License-Identifier: Apache-2.0
#include "search/children_cache.h"

#include "dictionary/fake_policy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace wordengine {
namespace {

/// A dictionary whose arrays of children follow from their places: some empty, some of thousands.
class ArithmeticPolicy final : public test::FakePolicy {
public:
    explicit ArithmeticPolicy(int seed) : seed_(seed) {}

    void readChildren(int ptNodeArrayPos, DicNodeChildList* outChildren) const override {
        const int count = ptNodeArrayPos % 97 == 0 ? 3000 : (ptNodeArrayPos + seed_) % 41;
        for (int i = 0; i < count; ++i) {
            const int mix = (ptNodeArrayPos * 31 + i * 7 + seed_ * 13) % 1009;
            const std::vector<int> codePoints(static_cast<size_t>(1 + mix % 3), 'a' + mix);
            outChildren->add(ptNodeArrayPos + mix, mix, mix % 256 - 1, mix % 2 == 0, mix % 5 == 0,
                             mix % 11 == 0, static_cast<int>(codePoints.size()), codePoints.data());
        }
        outChildren->countBytesRead(count + 1);
    }

private:
    const int seed_;
};

class ChildrenCacheTest : public ::testing::Test {
protected:
    void expectChildren(const ChildrenCache::Range& range, int position) const {
        DicNodeChildList plain;
        policy->readChildren(position, &plain);
        ASSERT_EQ(range.end - range.begin, plain.size()) << position;
        for (int i = 0; i < plain.size(); ++i) {
            const DicNodeChild& child = cache[range.begin + i];
            ASSERT_EQ(child.ptNodePos, plain[i].ptNodePos) << position << ", " << i;
            ASSERT_EQ(child.codePointCount, plain[i].codePointCount) << position << ", " << i;
            ASSERT_TRUE(std::equal(plain.codePointsOf(plain[i]),
                                   plain.codePointsOf(plain[i]) + plain[i].codePointCount,
                                   cache.codePointsOf(child)));
        }
    }

    /// Takes an array and, while it is in use, others.
    void visit(int depth) {
        const int position = static_cast<int>(random() % 4000);
        const ChildrenCache::Range range = cache.take(position);
        expectChildren(range, position);
        for (int i = 0; i < 2 && depth > 1 && !HasFailure(); ++i) visit(depth - 1);
        expectChildren(range, position);
        cache.giveBack(range);
    }

    void attach(const ArithmeticPolicy& to) {
        policy = &to;
        cache.attach(policy);
        EXPECT_EQ(cache.getBytesRead(), 0);
    }

    std::mt19937 random{11};
    const ArithmeticPolicy policies[2] = {ArithmeticPolicy(1), ArithmeticPolicy(2)};
    const ArithmeticPolicy* policy = nullptr;
    ChildrenCache cache;
};

TEST_F(ChildrenCacheTest, GivesWhatTheDictionarySaysWithinItsLimitAndBeyond) {
    // Requests short and long; the long ones read several times what is kept.
    for (int request = 0; request < 60 && !HasFailure(); ++request) {
        SCOPED_TRACE(request);
        attach(policies[random() % 3 == 0 ? 1 : 0]);
        const int visits = request % 4 == 0 ? 400 : 10;
        for (int i = 0; i < visits && !HasFailure(); ++i) visit(3);
    }
}

TEST_F(ChildrenCacheTest, ReadsAnArrayOnceUntilItChangesTheDictionary) {
    const auto bytesFor = [&](const ArithmeticPolicy& dictionary) {
        attach(dictionary);
        for (int position = 1; position < 60; ++position) cache.giveBack(cache.take(position));
        return cache.getBytesRead();
    };
    EXPECT_GT(bytesFor(policies[0]), 1000);
    EXPECT_EQ(bytesFor(policies[0]), 0);
    // Another dictionary may come to lie where a closed one lay: only the number tells.
    EXPECT_GT(bytesFor(ArithmeticPolicy(1)), 1000);
}

}  // namespace
}  // namespace wordengine
