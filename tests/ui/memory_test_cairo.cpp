// SPDX-License-Identifier: Apache-2.0
#include "allocation_counter.h"
#include "ui/cairo_canvas.h"
#include "ui/path.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vorpel::testing {
namespace {

TEST(CairoMemoryTest, LaterFramesAllocateNothing) {
    const std::vector<std::string> labels{"Q", "مرحبا", "😀",
                                          "a label too long to be set in the space there is"};
    const std::string image = VORPEL_SOURCE_DIR "/data/images/gear.svg";
    const ui::Path key = ui::Path::roundedRect({0, 0, 40, 40}, 5);
    CairoCanvas canvas(2);
    const auto frame = [&](ui::Painter& painter) {
        for (const std::string& label : labels) {
            painter.translate({45, 0});
            painter.drawShadow(key, {ui::Color::black(), {0, 1}, 3});
            painter.fill(key, ui::Color::white());
            painter.drawText(label, {0, 0, 40, 40}, {.font = {16}, .minimumScale = 0.7});
            painter.drawImage(image, {0, 0, 24, 24}, ui::Color::black());
        }
    };
    canvas.draw(frame);
    canvas.draw([&](ui::Painter& painter) {
        const bench::AllocationCounter counter;
        frame(painter);
        EXPECT_EQ(bench::AllocationCounter::allocations(), 0);
    });
}

}  // namespace
}  // namespace vorpel::testing
