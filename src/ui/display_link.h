// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/run_loop.h"

#include <functional>
#include <memory>

namespace vorpel::ui {

/// Calls back once a frame while it lives and is not paused; the callback may destroy it. Main thread only.
/// May outlive its run loop.
class DisplayLink {
public:
    static constexpr double FRAMES_PER_SECOND = 60;

    /// Called with the time on the run loop's clock.
    using Callback = std::function<void(double time)>;

    explicit DisplayLink(platform::RunLoop& runLoop, Callback callback,
                         double framesPerSecond = FRAMES_PER_SECOND);

    /// While paused, the run loop may sleep.
    void setPaused(bool paused);
    [[nodiscard]] bool isPaused() const { return !timer_.isValid(); }

private:
    platform::RunLoop& runLoop_;
    std::shared_ptr<const Callback> callback_;  // the timer shares it: it may run while this is destroyed
    double interval_;
    platform::Timer timer_;
};

}  // namespace vorpel::ui
