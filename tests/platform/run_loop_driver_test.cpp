// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/run_loop_driver.h"

#include "platform/posix/steady_clock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <poll.h>
#include <string>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

namespace vorpel::platform {
namespace {

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
    thread = std::thread([&] { driver.stop(); });
    driver.run();
    thread.join();
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
    ASSERT_GT(told.size(), 2U);
    EXPECT_EQ(told.front(), POLLIN);
    EXPECT_TRUE(told.back() & POLLHUP) << "of a line that broke";
    ::close(ends[0]);
}

TEST_F(RunLoopDriverTest, AHandlerMayEndItsOwnWatchAndOthers) {
    // Two that are always ready.
    const std::array<int, 2> ready{::eventfd(1, 0), ::eventfd(1, 0)};
    int calls = 0;
    for (const int descriptor : ready) {
        driver.watch(descriptor, POLLIN, [&](short) {
            ++calls;
            for (const int each : ready) driver.unwatch(each);
        });
    }
    const Timer timer = loop.scheduledTimer(0.02, false, [&] { driver.stop(); });
    driver.run();
    EXPECT_EQ(calls, 1);
    for (const int descriptor : ready) ::close(descriptor);
    { const RunLoopDriver successor(loop); }
    loop.async([] {});  // the loop may be called when its driver is gone
}

}  // namespace
}  // namespace vorpel::platform
