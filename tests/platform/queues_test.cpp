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

TEST(ThreadOperationQueue, OneAtATimeKeepsTheOrder) {
    std::vector<int> ran;  // without a lock: only a serial queue leaves the thread sanitizer quiet
    ThreadOperationQueue queue;
    queue.setMaxConcurrentOperationCount(1);
    std::vector<int> expected(500);
    std::iota(expected.begin(), expected.end(), 0);
    for (const int number : expected) queue.addOperation([&ran, number] { ran.push_back(number); });
    waitUntilEmpty(queue);
    EXPECT_EQ(ran, expected);
}

TEST(ThreadOperationQueue, NeverMoreAtATimeThanAllowedAndAsManyWhenItCan) {
    for (const std::size_t most : {0U, 1U, 2U, 3U}) {
        std::atomic<int> running = 0;
        std::atomic<int> highest = 0;
        // The first ones wait for each other: they end only if as many as allowed run together.
        std::latch together(static_cast<std::ptrdiff_t>(std::max<std::size_t>(most, 1)));
        ThreadOperationQueue queue;
        queue.setMaxConcurrentOperationCount(most);
        for (int number = 0; number < 40; ++number) {
            queue.addOperation([&, number] {
                const int now = ++running;
                for (int seen = highest; seen < now && !highest.compare_exchange_weak(seen, now);) {
                }
                if (number < static_cast<int>(std::max<std::size_t>(most, 1))) together.arrive_and_wait();
                --running;
            });
        }
        waitUntilEmpty(queue);
        EXPECT_EQ(highest, static_cast<int>(std::max<std::size_t>(most, 1)));
    }
}

TEST(ThreadOperationQueue, CancellingDropsWhatWaitsAndCountsWhatRuns) {
    std::latch started(1);
    std::latch mayEnd(1);
    std::atomic<int> ran = 0;
    ThreadOperationQueue queue;
    queue.setMaxConcurrentOperationCount(1);
    queue.addOperation([&] {
        started.count_down();
        mayEnd.wait();
        ++ran;
    });
    started.wait();
    const auto held = std::make_shared<int>(0);
    for (int number = 0; number < 3; ++number) queue.addOperation([&ran, held] { ran += 100; });
    EXPECT_EQ(queue.operationCount(), 4U);
    queue.cancelAllOperations();
    EXPECT_EQ(queue.operationCount(), 1U);
    EXPECT_EQ(held.use_count(), 1) << "what is dropped is let go of at once";
    queue.addOperation([&] { ran += 10; });
    mayEnd.count_down();
    waitUntilEmpty(queue);
    EXPECT_EQ(ran, 11);
}

TEST(ThreadOperationQueue, ItsEndDropsWhatWaitsAndWaitsForWhatRuns) {
    std::atomic<int> ran = 0;
    std::latch started(1);
    {
        ThreadOperationQueue queue;
        queue.setMaxConcurrentOperationCount(1);
        queue.addOperation([&] {
            started.count_down();
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            ++ran;
        });
        for (int number = 0; number < 100; ++number) queue.addOperation([&] { ran += 1000; });
        started.wait();
    }
    EXPECT_EQ(ran, 1);
}

TEST(ThreadOperationQueue, WhatAnOperationHoldsMayCallTheQueueAsItGoes) {
    std::latch mayEnd(1);
    ThreadOperationQueue queue;
    queue.setMaxConcurrentOperationCount(1);
    struct CountsAtItsEnd {
        explicit CountsAtItsEnd(ThreadOperationQueue& queue) : counted(queue) {}
        ~CountsAtItsEnd() { (void)counted.operationCount(); }
        ThreadOperationQueue& counted;
    };
    queue.addOperation([&, held = std::make_shared<CountsAtItsEnd>(queue)] { mayEnd.wait(); });
    queue.addOperation([held = std::make_shared<CountsAtItsEnd>(queue)] {});
    queue.cancelAllOperations();
    mayEnd.count_down();
    waitUntilEmpty(queue);
}

TEST(ThreadPool, RunsAllThatWasHandedInBeforeItsEnd) {
    std::atomic<int> ran = 0;
    {
        ThreadPool pool(3);
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 3; ++thread) {
            threads.emplace_back([&] {
                for (int number = 0; number < 200; ++number) pool.async([&] { ++ran; });
            });
        }
        for (std::thread& thread : threads) thread.join();
    }
    EXPECT_EQ(ran, 600);
}

TEST(ThreadPool, BlocksRunTogetherAndNoneIsRunWithASignalOpen) {
    std::latch together(3);
    std::atomic<int> blocked = 0;
    ThreadPool pool(2);
    for (int number = 0; number < 2; ++number) {
        pool.async([&] {
            sigset_t mask;
            ::pthread_sigmask(SIG_SETMASK, nullptr, &mask);
            blocked += ::sigismember(&mask, SIGTERM);
            together.arrive_and_wait();
        });
    }
    together.arrive_and_wait();
    EXPECT_EQ(blocked, 2);
    sigset_t mask;
    ::pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    EXPECT_EQ(::sigismember(&mask, SIGTERM), 0) << "the maker's own signals are as before";
}

}  // namespace
}  // namespace vorpel::platform
