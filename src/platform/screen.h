// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::platform {

/// The screen that the keyboard is shown on. Main thread only. The sizes are what a host says of its output
/// or window; they may change while the keyboard stands.
class Screen {
public:
    virtual ~Screen() = default;

    /// In points, as the device is held: it turns with it.
    [[nodiscard]] virtual double boundsWidth() const = 0;
    [[nodiscard]] virtual double boundsHeight() const = 0;

    /// Pixels a point, at least 1.
    [[nodiscard]] virtual double scale() const = 0;

    /// In pixels, as the device is held upright: it does not turn.
    [[nodiscard]] virtual double nativeBoundsWidth() const = 0;
    [[nodiscard]] virtual double nativeScale() const = 0;
};

/// A screen as its host describes it.
class PlainScreen final : public Screen {
public:
    /// Upright, in points.
    PlainScreen(double width, double height, double scale) : width_(width), height_(height), scale_(scale) {}

    void setTurned(bool turned) { turned_ = turned; }
    void setSize(double width, double height) {
        width_ = width;
        height_ = height;
    }

    [[nodiscard]] double boundsWidth() const override { return turned_ ? height_ : width_; }
    [[nodiscard]] double boundsHeight() const override { return turned_ ? width_ : height_; }
    [[nodiscard]] double scale() const override { return scale_; }
    [[nodiscard]] double nativeBoundsWidth() const override { return width_ * scale_; }
    [[nodiscard]] double nativeScale() const override { return scale_; }

private:
    double width_;
    double height_;
    double scale_;
    bool turned_ = false;
};

}  // namespace vorpel::platform
