// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/run_loop.h"

#include <functional>
#include <memory>

namespace vorpel::ui {

class Window;

/// Whether a change is to be seen happening.
enum class Animated { No, Yes };

enum class AnimationCurve { Linear, EaseIn, EaseOut, EaseInOut };

/// Where on its way from 0 to 1 a curve is when `time`, from 0 to 1, has passed.
[[nodiscard]] double valueOf(AnimationCurve curve, double time);

/// A running animation's handle. Destroying it stops the animation where it is, so the member that holds it
/// keeps the steps from calling on what is gone. Main thread only. May outlive its run loop.
class Animation {
public:
    /// Called in each frame with the way made so far, from 0 to 1; at the end with exactly 1.
    using Step = std::function<void(double progress)>;
    using Completion = std::function<void()>;

    Animation() = default;
    Animation(Animation&&) noexcept = default;
    Animation& operator=(Animation&& other) noexcept;
    ~Animation() { cancel(); }

    /// Stops where it is; the completion is not called.
    void cancel();

    /// Takes the last step and completes at once, if it runs.
    void finish();
    [[nodiscard]] bool isRunning() const;

private:
    friend Animation animate(platform::RunLoop& runLoop, double duration, AnimationCurve curve,
                             Animation::Step step, Animation::Completion completion);
    struct State;
    static void stepTo(const std::shared_ptr<State>& state, double time);

    std::shared_ptr<State> state_;
};

/// Calls `step` once a frame for `duration` seconds, then `completion`, which may be empty. Both may destroy
/// the handle. Without a duration both are called before this returns.
[[nodiscard]] Animation animate(platform::RunLoop& runLoop, double duration, AnimationCurve curve,
                                Animation::Step step, Animation::Completion completion = {});

/// On the window's run loop; at once where there is no window or a transaction has disabled actions.
[[nodiscard]] Animation animate(Window* window, double duration, AnimationCurve curve, Animation::Step step,
                                Animation::Completion completion = {});

}  // namespace vorpel::ui
