// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"
#include "ui/gesture_recognizer.h"

#include <functional>
#include <limits>
#include <vector>

namespace vorpel::ui {

/// Calls an action for a tap on its view or on what is in it: short, and hardly moved. Each of several
/// fingers taps for itself. The views that are tapped get their touches too.
class TapGesture : public GestureRecognizer {
public:
    static constexpr double LONGEST_SECONDS = 0.75;
    static constexpr double FARTHEST_POINTS = 10;

    /// The touch has ended, but its place and view can be asked for. The action may destroy the gesture.
    using Action = std::function<void(const Touch& touch)>;

    explicit TapGesture(Action action) : action_(std::move(action)) {}

    /// Asked for each touch that begins: those it refuses are none of the gesture's.
    void setShouldReceive(std::function<bool(const Touch& touch)> filter) { filter_ = std::move(filter); }

    /// However long the finger rests, it is a tap.
    void setMayRest() { longestSeconds_ = std::numeric_limits<double>::infinity(); }

protected:
    void touchBegan(Touch& touch) override;
    void touchMoved(Touch& touch) override;
    void touchEnded(Touch& touch) override;
    void touchCancelled(Touch& touch) override;
    void reset() override { fingers_.clear(); }

private:
    struct Finger {
        const Touch* touch;
        Point start;
        double startTime;
    };

    [[nodiscard]] bool isStillTap(const Finger& finger) const;
    [[nodiscard]] std::vector<Finger>::iterator find(const Touch& touch);

    Action action_;
    std::function<bool(const Touch& touch)> filter_;
    std::vector<Finger> fingers_;
    double longestSeconds_ = LONGEST_SECONDS;
};

}  // namespace vorpel::ui
