// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/thread_operation_queue.h"
#include "platform/posix/thread_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <latch>
#include <memory>
#include <numeric>

namespace vorpel::platform {
namespace {

void waitUntilEmpty(const OperationQueue& queue) {
    while (queue.operationCount() > 0) std::this_thread::yield();
}

struct SerialQueueTest : ::testing::Test {
    SerialQueueTest() { queue.setMaxConcurrentOperationCount(1); }
    std::atomic<int> ran = 0;
    std::latch started{1};
    std::latch mayEnd{1};
    ThreadOperationQueue queue;
};

TEST_F(SerialQueueTest, KeepsTheOrder) {
    std::vector<int> numbers;  // without a lock: only a serial queue leaves the thread sanitizer quiet
    std::vector<int> expected(500);
    std::iota(expected.begin(), expected.end(), 0);
    for (const int number : expected) queue.addOperation([&, number] { numbers.push_back(number); });
    waitUntilEmpty(queue);
    EXPECT_EQ(numbers, expected);
}

TEST_F(SerialQueueTest, CancellingDropsWhatWaitsAndCountsWhatRuns) {
    queue.addOperation([&] {
        started.count_down();
        mayEnd.wait();
        ++ran;
    });
    started.wait();
    // What an operation holds may call the queue as it goes.
    const auto askTheQueue = [&](const int* count) { delete count, (void)queue.operationCount(); };
    const std::shared_ptr<int> held(new int(0), askTheQueue);
    for (int number = 0; number < 3; ++number) queue.addOperation([this, held] { ran += 100; });
    queue.addOperation([last = std::shared_ptr<int>(new int(0), askTheQueue)] {});
    EXPECT_EQ(queue.operationCount(), 5U);
    queue.cancelAllOperations();
    EXPECT_EQ(queue.operationCount(), 1U);
    EXPECT_EQ(held.use_count(), 1) << "what is dropped is let go of at once";
    queue.addOperation([&] { ran += 10; });
    mayEnd.count_down();
    waitUntilEmpty(queue);
    EXPECT_EQ(ran, 11);
}

TEST_F(SerialQueueTest, ItsEndDropsWhatWaitsAndWaitsForWhatRuns) {
    {
        ThreadOperationQueue ending;
        ending.setMaxConcurrentOperationCount(1);
        ending.addOperation([&] {
            started.count_down();
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            ++ran;
        });
        for (int number = 0; number < 100; ++number) ending.addOperation([&] { ran += 1000; });
        started.wait();
    }
    EXPECT_EQ(ran, 1);
}

TEST(ThreadOperationQueue, NeverMoreAtATimeThanAllowedAndAsManyWhenItCan) {
    for (const int most : {1, 2, 3}) {
        std::atomic<int> running = 0;
        std::atomic<int> highest = 0;
        // The first ones wait for each other: they end only if as many as allowed run together.
        std::latch together(most);
        ThreadOperationQueue queue;
        queue.setMaxConcurrentOperationCount(static_cast<std::size_t>(most));
        for (int number = 0; number < 40; ++number) {
            queue.addOperation([&, number] {
                const int now = ++running;
                for (int seen = highest; seen < now && !highest.compare_exchange_weak(seen, now);) {
                }
                if (number < most) together.arrive_and_wait();
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
                --running;
            });
        }
        waitUntilEmpty(queue);
        EXPECT_EQ(highest, most);
    }
}

TEST(ThreadPool, RunsAllThatWasHandedInBeforeItsEndTogetherAndWithoutSignals) {
    constexpr int THREADS = 3;
    std::latch together(THREADS);
    std::atomic<int> ran = 0;
    std::atomic<int> blocked = 0;
    const auto isBlocked = [] {
        sigset_t mask;
        ::pthread_sigmask(SIG_SETMASK, nullptr, &mask);
        return ::sigismember(&mask, SIGTERM);
    };
    {
        ThreadPool pool(THREADS);
        for (int number = 0; number < THREADS; ++number) {
            pool.async([&] {
                blocked += isBlocked();
                together.arrive_and_wait();
                // Long enough for the end to come while the others wait.
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            });
        }
        std::thread other([&] {
            for (int number = 0; number < 200; ++number) pool.async([&] { ++ran; });
        });
        for (int number = 0; number < 200; ++number) pool.async([&] { ++ran; });
        other.join();
    }
    EXPECT_EQ(ran, 400);
    EXPECT_EQ(blocked, THREADS);
    EXPECT_EQ(isBlocked(), 0) << "the maker's own signals are as before";
}

}  // namespace
}  // namespace vorpel::platform
