// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/operation_queue.h"
#include "platform/posix/thread_pool.h"
#include "platform/work_queue.h"

#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>

namespace vorpel::cli {

/// Real queues, of which one can tell when they have nothing left to do. Must outlive the operation queues
/// that it makes.
class WatchedQueues {
public:
    WatchedQueues() : global_(*this) {}

    [[nodiscard]] platform::WorkQueue& global() { return global_; }
    [[nodiscard]] std::unique_ptr<platform::OperationQueue> makeOperationQueue();

    /// Main thread, as is the next.
    void waitUntilIdle();
    [[nodiscard]] bool isIdle() const;

private:
    /// Counts a piece of work for as long as somebody holds it: until it has run or was dropped.
    class Token;
    class Operations;

    class Global final : public platform::WorkQueue {
    public:
        explicit Global(WatchedQueues& queues) : queues_(queues), pool_(1) {}
        void async(std::function<void()> block) override;

    private:
        WatchedQueues& queues_;
        platform::ThreadPool pool_;
    };

    [[nodiscard]] std::function<void()> watched(std::function<void()> block);
    void add(int count);

    mutable std::mutex mutex_;  // guards count_
    std::condition_variable idle_;
    int count_ = 0;
    Global global_;
};

}  // namespace vorpel::cli
