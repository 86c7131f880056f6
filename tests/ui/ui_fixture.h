// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/manual_time.h"
#include "support/recording_painter.h"
#include "ui/view.h"
#include "ui/window.h"

#include <gtest/gtest.h>

#include <vector>

namespace vorpel::ui {

/// A window of 320 x 240 on a clock that only the test moves.
class UiTest : public ::testing::Test {
protected:
    UiTest() {
        window.setRoot(&root);
        frame();
    }

    /// Paints what is damaged and returns what was drawn.
    vorpel::testing::RecordingPainter frame() {
        vorpel::testing::RecordingPainter painter;
        window.paint(painter);
        EXPECT_EQ(painter.depth, 0);
        return painter;
    }

    /// Lets time pass, stopping at each deadline on the way.
    void advance(double seconds) { platform::advance(clock, runLoop, seconds); }

    /// A finger that comes down at the first point and is lifted at the last.
    void stroke(const std::vector<Point>& points) {
        window.touchDown(1, points.front());
        advance(0.05);
        for (const Point& point : points) window.touchMoved(1, point);
        window.touchUp(1, points.back());
    }
    void tap(Point point) { stroke({point}); }

    platform::ManualClock clock;
    platform::RunLoop runLoop{clock};
    Window window{runLoop};
    View root{Rect{0, 0, 320, 240}};
};

}  // namespace vorpel::ui
