// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::ui {

/// How one coordinate of the content's offset goes on when the finger has let go: where it is follows from
/// the time alone, however many frames are drawn. Offsets are points, times seconds since the start.
class ScrollMotion {
public:
    enum class Edge { Bounces, Stops };

    struct Limits {
        double low = 0;
        double high = 0;
        Edge edge = Edge::Stops;
    };

    /// Stays where it is.
    explicit ScrollMotion(double offset = 0) : start_(offset), target_(offset) {}

    /// The share of its velocity that a glide keeps after each millisecond; halves it in a third of a second.
    static constexpr double DECELERATION_RATE = 0.998;

    /// Slows down by itself. At a limit it stops or swings over and back; beyond one it is drawn back.
    static ScrollMotion glide(double offset, double velocity, const Limits& limits,
                              double decelerationRate = DECELERATION_RATE);

    /// Is drawn to the target, and passes it only when it comes fast.
    static ScrollMotion spring(double offset, double velocity, double target);

    [[nodiscard]] double offsetAt(double time) const;
    [[nodiscard]] bool isOverAt(double time) const;

private:
    [[nodiscard]] double glidedTo(double time) const;

    double start_;
    double velocity_ = 0;
    double friction_ = 1;  // the share of its velocity that a glide loses a second, continuously
    double glideSeconds_ = 0;
    bool springs_ = false;  // when it has glided
    double springVelocity_ = 0;
    double target_;
};

}  // namespace vorpel::ui
