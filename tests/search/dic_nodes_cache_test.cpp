// SPDX-License-Identifier: Apache-2.0
#include "search/dic_nodes_cache.h"

#include <gtest/gtest.h>

#include <vector>

namespace wordengine {
namespace {

DicNode nodeOf(int distance) {
    const int prevWordsPos[] = {distance};
    DicNode node;
    node.initAsRoot(0, prevWordsPos);
    node.addCost(static_cast<float>(distance), 0.0f, false, 0, 0, ErrorTypeUtils::EDIT_CORRECTION);
    return node;
}

class DicNodesCacheTest : public ::testing::Test {
protected:
    /// Pushes the distances from `count` - 1 down to 0.
    static void push(DicNodesCache& cache, void (DicNodesCache::*operation)(const DicNode*), int count) {
        for (int i = count - 1; i >= 0; --i) {
            const DicNode node = nodeOf(i);
            (cache.*operation)(&node);
        }
    }

    static int drainActive(DicNodesCache& cache) {
        int count = 0;
        for (; cache.activeSize() > 0; ++count) cache.popActive(nullptr);
        return count;
    }

    DicNodesCache large{true};
    DicNodesCache small{false};
};

TEST_F(DicNodesCacheTest, CapacityBoundsEveryLimit) {
    const struct {
        DicNodesCache& cache;
        int nextActiveSize, nextActiveLimit, capacity;
    } cases[] = {
        {large, 170, 170, 310}, {large, 310, 310, 310}, {large, 1000, 310, 310}, {small, 170, 100, 100}};
    for (const auto& c : cases) {
        c.cache.reset(c.nextActiveSize, 18);
        push(c.cache, &DicNodesCache::copyPushActive, 400);
        EXPECT_EQ(c.cache.activeSize(), c.capacity);
        push(c.cache, &DicNodesCache::copyPushTerminal, 400);
        EXPECT_EQ(c.cache.terminalSize(), 18);
        // Limits stay where they are however often the queues change places.
        for (int pass = 0; pass < 5; ++pass) {
            push(c.cache, &DicNodesCache::copyPushNextActive, 400);
            c.cache.advanceActiveDicNodes();
            EXPECT_EQ(c.cache.activeSize(), c.nextActiveLimit) << "pass " << pass;
        }
        DicNode worst;
        c.cache.popActive(&worst);
        EXPECT_EQ(worst.getPrevWordsTerminalPtNodePos()[0], c.nextActiveLimit - 1) << "the best were kept";
    }
}

TEST_F(DicNodesCacheTest, PlacesAreNotLostFromRequestToRequest) {
    for (int request = 0; request < 100; ++request) {
        large.reset(170, 18);
        push(large, &DicNodesCache::copyPushActive, 1);
        for (int pass = 0; pass < 3; ++pass) {
            push(large, &DicNodesCache::copyPushNextActive, 200);
            push(large, &DicNodesCache::copyPushContinue, 5);
            large.advanceActiveDicNodes();
            ASSERT_EQ(drainActive(large), 170) << "request " << request;
        }
        large.continueSearch();
        ASSERT_EQ(large.activeSize(), 5 * 3);
        ASSERT_FALSE(large.hasCachedDicNodesForContinuousSuggestion());
        ASSERT_EQ(large.terminalSize(), 0);
    }
}

TEST_F(DicNodesCacheTest, NodesAreKeptOnceThreePointsBeforeTheEnd) {
    large.reset(170, 18);
    std::vector<int> keptAt;
    const auto run = [&](int inputSize) {
        keptAt.clear();
        for (int pass = 0; pass < 10; ++pass) {
            if (large.isCacheBorderForTyping(inputSize)) {
                large.updateLastCachedInputIndex();
                keptAt.push_back(pass);
                push(large, &DicNodesCache::copyPushContinue, 4);
            }
            large.advanceActiveDicNodes();
            large.advanceInputIndex(inputSize);
        }
    };
    run(6);
    EXPECT_EQ(keptAt, std::vector<int>{3});
    large.continueSearch();
    EXPECT_EQ(large.activeSize(), 4);
    EXPECT_TRUE(large.isLookAheadCorrectionInputIndex(2)) << "goes on at point 3";
    // One point more: the border moves on by one. The same size again: the nodes are not kept twice.
    run(7);
    EXPECT_EQ(keptAt, std::vector<int>{1});
    large.continueSearch();
    run(7);
    EXPECT_TRUE(keptAt.empty());
    EXPECT_FALSE(large.hasCachedDicNodesForContinuousSuggestion());
    // Three points are searched from the start each time.
    large.reset(170, 18);
    run(3);
    EXPECT_TRUE(keptAt.empty());
}

}  // namespace
}  // namespace wordengine
