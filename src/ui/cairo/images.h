// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/handles.h"
#include "ui/cairo/recent_cache.h"

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <utility>

namespace vorpel::ui {

/// Picture files (SVG or PNG, told apart by their content) made ready in pixels, and remembered. One thread.
class Images {
public:
    explicit Images(std::function<void(const std::string&)> report)
        : report_(std::move(report)), images_(IMAGES_A_GENERATION) {}

    /// The picture fitted into so many pixels, its shape kept and its middle in their middle. Null when the
    /// file cannot be read, of which the report is told once a path. Valid until the next call.
    [[nodiscard]] cairo_surface_t* image(const std::string& path, int width, int height);

private:
    static constexpr std::size_t IMAGES_A_GENERATION = 64;

    struct Key {
        std::string path;
        int width = 0;
        int height = 0;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };

    void tell(const std::string& path, const std::string& reason);

    std::function<void(const std::string&)> report_;
    RecentCache<Key, SurfaceHandle, KeyHash> images_;
    std::set<std::string> unreadable_;
    Key wanted_;  // kept so that looking a picture up allocates nothing
};

}  // namespace vorpel::ui
