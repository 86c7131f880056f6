// SPDX-License-Identifier: Apache-2.0
#include "ui/animation.h"

#include "ui/display_link.h"
#include "ui/window.h"

#include <optional>
#include <utility>

namespace vorpel::ui {

namespace {

// The sum of frames may miss the end by a rounding error; it is not worth a frame more.
constexpr double TIME_SLACK = 1e-6;

Animation applyAtOnce(const Animation::Step& step, const Animation::Completion& completion) {
    step(1);
    if (completion) completion();
    return {};
}

}  // namespace

struct Animation::State {
    double start = 0;
    double duration = 0;
    AnimationCurve curve = AnimationCurve::Linear;
    Step step;
    Completion completion;
    bool cancelled = false;
    std::optional<DisplayLink> link;  // none once it is over
};

double valueOf(AnimationCurve curve, double time) {
    const double left = 1 - time;
    switch (curve) {
        case AnimationCurve::Linear:
            break;
        case AnimationCurve::EaseIn:
            return time * time;
        case AnimationCurve::EaseOut:
            return 1 - left * left;
        case AnimationCurve::EaseInOut:
            return time < 0.5 ? 4 * time * time * time : 1 - 4 * left * left * left;
    }
    return time;
}

Animation& Animation::operator=(Animation&& other) noexcept {
    if (this == &other) return *this;
    cancel();
    state_ = std::move(other.state_);
    return *this;
}

void Animation::cancel() {
    const auto state = std::exchange(state_, nullptr);
    if (!state) return;
    state->cancelled = true;
    state->link.reset();
}

void Animation::finish() {
    if (isRunning()) stepTo(state_, state_->start + state_->duration);
}

bool Animation::isRunning() const {
    return state_ && state_->link;
}

void Animation::stepTo(const std::shared_ptr<State>& state, double time) {
    // Held here: either callback may destroy the handle, which owns it otherwise.
    const std::shared_ptr<State> held = state;
    const double passed = time - held->start;
    if (passed < held->duration - TIME_SLACK) {
        held->step(valueOf(held->curve, passed / held->duration));
        return;
    }
    held->link.reset();
    held->step(1);
    if (!held->cancelled && held->completion) held->completion();
}

Animation animate(platform::RunLoop& runLoop, double duration, AnimationCurve curve, Animation::Step step,
                  Animation::Completion completion) {
    if (!(duration > 0)) return applyAtOnce(step, completion);
    Animation animation;
    animation.state_ = std::make_shared<Animation::State>();
    Animation::State& state = *animation.state_;
    state.start = runLoop.now();
    state.duration = duration;
    state.curve = curve;
    state.step = std::move(step);
    state.completion = std::move(completion);
    state.link.emplace(runLoop, [weak = std::weak_ptr(animation.state_)](double time) {
        if (const auto running = weak.lock()) Animation::stepTo(running, time);
    });
    return animation;
}

Animation animate(Window* window, double duration, AnimationCurve curve, Animation::Step step,
                  Animation::Completion completion) {
    if (!window || window->actionsDisabled()) return applyAtOnce(step, completion);
    return animate(window->runLoop(), duration, curve, std::move(step), std::move(completion));
}

}  // namespace vorpel::ui
