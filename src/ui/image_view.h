// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/view.h"

#include <string>

namespace vorpel::ui {

/// A picture, fitted into the bounds with its shape kept. Touches fall through to what lies under it.
class ImageView : public View {
public:
    ImageView() : ImageView(Rect{}) {}
    explicit ImageView(const Rect& frame);

    /// The path of an SVG or PNG file; an empty one shows nothing.
    [[nodiscard]] const std::string& image() const { return image_; }
    void setImage(std::string path);

    /// The one colour of the whole picture; a clear one, as at first, leaves the picture its own.
    [[nodiscard]] const Color& tintColor() const { return tintColor_; }
    void setTintColor(const Color& color);

    void draw(Painter& painter) override;

private:
    std::string image_;
    Color tintColor_;
};

}  // namespace vorpel::ui
