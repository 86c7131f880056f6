// SPDX-License-Identifier: Apache-2.0
#include "ui/scroll_motion.h"

#include <algorithm>
#include <cmath>

namespace vorpel::ui {

namespace {

constexpr double LEAST_VELOCITY = 5;  // points a second; slower is standing still

// Of a spring without swing, a second: nearly home in a third of one.
constexpr double STIFFNESS = 15;
constexpr double LEAST_DISTANCE = 0.5;  // points

}  // namespace

ScrollMotion ScrollMotion::glide(double offset, double velocity, const Limits& limits,
                                 double decelerationRate) {
    const double inside = std::clamp(offset, limits.low, limits.high);
    if (inside != offset) return spring(offset, velocity, inside);
    ScrollMotion motion(offset);
    const double speed = std::abs(velocity);
    if (speed <= LEAST_VELOCITY) return motion;
    motion.velocity_ = velocity;
    motion.friction_ = -1000 * std::log(decelerationRate);
    motion.glideSeconds_ = std::log(speed / LEAST_VELOCITY) / motion.friction_;
    motion.target_ = motion.glidedTo(motion.glideSeconds_);
    const double edge = std::clamp(motion.target_, limits.low, limits.high);
    if (edge == motion.target_) return motion;
    // The edge comes first: the glide ends where it has made the way there.
    const double left = 1 - motion.friction_ * (edge - offset) / velocity;
    motion.glideSeconds_ = -std::log(left) / motion.friction_;
    motion.target_ = edge;
    motion.springs_ = limits.edge == Edge::Bounces;
    motion.springVelocity_ = velocity * left;
    return motion;
}

ScrollMotion ScrollMotion::spring(double offset, double velocity, double target) {
    ScrollMotion motion(offset);
    motion.springs_ = true;
    motion.springVelocity_ = velocity;
    motion.target_ = target;
    return motion;
}

double ScrollMotion::glidedTo(double time) const {
    return start_ + velocity_ / friction_ * (1 - std::exp(-friction_ * time));
}

double ScrollMotion::offsetAt(double time) const {
    if (time < glideSeconds_) return glidedTo(time);
    if (isOverAt(time)) return target_;
    const double since = time - glideSeconds_;
    const double distance = glidedTo(glideSeconds_) - target_;
    const double pull = springVelocity_ + STIFFNESS * distance;
    return target_ + (distance + pull * since) * std::exp(-STIFFNESS * since);
}

bool ScrollMotion::isOverAt(double time) const {
    if (time < glideSeconds_) return false;
    if (!springs_) return true;
    const double since = time - glideSeconds_;
    const double distance = glidedTo(glideSeconds_) - target_;
    const double pull = springVelocity_ + STIFFNESS * distance;
    // From its farthest point on the spring only comes nearer.
    const double farthest = pull != 0 ? springVelocity_ / (STIFFNESS * pull) : 0;
    if (since < farthest) return false;
    return std::abs(distance + pull * since) * std::exp(-STIFFNESS * since) < LEAST_DISTANCE;
}

}  // namespace vorpel::ui
