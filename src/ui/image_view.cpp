// SPDX-License-Identifier: Apache-2.0
#include "ui/image_view.h"

#include "ui/painter.h"

#include <utility>

namespace vorpel::ui {

ImageView::ImageView(const Rect& frame) : View(frame) {
    setUserInteractionEnabled(false);
}

void ImageView::setImage(std::string path) {
    if (path == image_) return;
    image_ = std::move(path);
    setNeedsDisplay();
}

void ImageView::setTintColor(const Color& color) {
    if (color == tintColor_) return;
    tintColor_ = color;
    setNeedsDisplay();
}

void ImageView::draw(Painter& painter) {
    View::draw(painter);
    if (!image_.empty() && !bounds().isEmpty()) painter.drawImage(image_, bounds(), tintColor_);
}

}  // namespace vorpel::ui
