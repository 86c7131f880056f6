// SPDX-License-Identifier: Apache-2.0
#include "search/dic_nodes_cache.h"

#include <gtest/gtest.h>

namespace wordengine {
namespace {

TEST(DicNodesCacheTest, CapacityBoundsEveryLimitHoweverOftenQueuesChangePlaces) {
    DicNodesCache large(true);
    DicNodesCache small(false);
    const struct {
        DicNodesCache& cache;
        int nextActiveSize, limit;
    } cases[] = {{large, 170, 170}, {large, 1000, 310}, {small, 170, 100}};
    DicNode node;
    node.initAsRoot(0, nullptr);
    for (const auto& c : cases) {
        c.cache.reset(c.nextActiveSize, 18);
        for (int pass = 0; pass < 5; ++pass) {
            for (int i = 0; i < 400; ++i) c.cache.copyPushNextActive(&node);
            c.cache.advanceActiveDicNodes();
            EXPECT_EQ(c.cache.activeSize(), c.limit) << "pass " << pass;
        }
    }
}

}  // namespace
}  // namespace wordengine
