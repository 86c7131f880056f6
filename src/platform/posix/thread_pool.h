// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/work_queue.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace vorpel::platform {

/// A work queue of some threads. A block must not throw. Signals are left to the program's other threads.
class ThreadPool final : public WorkQueue {
public:
    /// At least one.
    explicit ThreadPool(std::size_t threadCount);

    /// Runs what still waits, since it may be a save, and drops what that hands in. Not from a block.
    ~ThreadPool() override;
    ThreadPool(const ThreadPool&) = delete;
    ThreadPool& operator=(const ThreadPool&) = delete;

    void async(std::function<void()> block) override;

private:
    void work();

    std::mutex mutex_;  // guards what follows
    std::condition_variable changed_;
    std::deque<std::function<void()>> blocks_;
    bool ending_ = false;

    std::vector<std::thread> threads_;
};

}  // namespace vorpel::platform
