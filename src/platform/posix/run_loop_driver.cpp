// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/run_loop_driver.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vorpel::platform {

/// A counter in the kernel that poll can wait for.
class RunLoopDriver::WakeUp {
public:
    WakeUp() : descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
        if (descriptor_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
    }
    ~WakeUp() { ::close(descriptor_); }
    WakeUp(const WakeUp&) = delete;
    WakeUp& operator=(const WakeUp&) = delete;

    [[nodiscard]] int descriptor() const { return descriptor_; }

    void signal() const {
        const int error = errno;
        const std::uint64_t one = 1;
        // Where it fails the counter is full, and poll wakes as well.
        [[maybe_unused]] const ssize_t written = ::write(descriptor_, &one, sizeof one);
        errno = error;
    }

    void clear() const {
        std::uint64_t count = 0;
        [[maybe_unused]] const ssize_t size = ::read(descriptor_, &count, sizeof count);
    }

private:
    int descriptor_;
};

struct RunLoopDriver::Watch {
    int descriptor;
    short events;
    Ready ready;
};

RunLoopDriver::RunLoopDriver(RunLoop& loop) : loop_(loop), wakeUp_(std::make_shared<WakeUp>()) {
    loop_.setWakeUp([wakeUp = wakeUp_] { wakeUp->signal(); });
}

RunLoopDriver::~RunLoopDriver() = default;

void RunLoopDriver::watch(int descriptor, short events, Ready ready) {
    unwatch(descriptor);
    watches_.push_back(std::make_shared<Watch>(Watch{descriptor, events, std::move(ready)}));
}

void RunLoopDriver::unwatch(int descriptor) {
    std::erase_if(watches_, [descriptor](const auto& watch) { return watch->descriptor == descriptor; });
}

void RunLoopDriver::run() {
    while (!stopped_.exchange(false)) runOnce();
}

void RunLoopDriver::stop() {
    stopped_ = true;
    wakeUp_->signal();
}

void RunLoopDriver::runOnce() {
    loop_.runDue();
    if (beforeWait_) beforeWait_();
    waitAndDispatch();
}

void RunLoopDriver::waitAndDispatch() {
    // A handler may begin and end watches: those that poll saw are held, and each is asked for in its turn.
    const auto watches = watches_;
    std::vector<pollfd> descriptors = {{wakeUp_->descriptor(), POLLIN, 0}};
    for (const auto& watch : watches) descriptors.push_back({watch->descriptor, watch->events, 0});
    timespec time{};
    if (::ppoll(descriptors.data(), descriptors.size(), timeUntilDeadline(time), nullptr) <= 0) return;
    if (descriptors[0].revents != 0) wakeUp_->clear();
    for (std::size_t at = 0; at < watches.size(); ++at) {
        const short events = descriptors[at + 1].revents;
        const bool stands = std::ranges::find(watches_, watches[at]) != watches_.end();
        if (events != 0 && stands) watches[at]->ready(events);
    }
}

const timespec* RunLoopDriver::timeUntilDeadline(timespec& time) const {
    const std::optional<double> deadline = loop_.nextDeadline();
    if (!deadline) return nullptr;
    // A timer years away needs no more than to be looked at again tomorrow.
    constexpr double LONGEST = 86400;
    const double seconds = std::clamp(*deadline - loop_.now(), 0.0, LONGEST);
    time.tv_sec = static_cast<time_t>(seconds);
    time.tv_nsec = static_cast<long>((seconds - std::floor(seconds)) * 1e9);
    return &time;
}

}  // namespace vorpel::platform
