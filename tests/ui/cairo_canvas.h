// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/bitmap.h"
#include "ui/cairo/cairo_painter.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::testing {

/// A clear picture to draw on, measured in points, and questions about what then lies on it, in pixels.
class CairoCanvas {
public:
    explicit CairoCanvas(double scale = 1, ui::Size points = {200, 100})
        : resources(scale, [told = reports_](const std::string& message) { told->push_back(message); }),
          bitmap(ui::Bitmap::covering(points, scale)) {}

    template <typename Drawing>
    CairoCanvas& draw(const Drawing& drawing) {
        const ui::ContextHandle context(cairo_create(bitmap.surface()));
        {
            ui::CairoPainter painter(context.get(), resources);
            drawing(static_cast<ui::Painter&>(painter));
        }
        cairo_surface_flush(bitmap.surface());
        return *this;
    }

    CairoCanvas& text(const std::string& text, const ui::Rect& rect, const ui::TextStyle& style = {}) {
        return draw([&](ui::Painter& painter) { painter.drawText(text, rect, style); });
    }

    [[nodiscard]] unsigned alphaAt(int x, int y) const { return bitmap.pixel(x, y) >> 24U; }

    /// The smallest rectangle around all pixels that are not clear.
    [[nodiscard]] ui::Rect inkBounds() const {
        ui::Rect bounds;
        forEachPixel([&](int x, int y, std::uint32_t pixel) {
            if (pixel >> 24U > 0) bounds = bounds.unionWith({double(x), double(y), 1, 1});
        });
        return bounds;
    }

    /// The area that is covered, in pixels.
    [[nodiscard]] double ink() const {
        double sum = 0;
        forEachPixel([&](int, int, std::uint32_t pixel) { sum += (pixel >> 24U) / 255.0; });
        return sum;
    }

    /// How many pixels are of a colour, rather than black, grey or white.
    [[nodiscard]] int colouredPixels() const {
        int count = 0;
        forEachPixel([&](int, int, std::uint32_t pixel) {
            const auto [low, high] = std::minmax({pixel & 255U, pixel >> 8U & 255U, pixel >> 16U & 255U});
            if (high - low > 40) ++count;
        });
        return count;
    }

    /// Of pictures that could not be read.
    [[nodiscard]] const std::vector<std::string>& reports() const { return *reports_; }

private:
    template <typename Visit>
    void forEachPixel(const Visit& visit) const {
        for (int y = 0; y < bitmap.height(); ++y) {
            for (int x = 0; x < bitmap.width(); ++x) visit(x, y, bitmap.pixel(x, y));
        }
    }

    // Apart, because the resources keep hold of it when the canvas is moved.
    std::shared_ptr<std::vector<std::string>> reports_ = std::make_shared<std::vector<std::string>>();

public:
    ui::DrawingResources resources;
    ui::Bitmap bitmap;
};

/// The pixels row by row, without what pads the rows.
inline std::vector<std::uint32_t> pixelsOf(const ui::Bitmap& bitmap) {
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < bitmap.height(); ++y) {
        pixels.insert(pixels.end(), bitmap.row(y), bitmap.row(y) + bitmap.width());
    }
    return pixels;
}

}  // namespace vorpel::testing
