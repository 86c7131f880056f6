// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/thread_pool.h"

#include "platform/posix/quiet_thread.h"

#include <algorithm>
#include <utility>

namespace vorpel::platform {

ThreadPool::ThreadPool(std::size_t threadCount) {
    for (std::size_t count = std::max<std::size_t>(threadCount, 1); count > 0; --count) {
        threads_.push_back(startQuietThread([this] { work(); }));
    }
}

ThreadPool::~ThreadPool() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    for (std::thread& thread : threads_) thread.join();
}

void ThreadPool::async(std::function<void()> block) {
    {
        const std::lock_guard lock(mutex_);
        if (ending_) return;
        blocks_.push_back(std::move(block));
    }
    changed_.notify_one();
}

void ThreadPool::work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ending_ || !blocks_.empty(); });
        if (blocks_.empty()) return;
        std::function<void()> block = std::move(blocks_.front());
        blocks_.pop_front();
        lock.unlock();
        block();
        // What it holds may hand in more work as it goes.
        block = nullptr;
        lock.lock();
    }
}

}  // namespace vorpel::platform
