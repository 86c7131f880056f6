// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/operation_queue.h"
#include "platform/work_queue.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <utility>

namespace vorpel::testing {

/// Work that stands in line until a test says so, and then runs on the test's own thread, in the order in
/// which it came. One thread. Must outlive the operation queues that it makes, which share its line.
class QueuedWork final : public platform::WorkQueue {
public:
    QueuedWork() = default;
    QueuedWork(const QueuedWork&) = delete;
    QueuedWork& operator=(const QueuedWork&) = delete;

    void async(std::function<void()> block) override { line_.push_back({nullptr, std::move(block)}); }

    [[nodiscard]] std::unique_ptr<platform::OperationQueue> makeOperationQueue() {
        return std::make_unique<Operations>(*this);
    }

    [[nodiscard]] std::size_t count() const { return line_.size(); }

    /// What the work itself hands in runs too. @return how many ran
    std::size_t runAll() {
        std::size_t count = 0;
        for (; !line_.empty(); ++count) {
            const Entry entry = std::move(line_.front());
            line_.pop_front();
            running_ = entry.owner;
            entry.block();
            running_ = nullptr;
        }
        return count;
    }

private:
    class Operations final : public platform::OperationQueue {
    public:
        explicit Operations(QueuedWork& work) : work_(work) {}
        ~Operations() override { work_.drop(this); }

        // Whatever the number, one runs at a time: that is one of the orders that any number allows.
        void setMaxConcurrentOperationCount(std::size_t) override {}
        void addOperation(std::function<void()> operation) override {
            work_.line_.push_back({this, std::move(operation)});
        }
        [[nodiscard]] std::size_t operationCount() const override { return work_.countOf(this); }
        void cancelAllOperations() override { work_.drop(this); }

    private:
        QueuedWork& work_;
    };

    struct Entry {
        const Operations* owner;  // null for plain work
        std::function<void()> block;
    };

    void drop(const Operations* owner) {
        std::erase_if(line_, [owner](const Entry& entry) { return entry.owner == owner; });
    }

    [[nodiscard]] std::size_t countOf(const Operations* owner) const {
        std::size_t count = running_ == owner ? 1 : 0;
        for (const Entry& entry : line_) count += entry.owner == owner ? 1 : 0;
        return count;
    }

    std::deque<Entry> line_;
    const Operations* running_ = nullptr;
};

}  // namespace vorpel::testing
