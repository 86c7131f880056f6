// SPDX-License-Identifier: Apache-2.0
#include "platform/run_loop.h"

#include "platform/manual_time.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vorpel::platform {
namespace {

struct RunLoopTest : ::testing::Test {
    ManualClock clock;
    RunLoop loop{clock};
    std::string log;

    RunLoop::Block note(char letter) {
        return [this, letter] { log += letter; };
    }
    std::string runAt(double time) {
        log.clear();
        clock.advanceTo(time);
        loop.runDue();
        return log;
    }
};

TEST_F(RunLoopTest, BlocksRunInTheirOrderAndTheirOwnBlocksInTheSameTurn) {
    loop.async(note('a'));
    loop.async([this] {
        log += 'b';
        loop.async(note('d'));
    });
    loop.async(note('c'));
    EXPECT_EQ(loop.nextDeadline(), 0.0);
    EXPECT_EQ(runAt(0), "abcd");
    EXPECT_EQ(loop.nextDeadline(), std::nullopt);
}

TEST_F(RunLoopTest, TimersFireEarliestFirstAndEqualOnesInTheOrderOfTheirMaking) {
    const Timer third = loop.scheduledTimer(0.3, false, note('3'));
    const Timer first = loop.scheduledTimer(0.1, false, note('1'));
    const Timer second = loop.scheduledTimer(0.1, false, note('2'));
    const Timer now = loop.scheduledTimer(-5, false, note('0'));
    EXPECT_EQ(runAt(0), "0");
    EXPECT_EQ(loop.nextDeadline(), 0.1);
    EXPECT_EQ(runAt(0.0999), "");
    EXPECT_EQ(runAt(0.4), "123");
    EXPECT_EQ(runAt(9), "");
    EXPECT_EQ(loop.timerCount(), 0U);
}

TEST_F(RunLoopTest, ATickIsNeitherLostNorDoubledByRoundingNorDrifts) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> seconds(0.001, 3);
    for (int round = 0; round < 200; ++round) {
        const double start = clock.now();
        const double interval = seconds(random);
        const Timer timer = loop.scheduledTimer(interval, true, note('t'));
        int tick = 0;
        for (int turn = 0; turn < 100; ++turn) {
            tick += 1 + static_cast<int>(random() % 9);  // what was held up is skipped
            ASSERT_EQ(runAt(start + tick * interval), "t");
            ASSERT_EQ(*loop.nextDeadline(), start + (tick + 1) * interval);
        }
    }
}

TEST_F(RunLoopTest, AHandleStopsItsTimerAlsoFromWithinABlock) {
    auto own = std::make_unique<Timer>();
    *own = loop.scheduledTimer(0.1, true, [&] {
        log += 'o';
        own.reset();
        log += '!';
    });
    Timer victim = loop.scheduledTimer(0.2, false, note('v'));
    const Timer killer = loop.scheduledTimer(0.15, false, [&] { victim.invalidate(); });
    Timer replaced = loop.scheduledTimer(0.1, false, note('x'));
    replaced = loop.scheduledTimer(0.1, false, note('y'));
    EXPECT_EQ(runAt(1), "o!y");
    EXPECT_EQ(runAt(2), "");
    {
        RunLoop shortLived(clock);
        victim = shortLived.scheduledTimer(1, true, [] {});
    }
    victim.invalidate();
    EXPECT_FALSE(victim.isValid());
}

TEST_F(RunLoopTest, ATimerThatStartsAnotherWithoutDelayDoesNotKeepTheLoop) {
    Timer next;
    std::function<void()> again = [&] {
        log += 'n';
        next = loop.scheduledTimer(0, false, again);
    };
    again();
    EXPECT_EQ(runAt(1), "n");
    EXPECT_EQ(runAt(1), "n");
    const Timer often = loop.scheduledTimer(0, true, note('r'));
    EXPECT_EQ(runAt(2), "nr");
    EXPECT_THROW(advance(clock, loop, 1), std::runtime_error) << "an error, where a test would hang";
}

TEST_F(RunLoopTest, ALoopRunWithinABlockFiresNothingTwice) {
    const Timer outer = loop.scheduledTimer(0.1, false, [this] {
        log += '(';
        loop.runDue();
        log += ')';
    });
    const Timer repeating = loop.scheduledTimer(0.2, true, note('r'));
    EXPECT_EQ(runAt(0.3), "(r)");
}

}  // namespace
}  // namespace vorpel::platform
