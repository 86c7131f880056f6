// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/run_loop.h"
#include "support/recording_painter.h"
#include "ui/view.h"
#include "ui/window.h"

#include <gtest/gtest.h>

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
    void advance(double seconds) {
        constexpr double SLACK = 1e-9;
        const double end = clock.now() + seconds;
        for (auto next = runLoop.nextDeadline(); next && *next <= end + SLACK;
             next = runLoop.nextDeadline()) {
            clock.advanceTo(*next);
            runLoop.runDue();
        }
        clock.advanceTo(end);
    }

    void tap(Point point) {
        window.touchDown(1, point);
        advance(0.05);
        window.touchUp(1, point);
    }

    platform::ManualClock clock;
    platform::RunLoop runLoop{clock};
    Window window{runLoop};
    View root{Rect{0, 0, 320, 240}};
};

}  // namespace vorpel::ui
