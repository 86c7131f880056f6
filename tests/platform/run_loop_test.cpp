// SPDX-License-Identifier: Apache-2.0
#include "platform/run_loop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <string>
#include <thread>

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
    EXPECT_EQ(loop.nextDeadline(), 0.1);
    EXPECT_EQ(runAt(0.0999), "");
    EXPECT_EQ(runAt(0.4), "123");
    EXPECT_FALSE(first.isValid());
    EXPECT_EQ(runAt(9), "");
    EXPECT_EQ(loop.timerCount(), 0U);
}

TEST_F(RunLoopTest, ARepeatingTimerThatWasHeldUpSkipsAndStaysInStep) {
    const Timer timer = loop.scheduledTimer(0.1, true, note('t'));
    EXPECT_EQ(runAt(0.1), "t");
    EXPECT_EQ(runAt(0.55), "t");
    EXPECT_EQ(*loop.nextDeadline(), 6 * 0.1);
    EXPECT_EQ(runAt(0.59), "");
    EXPECT_EQ(runAt(6 * 0.1), "t");
    for (int tick = 7; tick <= 100000; ++tick) {
        ASSERT_EQ(*loop.nextDeadline(), tick * 0.1) << "ticks drift";
        ASSERT_EQ(runAt(*loop.nextDeadline()), "t");
    }
}

TEST_F(RunLoopTest, ATickIsNeitherLostNorDoubledByRounding) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> seconds(0.001, 3);
    for (int round = 0; round < 200; ++round) {
        const double start = clock.now();
        const double interval = seconds(random);
        const Timer timer = loop.scheduledTimer(interval, true, note('t'));
        int tick = 0;
        for (int turn = 0; turn < 20; ++turn) {
            tick += 1 + static_cast<int>(random() % 9);
            ASSERT_EQ(runAt(start + tick * interval), "t");
            ASSERT_EQ(*loop.nextDeadline(), start + (tick + 1) * interval);
        }
    }
}

TEST_F(RunLoopTest, IntervalsThatMakeNoSenseNeitherHangNorFallSilent) {
    const Timer once = loop.scheduledTimer(-5, false, note('o'));
    const Timer often = loop.scheduledTimer(0, true, note('r'));
    EXPECT_EQ(runAt(0), "o");
    EXPECT_EQ(runAt(1), "r");
    EXPECT_EQ(runAt(2), "r");
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
}

TEST_F(RunLoopTest, ATimerThatStartsAnotherWithoutDelayDoesNotKeepTheLoop) {
    Timer next;
    std::function<void()> again = [&] {
        log += 'n';
        next = loop.scheduledTimer(0, false, again);
    };
    const Timer waiting = loop.scheduledTimer(5, false, note('w'));
    again();
    EXPECT_EQ(runAt(1), "n");
    EXPECT_EQ(runAt(1), "n");
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

TEST(RunLoop, AHandleMayOutliveItsLoop) {
    const ManualClock clock;
    Timer timer;
    {
        RunLoop loop(clock);
        timer = loop.scheduledTimer(1, true, [] {});
    }
    timer.invalidate();
    EXPECT_FALSE(timer.isValid());
}

TEST_F(RunLoopTest, ThreadsHandInBlocksAndWakeTheLoop) {
    std::atomic<int> wakeUps = 0;
    loop.setWakeUp([&] { ++wakeUps; });
    constexpr int EACH = 200;
    std::vector<int> last(3, -1);
    int faults = 0;
    int done = 0;
    std::vector<std::thread> threads;
    for (int& mine : last) {
        threads.emplace_back([&] {
            for (int number = 0; number < EACH; ++number) {
                loop.async([&, number] {
                    faults += mine + 1 == number ? 0 : 1;
                    mine = number;
                    ++done;
                });
            }
        });
    }
    while (done < 3 * EACH) loop.runDue();
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(faults, 0) << "a thread's blocks came out of order";
    EXPECT_EQ(wakeUps, 3 * EACH);
}

}  // namespace
}  // namespace vorpel::platform
