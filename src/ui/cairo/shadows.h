// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/handles.h"
#include "ui/cairo/recent_cache.h"
#include "ui/painter.h"
#include "ui/path.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vorpel::ui {

/// Where a shadow is dark, and how much: an A8 image and the pixel its corner lies on.
struct ShadowMask {
    cairo_surface_t* surface = nullptr;
    double x = 0;
    double y = 0;
};

/// Blurs the shadows of paths, and remembers them by their shape: equal keys share one. One thread.
class Shadows {
public:
    Shadows() : masks_(MASKS_A_GENERATION) {}

    /// The shadow's mask in pixels, without what the path itself covers; `toPixels` maps the path's points.
    /// Without a surface when there is nothing to draw. Valid until the next call.
    [[nodiscard]] ShadowMask mask(const Path& path, const Shadow& shadow, const cairo_matrix_t& toPixels,
                                  double scale);

private:
    static constexpr std::size_t MASKS_A_GENERATION = 128;

    /// All that makes up the mask's look, in fractions of a pixel from its whole origin: blur, offset, and
    /// the elements with their points.
    using Key = std::vector<std::int32_t>;
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };
    struct Entry {
        SurfaceHandle surface;
        int left = 0;  ///< of the mask's corner, from the shape's origin
        int top = 0;
    };

    /// Fills `wanted_`, and says which pixel its points count from.
    Point describe(const Path& path, const Shadow& shadow, const cairo_matrix_t& toPixels, double scale);
    [[nodiscard]] static Entry render(const Key& key);

    RecentCache<Key, Entry, KeyHash> masks_;
    Key wanted_;  // kept so that looking a shadow up allocates nothing
};

}  // namespace vorpel::ui
