// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <functional>

namespace vorpel::platform {

/// Operations off the main thread, started in the order they were added, at most
/// `maxConcurrentOperationCount` at a time. Any thread may call. Destroying the queue drops what has not
/// started and waits for what has.
class OperationQueue {
public:
    virtual ~OperationQueue() = default;

    /// 1 makes a serial queue. Set it before adding.
    virtual void setMaxConcurrentOperationCount(std::size_t count) = 0;
    virtual void addOperation(std::function<void()> operation) = 0;

    /// Those waiting and those running.
    [[nodiscard]] virtual std::size_t operationCount() const = 0;

    /// Drops those waiting; one that runs is left to end.
    virtual void cancelAllOperations() = 0;
};

}  // namespace vorpel::platform
