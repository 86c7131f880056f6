// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/screen.h"
#include "ui/geometry.h"

#include <algorithm>

namespace vorpel::playground {

/// The window as the screen of a device: wider than high, it is held sideways.
class WindowScreen final : public platform::Screen {
public:
    void set(ui::Size size, double scale) {
        size_ = size;
        scale_ = scale;
    }

    [[nodiscard]] bool isSideways() const { return size_.width > size_.height; }

    [[nodiscard]] double boundsWidth() const override { return size_.width; }
    [[nodiscard]] double boundsHeight() const override { return size_.height; }
    [[nodiscard]] double scale() const override { return scale_; }
    [[nodiscard]] double nativeBoundsWidth() const override {
        return std::min(size_.width, size_.height) * scale_;
    }
    [[nodiscard]] double nativeScale() const override { return scale_; }

private:
    ui::Size size_;
    double scale_ = 1;
};

}  // namespace vorpel::playground
