// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cairo.h>

namespace vorpel::ui {

/// The radius of the boxes that together blur like a bell curve of that deviation, in pixels.
[[nodiscard]] int boxRadius(double deviation);

/// How far blurring by boxes of that radius spreads, in pixels.
[[nodiscard]] constexpr int blurReach(int radius) {
    return 3 * radius;
}

/// Blurs an A8 image in place; what lies outside of it counts as empty.
void blurMask(cairo_surface_t* mask, int radius);

}  // namespace vorpel::ui
