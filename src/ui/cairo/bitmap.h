// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/handles.h"
#include "ui/color.h"
#include "ui/geometry.h"

#include <cstdint>
#include <string>

namespace vorpel::ui {

/// An owned picture in pixels: 32 bits each, alpha in the highest byte, colours premultiplied, in the
/// machine's byte order.
class Bitmap {
public:
    /// Clear all over. Sides are cut to 1 to 16384.
    /// @throw std::bad_alloc when there is no memory for it
    Bitmap(int width, int height);

    /// As many pixels as that size takes at that scale; one that is begun counts.
    [[nodiscard]] static Bitmap covering(const Size& points, double scale);

    /// Writes the picture as PNG, as a whole or not at all.
    /// @throw std::runtime_error with the path and the reason when it cannot be written
    void savePng(const std::string& path) const;

    [[nodiscard]] int width() const { return cairo_image_surface_get_width(surface_.get()); }
    [[nodiscard]] int height() const { return cairo_image_surface_get_height(surface_.get()); }

    /// From one row to the next, in bytes.
    [[nodiscard]] int stride() const { return cairo_image_surface_get_stride(surface_.get()); }
    [[nodiscard]] const std::uint32_t* row(int y) const;
    [[nodiscard]] std::uint32_t pixel(int x, int y) const { return row(y)[x]; }

    /// To draw on it.
    [[nodiscard]] cairo_surface_t* surface() { return surface_.get(); }

private:
    explicit Bitmap(SurfaceHandle surface) : surface_(std::move(surface)) {}

    SurfaceHandle surface_;
};

}  // namespace vorpel::ui
