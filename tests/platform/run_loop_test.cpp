// SPDX-License-Identifier: Apache-2.0
#include "platform/run_loop.h"

#include "platform/manual_time.h"
#include "platform/posix/run_loop_driver.h"
#include "platform/posix/steady_clock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <poll.h>
#include <random>
#include <string>
#include <thread>
#include <unistd.h>

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

TEST_F(RunLoopTest, TimersFireEarliestFirstAndEqualOnesInTheOrderOfTheirMaking) {
    const Timer third = loop.scheduledTimer(0.3, false, note('3'));
    const Timer first = loop.scheduledTimer(0.1, false, note('1'));
    const Timer second = loop.scheduledTimer(0.1, false, note('2'));
    EXPECT_EQ(loop.nextDeadline(), 0.1);
    EXPECT_EQ(runAt(0.0999), "");
    EXPECT_EQ(runAt(0.4), "123");
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
    EXPECT_EQ(runAt(1), "o!");
    EXPECT_EQ(runAt(2), "");
}

struct RunLoopDriverTest : ::testing::Test {
    SteadyClock clock;
    RunLoop loop{clock};
    RunLoopDriver driver{loop};
};

TEST_F(RunLoopDriverTest, SleepsUntilATimerIsDueAndNoLonger) {
    const double start = clock.now();
    int turns = 0;
    driver.setBeforeWait([&] { ++turns; });
    loop.async([] {});  // one wake-up must not wake it for ever
    const Timer timer = loop.scheduledTimer(0.05, false, [&] { driver.stop(); });
    driver.run();
    EXPECT_GE(clock.now() - start, 0.05);
    EXPECT_LT(turns, 10) << "it spins instead of sleeping";
}

TEST_F(RunLoopDriverTest, WakesForBlocksOfOtherThreadsAndStopsAlsoBeforeItRuns) {
    std::string log;
    std::thread thread([&] {
        for (int number = 0; number < 50; ++number) {
            loop.async([&, number] { log += static_cast<char>('0' + number); });
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        loop.async([&] { driver.stop(); });
    });
    driver.run();
    thread.join();
    EXPECT_EQ(log.size(), 50U);
    EXPECT_TRUE(std::ranges::is_sorted(log)) << "out of order";
    driver.stop();
    driver.run();
}

TEST_F(RunLoopDriverTest, WatchesWhatTheHostNamesAndTimersDoNotStarve) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    std::vector<short> told;
    int ticks = 0;
    const Timer timer = loop.scheduledTimer(0.005, true, [&] {
        if (++ticks == 3) ::close(ends[1]);
    });
    driver.watch(ends[0], POLLIN, [&](short events) {
        told.push_back(events);
        if (events & POLLHUP) driver.stop();
    });
    ASSERT_EQ(::write(ends[1], "a", 1), 1);  // and nobody reads it
    driver.run();
    EXPECT_EQ(told.front(), POLLIN);
    EXPECT_TRUE(told.back() & POLLHUP) << "of a line that broke";
    ::close(ends[0]);
}

}  // namespace
}  // namespace vorpel::platform
