// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/clock.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace vorpel::platform {

class RunLoop;

/// A running timer's handle; destroying it stops the timer. Main thread only. May outlive its loop.
class Timer {
public:
    Timer() = default;
    Timer(Timer&& other) noexcept;
    Timer& operator=(Timer&& other) noexcept;
    ~Timer() { invalidate(); }

    void invalidate();

    /// False once stopped, and once a timer that does not repeat has fired.
    [[nodiscard]] bool isValid() const;

private:
    friend class RunLoop;
    struct State;
    explicit Timer(std::shared_ptr<State> state);
    std::shared_ptr<State> state_;
};

/// The main thread's queue of blocks and timers. It never waits: a host asks for the next deadline, waits as
/// it likes, and calls `runDue`. Main thread only, but for `async`.
class RunLoop {
public:
    using Block = std::function<void()>;

    /// The clock must outlive the loop.
    explicit RunLoop(const Clock& clock);
    ~RunLoop();
    RunLoop(const RunLoop&) = delete;
    RunLoop& operator=(const RunLoop&) = delete;

    [[nodiscard]] const Clock& clock() const { return clock_; }
    [[nodiscard]] double now() const { return clock_.now(); }

    /// Runs the block at the next `runDue`, in the order of the calls. Any thread, as long as the loop lives.
    void async(Block block);

    /// Called, from any thread, when a block was handed in while the loop may be asleep. Set it before other
    /// threads know the loop.
    void setWakeUp(Block wakeUp) { wakeUp_ = std::move(wakeUp); }

    /// Fires once, or again and again, `interval` seconds apart. A repeating timer that was held up skips the
    /// ticks it missed but stays in step: it fires at whole multiples of its interval from its start. A
    /// negative interval counts as 0, and a repeating one is at least a tenth of a millisecond.
    [[nodiscard]] Timer scheduledTimer(double interval, bool repeats, Block block);

    /// When there is something to do next, on the loop's clock; nothing when it may sleep until woken.
    [[nodiscard]] std::optional<double> nextDeadline() const;

    /// Runs the blocks handed in so far and every timer that is due, earliest first, those of one time in
    /// the order in which they were scheduled. Timers that these start wait for the next call; blocks that
    /// they hand in run at the end of this one.
    void runDue();

    /// Timers that have not been stopped and have not fired for the last time.
    [[nodiscard]] std::size_t timerCount() const;

private:
    void runBlocks();
    void collectDue(double time, std::vector<std::shared_ptr<Timer::State>>& due) const;

    const Clock& clock_;
    Block wakeUp_;
    std::vector<std::shared_ptr<Timer::State>> timers_;
    std::vector<std::shared_ptr<Timer::State>> due_;  // room for those of a turn
    mutable std::mutex mutex_;                        // guards blocks_
    std::vector<Block> blocks_;
};

}  // namespace vorpel::platform
