// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/thread_operation_queue.h"

#include "platform/posix/quiet_thread.h"

#include <algorithm>
#include <utility>

namespace vorpel::platform {

ThreadOperationQueue::~ThreadOperationQueue() {
    std::deque<std::function<void()>> dropped;
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        dropped.swap(waiting_);
    }
    changed_.notify_all();
    // From here on no thread is added.
    for (std::thread& thread : threads_) thread.join();
}

void ThreadOperationQueue::setMaxConcurrentOperationCount(std::size_t count) {
    const std::lock_guard lock(mutex_);
    most_ = std::max<std::size_t>(count, 1);
}

void ThreadOperationQueue::addOperation(std::function<void()> operation) {
    const std::lock_guard lock(mutex_);
    if (ending_) return;
    waiting_.push_back(std::move(operation));
    const std::size_t idle = threads_.size() - running_;
    if (waiting_.size() > idle && threads_.size() < most_) {
        threads_.push_back(startQuietThread([this] { work(); }));
    }
    changed_.notify_one();
}

std::size_t ThreadOperationQueue::operationCount() const {
    const std::lock_guard lock(mutex_);
    return waiting_.size() + running_;
}

void ThreadOperationQueue::cancelAllOperations() {
    // Let go of without the lock: what an operation holds may call the queue as it goes.
    std::deque<std::function<void()>> dropped;
    const std::lock_guard lock(mutex_);
    dropped.swap(waiting_);
}

void ThreadOperationQueue::work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
        if (waiting_.empty()) return;
        std::function<void()> operation = std::move(waiting_.front());
        waiting_.pop_front();
        ++running_;
        lock.unlock();
        operation();
        operation = nullptr;
        lock.lock();
        --running_;
    }
}

}  // namespace vorpel::platform
