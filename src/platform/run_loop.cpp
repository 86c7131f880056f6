// SPDX-License-Identifier: Apache-2.0
#include "platform/run_loop.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorpel::platform {

struct Timer::State {
    double deadline = 0;
    double interval = 0;
    bool repeats = false;
    bool valid = true;
    RunLoop::Block block;
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
    state->deadline = now() + interval;
    state->interval = interval;
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
        if (timer->valid && (!next || timer->deadline < *next)) next = timer->deadline;
    }
    return next;
}

void RunLoop::runDue() {
    runBlocks();
    // Only what is due now: a timer that starts another without delay must not keep the loop here.
    const double time = now();
    std::erase_if(timers_, [](const auto& timer) { return !timer->valid; });
    for (std::size_t turns = timers_.size(); turns > 0; --turns) {
        const std::shared_ptr<Timer::State> timer = earliestDue(time);
        if (!timer) break;
        if (timer->repeats) {
            const double missed = std::max(0.0, std::floor((time - timer->deadline) / timer->interval));
            timer->deadline += (missed + 1) * timer->interval;
        } else {
            timer->valid = false;
        }
        timer->block();
    }
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

std::shared_ptr<Timer::State> RunLoop::earliestDue(double time) {
    std::shared_ptr<Timer::State> earliest;
    for (const auto& timer : timers_) {
        const bool due = timer->valid && timer->deadline <= time;
        if (due && (!earliest || timer->deadline < earliest->deadline)) earliest = timer;
    }
    return earliest;
}

}  // namespace vorpel::platform
