// SPDX-License-Identifier: Apache-2.0
#include "allocation_counter.h"
#include "cairo_canvas.h"
#include "ui/button.h"
#include "ui/cairo/paint_window.h"
#include "ui/image_view.h"
#include "ui/label.h"
#include "ui/path.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace vorpel::ui {
namespace {

/// A key's ground, whose path is made once.
struct KeyView : View {
    using View::View;
    const Path path = Path::roundedRect({0, 0, 40, 40}, 5);
    void draw(Painter& painter) override {
        painter.drawShadow(path, {Color::black(), {0, 1}, 3});
        painter.fill(path, Color::white());
    }
};

using MemoryTest = UiTest;

TEST_F(MemoryTest, LaterFramesAllocateNothingNeitherInTheTreeNorInThePainter) {
    KeyView key(Rect{0, 0, 40, 40});
    Label label(Rect{0, 50, 100, 20});
    Label arabic(Rect{0, 80, 100, 20});
    Button button(Rect{0, 110, 100, 20});
    ImageView image(Rect{0, 140, 24, 24});
    for (View* const view : std::initializer_list<View*>{&key, &label, &arabic, &button, &image}) {
        root.addSubview(*view);
    }
    label.setText("a text that is too long to be kept in the string itself, and set smaller");
    label.setAdjustsFontSizeToFitWidth(true);
    arabic.setText("مرحبا 😀");
    button.setTitle("Q");
    image.setImage(VORPEL_SOURCE_DIR "/data/images/gear.svg");
    vorpel::testing::CairoCanvas canvas(2, root.bounds().size());
    const auto moveAndPaint = [&](double x) {
        for (View* const view : root.subviews()) view->setFrame(view->frame().offsetBy({x, 0}));
        button.setHighlighted(!button.isHighlighted());
        return paintWindow(window, canvas.bitmap, canvas.resources);
    };
    for (int i = 0; i < 4; ++i) moveAndPaint(20);
    const bench::AllocationCounter counter;
    EXPECT_FALSE(moveAndPaint(20).isEmpty());
    EXPECT_EQ(bench::AllocationCounter::allocations(), 0);
}

}  // namespace
}  // namespace vorpel::ui
