// SPDX-License-Identifier: Apache-2.0
#include "search/dic_nodes_cache.h"

#include <gtest/gtest.h>

namespace wordengine {
namespace {

DicNode nodeOf(int distance) {
    const int prevWordsPos[] = {distance};
    DicNode node;
    node.initAsRoot(0, prevWordsPos);
    node.addCost(static_cast<float>(distance), 0.0f, false, 0, 0, ErrorTypeUtils::EDIT_CORRECTION);
    return node;
}

/// Pushes the distances from `count` - 1 down to 0.
void push(DicNodesCache& cache, void (DicNodesCache::*operation)(const DicNode*), int count) {
    for (int i = count - 1; i >= 0; --i) {
        const DicNode node = nodeOf(i);
        (cache.*operation)(&node);
    }
}

TEST(DicNodesCacheTest, CapacityBoundsEveryLimit) {
    DicNodesCache large(true);
    DicNodesCache small(false);
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

}  // namespace
}  // namespace wordengine
