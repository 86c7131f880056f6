// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/emoji_pictures.h"
#include "ui/cairo/images.h"
#include "ui/cairo/shadows.h"
#include "ui/cairo/text_layouts.h"

#include <functional>
#include <string>
#include <utility>

namespace vorpel::ui {

/// What painters keep from one frame to the next: shaped text, pictures, shadows. The host makes one for each
/// scale it paints at and keeps it while it paints. One thread.
class DrawingResources {
public:
    /// @param scale pixels a point
    /// @param report is told of each picture that cannot be read, once, with its path and the reason
    explicit DrawingResources(double scale, std::function<void(const std::string&)> report = {})
        : scale_(scale), texts_(scale), images_(std::move(report)) {}

    [[nodiscard]] double scale() const { return scale_; }
    [[nodiscard]] TextLayouts& texts() { return texts_; }
    [[nodiscard]] EmojiPictures& emoji() { return emoji_; }
    [[nodiscard]] Images& images() { return images_; }
    [[nodiscard]] Shadows& shadows() { return shadows_; }

private:
    double scale_;
    TextLayouts texts_;
    EmojiPictures emoji_;
    Images images_;
    Shadows shadows_;
};

}  // namespace vorpel::ui
