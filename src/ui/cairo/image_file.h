// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/handles.h"

#include <string>

namespace vorpel::ui {

/// A picture, or why there is none.
struct ImageFile {
    SurfaceHandle surface;
    std::string reason;
};

/// The picture in the file, SVG or PNG by its content, fitted into so many pixels.
[[nodiscard]] ImageFile readImageFile(const std::string& path, int width, int height);

/// The PNG file's picture as it is, in its own size.
[[nodiscard]] ImageFile readPngFile(const std::string& path);

}  // namespace vorpel::ui
