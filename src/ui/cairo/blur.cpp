// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/blur.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace vorpel::ui {

namespace {

// Three boxes, one after the other, can hardly be told from a bell curve.
constexpr int PASSES = 3;

/// Every `stride`-th byte from `first` on, `count` of them, each becoming the mean of those around it.
void blurLine(unsigned char* first, int count, std::ptrdiff_t stride, int radius,
              std::vector<unsigned char>& line) {
    for (int i = 0; i < count; ++i) line[static_cast<std::size_t>(i)] = first[i * stride];
    const auto at = [&](int i) -> unsigned {
        return i >= 0 && i < count ? line[static_cast<std::size_t>(i)] : 0U;
    };
    const auto width = static_cast<unsigned>(2 * radius + 1);
    unsigned sum = 0;
    for (int i = 0; i < std::min(radius, count); ++i) sum += at(i);
    for (int i = 0; i < count; ++i) {
        sum += at(i + radius);
        first[i * stride] = static_cast<unsigned char>((sum + width / 2) / width);
        sum -= at(i - radius);
    }
}

}  // namespace

int boxRadius(double deviation) {
    // The variances of the passes add up; that of a box is (width * width - 1) / 12.
    const double width = std::sqrt(12 * deviation * deviation / PASSES + 1);
    return static_cast<int>(std::lround((width - 1) / 2));
}

void blurMask(cairo_surface_t* mask, int radius) {
    if (radius <= 0) return;
    cairo_surface_flush(mask);
    unsigned char* const bytes = cairo_image_surface_get_data(mask);
    if (!bytes) return;
    const int width = cairo_image_surface_get_width(mask);
    const int height = cairo_image_surface_get_height(mask);
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(mask);
    std::vector<unsigned char> line(static_cast<std::size_t>(std::max(width, height)));
    for (int pass = 0; pass < PASSES; ++pass) {
        for (int y = 0; y < height; ++y) blurLine(bytes + y * stride, width, 1, radius, line);
        for (int x = 0; x < width; ++x) blurLine(bytes + x, height, stride, radius, line);
    }
    cairo_surface_mark_dirty(mask);
}

}  // namespace vorpel::ui
