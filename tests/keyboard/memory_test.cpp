// SPDX-License-Identifier: Apache-2.0
#include "allocation_counter.h"
#include "keyboard_fixture.h"
#include "ui/cairo/bitmap.h"
#include "ui/cairo/drawing_resources.h"
#include "ui/cairo/paint_window.h"

#include <gtest/gtest.h>

namespace vorpel::testing {
namespace {

TEST(KeyboardMemoryTest, AFrameInWhichNothingChangedTakesAndPaintsNothing) {
    Stage stage;
    ui::DrawingResources resources(2);
    ui::Bitmap bitmap = ui::Bitmap::covering(stage.controller->view().frame().size(), 2);
    const auto paint = [&] { return paintWindow(stage.window, bitmap, resources); };
    EXPECT_FALSE(paint().isEmpty());
    stage.touch("q");
    stage.platform.advance(1);
    EXPECT_FALSE(paint().isEmpty());
    const bench::AllocationCounter counter;
    for (int i = 0; i < 10; ++i) {
        // A second of the frames that look for a change of the surroundings, too.
        stage.platform.advance(0.1);
        EXPECT_TRUE(paint().isEmpty());
    }
    EXPECT_EQ(bench::AllocationCounter::allocations(), 0);
}

}  // namespace
}  // namespace vorpel::testing
