// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/thread_operation_queue.h"
#include "platform/posix/thread_pool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <latch>
#include <memory>

namespace vorpel::platform {
namespace {

void waitUntilEmpty(const OperationQueue& queue) {
    while (queue.operationCount() > 0) std::this_thread::yield();
}

TEST(ThreadOperationQueue, CancellingAndItsEndDropWhatWaitsAndCountWhatRuns) {
    std::atomic<int> ran = 0;
    std::latch started{1};
    std::latch mayEnd{1};
    auto queue = std::make_unique<ThreadOperationQueue>();
    queue->setMaxConcurrentOperationCount(1);
    queue->addOperation([&] {
        started.count_down();
        mayEnd.wait();
        ++ran;
    });
    started.wait();
    // What an operation holds may call the queue as it goes.
    const auto askTheQueue = [&](const int* count) { delete count, (void)queue->operationCount(); };
    queue->addOperation([&, held = std::shared_ptr<int>(new int(0), askTheQueue)] { ran += 100; });
    EXPECT_EQ(queue->operationCount(), 2U);
    queue->cancelAllOperations();
    EXPECT_EQ(queue->operationCount(), 1U);
    queue->addOperation([&] { ran += 10; });
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        mayEnd.count_down();
    });
    queue.reset();
    EXPECT_EQ(ran, 1);
    other.join();
}

TEST(ThreadOperationQueue, KeepsToItsMostAtATimeAndOneByOneToTheOrder) {
    for (const int most : {1, 2, 3}) {
        std::atomic<int> running = 0;
        std::vector<int> order;  // without a lock: only a serial queue leaves the thread sanitizer quiet
        // The first ones wait for each other: they end only if as many as allowed run together.
        std::latch together(most);
        ThreadOperationQueue queue;
        queue.setMaxConcurrentOperationCount(static_cast<std::size_t>(most));
        for (int number = 0; number < 40; ++number) {
            queue.addOperation([&, number] {
                EXPECT_LE(++running, most);
                if (most == 1) order.push_back(number);
                if (number < most) together.arrive_and_wait();
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
                --running;
            });
        }
        waitUntilEmpty(queue);
        EXPECT_EQ(order.size(), most == 1 ? 40U : 0U);
        EXPECT_TRUE(std::ranges::is_sorted(order));
    }
}

TEST(ThreadPool, RunsAllThatWasHandedInBeforeItsEndTogetherAndWithoutSignals) {
    constexpr int THREADS = 3;
    std::latch together(THREADS);
    std::atomic<int> ran = 0;
    std::atomic<int> blocked = 0;
    {
        ThreadPool pool(THREADS);
        for (int number = 0; number < THREADS; ++number) {
            pool.async([&] {
                sigset_t mask;
                ::pthread_sigmask(SIG_SETMASK, nullptr, &mask);
                blocked += ::sigismember(&mask, SIGTERM);
                together.arrive_and_wait();
                // Long enough for the end to come while the others wait.
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            });
        }
        for (int number = 0; number < 200; ++number) pool.async([&] { ++ran; });
    }
    EXPECT_EQ(ran, 200);
    EXPECT_EQ(blocked, THREADS);
}

}  // namespace
}  // namespace vorpel::platform
