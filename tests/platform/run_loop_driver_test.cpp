// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/run_loop_driver.h"

#include "platform/posix/steady_clock.h"

#include <gtest/gtest.h>

#include <array>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace vorpel::platform {
namespace {

/// Two ends of a line.
struct Line {
    std::array<int, 2> ends{};
    Line() {
        if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) throw std::runtime_error("socketpair");
    }
    ~Line() {
        for (const int end : ends) ::close(end);
    }
    void send(char letter) const { EXPECT_EQ(::write(ends[1], &letter, 1), 1); }
    [[nodiscard]] char receive() const {
        char letter = 0;
        EXPECT_EQ(::read(ends[0], &letter, 1), 1);
        return letter;
    }
};

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

TEST_F(RunLoopDriverTest, WakesForBlocksOfOtherThreads) {
    std::string log;
    std::thread thread([&] {
        for (int number = 0; number < 50; ++number) {
            loop.async([&] { log += 'a'; });
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        loop.async([&] { driver.stop(); });
    });
    driver.run();
    thread.join();
    EXPECT_EQ(log, std::string(50, 'a'));
}

TEST_F(RunLoopDriverTest, CanBeStoppedFromAThreadAndBeforeItRuns) {
    std::thread thread([&] { driver.stop(); });
    driver.run();
    thread.join();
    driver.stop();
    driver.run();
}

TEST_F(RunLoopDriverTest, WatchesWhatTheHostNamesAndTimersDoNotStarve) {
    const Line line;
    std::string received;
    int ticks = 0;
    const Timer timer = loop.scheduledTimer(0.005, true, [&] { ++ticks; });
    driver.watch(line.ends[0], POLLIN, [&](short events) {
        EXPECT_EQ(events, POLLIN);
        received += line.receive();
        if (ticks >= 3) {
            driver.stop();
        } else {
            line.send('b');
        }
    });
    line.send('a');
    driver.run();
    EXPECT_TRUE(received.starts_with("ab"));
}

TEST_F(RunLoopDriverTest, AHandlerMayEndItsOwnWatchAndOthers) {
    const Line first;
    const Line second;
    int calls = 0;
    const auto endBoth = [&](short) {
        ++calls;
        driver.unwatch(first.ends[0]);
        driver.unwatch(second.ends[0]);
    };
    driver.watch(first.ends[0], POLLIN, endBoth);
    driver.watch(second.ends[0], POLLIN, endBoth);
    first.send('a');
    second.send('b');
    const Timer timer = loop.scheduledTimer(0.02, false, [&] { driver.stop(); });
    driver.run();
    EXPECT_EQ(calls, 1);
}

TEST_F(RunLoopDriverTest, ALineThatBrokeIsTold) {
    Line line;
    short told = 0;
    driver.watch(line.ends[0], POLLIN, [&](short events) {
        told = events;
        driver.stop();
    });
    ::close(std::exchange(line.ends[1], -1));
    driver.run();
    EXPECT_TRUE(told & POLLHUP);
}

TEST(RunLoopDriver, TheLoopMayBeCalledWhenTheDriverIsGone) {
    const SteadyClock clock;
    RunLoop loop(clock);
    { const RunLoopDriver driver(loop); }
    bool ran = false;
    loop.async([&] { ran = true; });
    loop.runDue();
    EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace vorpel::platform
