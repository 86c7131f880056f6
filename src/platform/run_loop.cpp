// SPDX-License-Identifier: Apache-2.0
#include "platform/run_loop.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace vorpel::platform {
namespace {

constexpr double SHORTEST_REPETITION = 0.0001;

}  // namespace

struct Timer::State {
    double start = 0;
    double interval = 0;
    double ticks = 1;  // up to the deadline; counted, since a sum of intervals would drift
    bool repeats = false;
    bool valid = true;
    RunLoop::Block block;

    [[nodiscard]] double deadline() const { return start + ticks * interval; }
    [[nodiscard]] bool isDue(double time) const { return valid && deadline() <= time; }

    /// On to the first tick after a time.
    void skipTo(double time) {
        ticks = std::max(ticks, std::floor((time - start) / interval));
        while (deadline() <= time) ++ticks;
    }
};

Timer::Timer(std::shared_ptr<State> state) : state_(std::move(state)) {}

Timer::Timer(Timer&& other) noexcept : state_(std::move(other.state_)) {}

Timer& Timer::operator=(Timer&& other) noexcept {
    if (this != &other) {
        invalidate();
        state_ = std::move(other.state_);
    }
    return *this;
}

void Timer::invalidate() {
    if (state_) state_->valid = false;
    state_.reset();
}

bool Timer::isValid() const {
    return state_ && state_->valid;
}

RunLoop::RunLoop(const Clock& clock) : clock_(clock) {}

RunLoop::~RunLoop() = default;

void RunLoop::async(Block block) {
    {
        const std::lock_guard lock(mutex_);
        blocks_.push_back(std::move(block));
    }
    if (wakeUp_) wakeUp_();
}

Timer RunLoop::scheduledTimer(double interval, bool repeats, Block block) {
    auto state = std::make_shared<Timer::State>();
    state->start = now();
    state->interval = std::max(interval, repeats ? SHORTEST_REPETITION : 0.0);
    state->repeats = repeats;
    state->block = std::move(block);
    timers_.push_back(state);
    return Timer(std::move(state));
}

std::optional<double> RunLoop::nextDeadline() const {
    {
        const std::lock_guard lock(mutex_);
        if (!blocks_.empty()) return now();
    }
    std::optional<double> next;
    for (const auto& timer : timers_) {
        if (timer->valid && (!next || timer->deadline() < *next)) next = timer->deadline();
    }
    return next;
}

void RunLoop::runDue() {
    runBlocks();
    // Only what is due now: a timer that starts another without delay must not keep the loop here.
    const double time = now();
    // The list goes from turn to turn: a frame in which nothing happens takes nothing from the heap.
    std::vector<std::shared_ptr<Timer::State>> due = std::move(due_);
    collectDue(time, due);
    for (const auto& timer : due) {
        // Those that fired before it may have stopped it, or run the loop themselves.
        if (!timer->isDue(time)) continue;
        if (timer->repeats) {
            timer->skipTo(time);
        } else {
            timer->valid = false;
        }
        timer->block();
    }
    due.clear();
    due_ = std::move(due);
    std::erase_if(timers_, [](const auto& timer) { return !timer->valid; });
    runBlocks();
}

std::size_t RunLoop::timerCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(timers_, [](const auto& timer) { return timer->valid; }));
}

void RunLoop::runBlocks() {
    std::vector<Block> blocks;
    {
        const std::lock_guard lock(mutex_);
        blocks.swap(blocks_);
    }
    for (const Block& block : blocks) block();
}

/// The earliest first; of two at one time the one that was made first.
void RunLoop::collectDue(double time, std::vector<std::shared_ptr<Timer::State>>& due) const {
    for (const auto& timer : timers_) {
        if (!timer->isDue(time)) continue;
        const auto later = std::ranges::upper_bound(due, timer->deadline(), {},
                                                    [](const auto& other) { return other->deadline(); });
        due.insert(later, timer);
    }
}

}  // namespace vorpel::platform
