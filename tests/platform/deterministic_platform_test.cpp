// SPDX-License-Identifier: Apache-2.0
#include "support/deterministic_platform.h"

#include <gtest/gtest.h>

namespace vorpel::testing {
namespace {

TEST(DeterministicPlatform, TimersFireAtTheirOwnTimesAndInOrder) {
    DeterministicPlatform world;
    std::vector<std::pair<char, double>> fired;
    const auto note = [&](char name) { return [&, name] { fired.emplace_back(name, world.runLoop.now()); }; };
    const platform::Timer late = world.runLoop.scheduledTimer(0.43, false, note('L'));
    const platform::Timer early = world.runLoop.scheduledTimer(0.1, false, note('E'));
    const platform::Timer often = world.runLoop.scheduledTimer(0.2, true, note('O'));
    world.advance(0.3);
    world.advance(0.13);
    const std::vector<std::pair<char, double>> expected = {{'E', 0.1}, {'O', 0.2}, {'O', 0.4}, {'L', 0.43}};
    EXPECT_EQ(fired, expected);
}

TEST(DeterministicPlatform, QueuesRunOnlyWhenTold) {
    DeterministicPlatform world;
    std::string log;
    const auto queue = world.platform.makeOperationQueue();
    world.platform.globalQueue.async([&] { log += "g"; });
    queue->addOperation([&] {
        EXPECT_EQ(queue->operationCount(), 2U);
        world.runLoop.async([&] { log += "m"; });
    });
    queue->addOperation([&] { log += "o"; });
    world.advance(10);
    EXPECT_EQ(log, "");
    EXPECT_TRUE(world.operations.runOne());
    world.advance(0);
    EXPECT_EQ(log, "m");
    queue->cancelAllOperations();
    EXPECT_EQ(queue->operationCount(), 0U);
    world.settle();
    EXPECT_EQ(log, "mg");
}

TEST(DeterministicPlatform, ALoopThatNeverRestsIsAnErrorInsteadOfAHang) {
    DeterministicPlatform world;
    std::function<void()> again = [&] { world.runLoop.async(again); };
    again();
    EXPECT_THROW(world.advance(1), std::runtime_error);
    EXPECT_THROW(world.settle(), std::runtime_error);
}

}  // namespace
}  // namespace vorpel::testing
