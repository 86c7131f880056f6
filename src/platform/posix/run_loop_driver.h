// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/run_loop.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct timespec;

namespace vorpel::platform {

/// What a real host drives its run loop with: it sleeps until a timer is due, a block is handed in from any
/// thread, or a file descriptor that the host named has something to say. Main thread only, but for `stop`.
/// The loop's clock must be one that runs by itself.
class RunLoopDriver {
public:
    /// Called with the events that poll found, errors among them.
    using Ready = std::function<void(short events)>;

    /// Becomes the loop's wake-up; the loop must outlive the driver. Make it before other threads know the
    /// loop. Throws std::system_error when the system has no more descriptors.
    explicit RunLoopDriver(RunLoop& loop);
    ~RunLoopDriver();
    RunLoopDriver(const RunLoopDriver&) = delete;
    RunLoopDriver& operator=(const RunLoopDriver&) = delete;

    /// Calls `ready` whenever the descriptor has some of the events (POLLIN and so on), or is broken. The
    /// descriptor stays its owner's, who ends the watch before closing it. Watching it again replaces the
    /// first watch.
    void watch(int descriptor, short events, Ready ready);
    void unwatch(int descriptor);

    /// Called each time before it may sleep: to flush what is to be sent, for instance.
    void setBeforeWait(RunLoop::Block block) { beforeWait_ = std::move(block); }

    /// Runs what is due, sleeps until there is more, and so on until stopped.
    void run();

    /// Ends `run` after the block that is running, or the next `run` at once. Any thread, and signal
    /// handlers.
    void stop();

    /// One round of `run`: what is due, one wait, and what it brought.
    void runOnce();

private:
    class WakeUp;
    struct Watch;

    void waitAndDispatch();
    const timespec* timeUntilDeadline(timespec& time) const;

    RunLoop& loop_;
    std::shared_ptr<WakeUp> wakeUp_;  // shared with the loop, whose threads may be late
    std::vector<std::shared_ptr<Watch>> watches_;
    RunLoop::Block beforeWait_;
    std::atomic<bool> stopped_ = false;
};

}  // namespace vorpel::platform
