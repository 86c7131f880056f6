// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/operation_queue.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace vorpel::platform {

/// An operation queue with threads of its own, made when they are first needed and kept as long as the
/// queue. An operation must not throw, and must not destroy the queue.
class ThreadOperationQueue final : public OperationQueue {
public:
    /// At most four operations at a time, until something else is set.
    ThreadOperationQueue() = default;
    ~ThreadOperationQueue() override;
    ThreadOperationQueue(const ThreadOperationQueue&) = delete;
    ThreadOperationQueue& operator=(const ThreadOperationQueue&) = delete;

    /// 0 counts as 1.
    void setMaxConcurrentOperationCount(std::size_t count) override;
    void addOperation(std::function<void()> operation) override;
    [[nodiscard]] std::size_t operationCount() const override;
    void cancelAllOperations() override;

private:
    void work();

    mutable std::mutex mutex_;  // guards what follows
    std::condition_variable changed_;
    std::deque<std::function<void()>> waiting_;
    std::vector<std::thread> threads_;
    std::size_t running_ = 0;
    std::size_t most_ = 4;
    bool ending_ = false;
};

}  // namespace vorpel::platform
