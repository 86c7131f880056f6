// SPDX-License-Identifier: Apache-2.0
#include "keyboard/watched_queues.h"

#include "platform/posix/thread_operation_queue.h"

#include <utility>

namespace vorpel::cli {

class WatchedQueues::Token {
public:
    explicit Token(WatchedQueues& queues) : queues_(queues) { queues_.add(1); }
    ~Token() { queues_.add(-1); }
    Token(const Token&) = delete;
    Token& operator=(const Token&) = delete;

private:
    WatchedQueues& queues_;
};

class WatchedQueues::Operations final : public platform::OperationQueue {
public:
    explicit Operations(WatchedQueues& queues) : queues_(queues) {}

    void setMaxConcurrentOperationCount(std::size_t count) override {
        queue_.setMaxConcurrentOperationCount(count);
    }
    void addOperation(std::function<void()> operation) override {
        queue_.addOperation(queues_.watched(std::move(operation)));
    }
    [[nodiscard]] std::size_t operationCount() const override { return queue_.operationCount(); }
    void cancelAllOperations() override { queue_.cancelAllOperations(); }

private:
    WatchedQueues& queues_;
    platform::ThreadOperationQueue queue_;
};

void WatchedQueues::Global::async(std::function<void()> block) {
    pool_.async(queues_.watched(std::move(block)));
}

std::unique_ptr<platform::OperationQueue> WatchedQueues::makeOperationQueue() {
    return std::make_unique<Operations>(*this);
}

std::function<void()> WatchedQueues::watched(std::function<void()> block) {
    return [token = std::make_shared<Token>(*this), block = std::move(block)] { block(); };
}

void WatchedQueues::add(int count) {
    const std::lock_guard lock(mutex_);
    count_ += count;
    if (count_ == 0) idle_.notify_all();
}

void WatchedQueues::waitUntilIdle() {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return count_ == 0; });
}

bool WatchedQueues::isIdle() const {
    const std::lock_guard lock(mutex_);
    return count_ == 0;
}

}  // namespace vorpel::cli
