// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layouts.h"
#include "proximity/proximity_info_state.h"
#include "proximity/sampled_input.h"

#include <cmath>
#include <string>
#include <vector>

namespace wordengine {

/// A finger's way over the keyboard, point by point.
struct DrawnTrace {
    std::vector<int> xs, ys, times;

    int size() const { return static_cast<int>(xs.size()); }
    void add(int x, int y, int time) {
        xs.push_back(x);
        ys.push_back(y);
        times.push_back(time);
    }

    /// Moves on in a straight line, a point every `step` pixels and `millis` milliseconds.
    void lineTo(int x, int y, int step, int millis) {
        const int fromX = xs.back();
        const int fromY = ys.back();
        const double length = std::hypot(x - fromX, y - fromY);
        const int steps = std::max(1, static_cast<int>(std::lround(length / step)));
        for (int i = 1; i <= steps; ++i) {
            add(fromX + (x - fromX) * i / steps, fromY + (y - fromY) * i / steps, times.back() + millis);
        }
    }

    RawInput raw() const {
        return {.inputSize = size(), .xs = xs.data(), .ys = ys.data(), .times = times.data()};
    }

    void enter(const ProximityInfo& info, int length, ProximityInfoState& state) const {
        state.initInputParams(0, 10.0f, &info, nullptr, length, xs.data(), ys.data(), times.data(), nullptr,
                              true);
    }
};

/// Slides from key to key, slowing down around each centre as people do.
inline DrawnTrace traceOf(const Layout& layout, const std::string& letters) {
    DrawnTrace trace;
    trace.add(layout.centerX(letters[0]), layout.centerY(letters[0]), 0);
    for (size_t i = 1; i < letters.size(); ++i) {
        const int fromX = trace.xs.back();
        const int fromY = trace.ys.back();
        const int toX = layout.centerX(letters[i]);
        const int toY = layout.centerY(letters[i]);
        trace.lineTo(fromX + (toX - fromX) / 5, fromY + (toY - fromY) / 5, 8, 16);
        trace.lineTo(toX - (toX - fromX) / 5, toY - (toY - fromY) / 5, 25, 16);
        trace.lineTo(toX, toY, 8, 16);
    }
    return trace;
}

}  // namespace wordengine
