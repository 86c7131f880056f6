// SPDX-License-Identifier: Apache-2.0
#include "allocation_counter.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

namespace vorpel::ui {
namespace {

using MemoryTest = UiTest;

TEST_F(MemoryTest, AFrameWithoutChangesAllocatesNothing) {
    Label label(Rect{0, 0, 100, 20});
    Button button(Rect{0, 30, 100, 20});
    root.addSubview(label);
    root.addSubview(button);
    label.setText("a text that is too long to be kept in the string itself");
    frame();
    vorpel::testing::RecordingPainter painter;
    const bench::AllocationCounter counter;
    label.setTextColor(label.textColor());
    button.setHighlighted(true);
    window.paint(painter);
    EXPECT_EQ(bench::AllocationCounter::allocations(), 0);
    EXPECT_TRUE(painter.drawn.empty());
}

TEST_F(MemoryTest, TheTreeItselfAllocatesNothingForAFrameThatChanges) {
    /// Draws with nothing, so that what is counted is the tree's.
    struct Blinking : View {
        using View::View;
        void draw(Painter&) override { ++frames; }
        int frames = 0;
    };
    Blinking view(Rect{0, 0, 10, 10});
    root.addSubview(view);
    vorpel::testing::RecordingPainter painter;
    const auto moveAndPaint = [&](double x) {
        view.setFrame({x, 20, 10, 10});
        window.paint(painter);
    };
    for (int i = 1; i < 4; ++i) moveAndPaint(i * 20);
    const bench::AllocationCounter counter;
    moveAndPaint(200);
    EXPECT_EQ(bench::AllocationCounter::allocations(), 0);
    EXPECT_GE(view.frames, 4);
}

}  // namespace
}  // namespace vorpel::ui
