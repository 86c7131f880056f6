// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/images.h"

#include "ui/cairo/image_file.h"

#include <functional>

namespace vorpel::ui {

std::size_t Images::KeyHash::operator()(const Key& key) const {
    const std::size_t hash = std::hash<std::string>()(key.path);
    return (hash * 31 + static_cast<std::size_t>(key.width)) * 31 + static_cast<std::size_t>(key.height);
}

cairo_surface_t* Images::image(const std::string& path, int width, int height) {
    if (width <= 0 || height <= 0 || unreadable_.contains(path)) return nullptr;
    wanted_.path = path;
    wanted_.width = width;
    wanted_.height = height;
    if (const SurfaceHandle* const known = images_.find(wanted_)) return known->get();
    ImageFile file = readImageFile(path, width, height);
    if (!file.surface) {
        tell(path, file.reason);
        return nullptr;
    }
    return images_.add(wanted_, std::move(file.surface)).get();
}

void Images::tell(const std::string& path, const std::string& reason) {
    unreadable_.insert(path);
    if (report_) report_(path + ": " + reason);
}

}  // namespace vorpel::ui
