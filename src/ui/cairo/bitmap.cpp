// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/bitmap.h"

#include "storage/atomic_file.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <stdexcept>
#include <vector>

namespace vorpel::ui {

namespace {

constexpr int GREATEST_SIDE = 16384;

int sideInPixels(double points, double scale) {
    // A size that is a whole number of pixels but for rounding begins no further one.
    constexpr double TOLERANCE = 1e-6;
    return static_cast<int>(std::ceil(std::clamp(points * scale - TOLERANCE, 1.0, double{GREATEST_SIDE})));
}

cairo_status_t appendBytes(void* closure, const unsigned char* data, unsigned int length) {
    auto& bytes = *static_cast<std::vector<std::uint8_t>*>(closure);
    try {
        bytes.insert(bytes.end(), data, data + length);
    } catch (const std::bad_alloc&) {
        return CAIRO_STATUS_NO_MEMORY;
    }
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

Bitmap::Bitmap(int width, int height)
    : surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::clamp(width, 1, GREATEST_SIDE),
                                          std::clamp(height, 1, GREATEST_SIDE))) {
    if (cairo_surface_status(surface_.get()) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
}

Bitmap Bitmap::covering(const Size& points, double scale) {
    return {sideInPixels(points.width, scale), sideInPixels(points.height, scale)};
}

void Bitmap::savePng(const std::string& path) const {
    std::vector<std::uint8_t> bytes;
    const cairo_status_t status = cairo_surface_write_to_png_stream(surface_.get(), appendBytes, &bytes);
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(path + ": " + cairo_status_to_string(status));
    const int error = wordengine::writeFileAtomically(path, bytes);
    if (error != 0) throw std::runtime_error(path + ": " + std::strerror(error));
}

const std::uint32_t* Bitmap::row(int y) const {
    const unsigned char* const bytes = cairo_image_surface_get_data(surface_.get());
    return reinterpret_cast<const std::uint32_t*>(bytes + static_cast<std::ptrdiff_t>(y) * stride());
}

}  // namespace vorpel::ui
