// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/painter.h"
#include "ui/path.h"

#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vorpel::ui {

/// One pixel, premultiplied.
struct Pixel {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;

    [[nodiscard]] Pixel times(double share) const {
        return {red * share, green * share, blue * share, alpha * share};
    }
    void putOver(const Pixel& top) {
        const double left = 1 - top.alpha;
        *this = {red * left + top.red, green * left + top.green, blue * left + top.blue,
                 alpha * left + top.alpha};
    }
    [[nodiscard]] double distanceTo(const Pixel& o) const {
        return std::abs(red - o.red) + std::abs(green - o.green) + std::abs(blue - o.blue) +
               std::abs(alpha - o.alpha);
    }
};

/// A picture of as many pixels as points. All shapes are the rectangles around them, but their edges, and
/// those of clips, cover pixels in part, as a real painter's do. Keeps what it holds from frame to frame.
class PixelPainter : public Painter {
public:
    PixelPainter(int width, int height) : width_(width), height_(height), clips_{whole()} {
        layers_.emplace_back(pixelCount());
    }

    [[nodiscard]] const Pixel& at(int x, int y) const { return layers_.front()[indexOf(x, y)]; }

    Rect beginRepaint(const Rect& damage) override {
        const double left = std::floor(damage.x);
        const double top = std::floor(damage.y);
        const Rect rect{left, top, std::ceil(damage.right()) - left, std::ceil(damage.bottom()) - top};
        clip(rect);
        forEachPixel(rect, [&](int x, int y) {
            if (clips_.back()[indexOf(x, y)] > 0) layers_.back()[indexOf(x, y)] = {};
        });
        return rect;
    }

    void save() override { states_.emplace_back(origin_, clips_.size()); }
    void restore() override {
        origin_ = states_.back().first;
        clips_.resize(states_.back().second);
        states_.pop_back();
    }
    void translate(Point by) override { origin_ = origin_ + by; }
    void rotate(double) override {}
    void clip(const Rect& rect) override {
        std::vector<double> clipped(pixelCount());
        forEachPixel(rect, [&](int x, int y) {
            clipped[indexOf(x, y)] = clips_.back()[indexOf(x, y)] * coverage(rect, x, y);
        });
        clips_.push_back(std::move(clipped));
    }
    void clip(const Path& path) override { clip(path.bounds()); }
    void beginLayer() override { layers_.emplace_back(pixelCount()); }
    void endLayer(double alpha) override {
        const std::vector<Pixel> top = std::move(layers_.back());
        layers_.pop_back();
        for (std::size_t i = 0; i < top.size(); ++i) layers_.back()[i].putOver(top[i].times(alpha));
    }

    void fill(const Rect& rect, const Color& color) override {
        const Pixel full = Pixel{color.red, color.green, color.blue, 1}.times(color.alpha);
        forEachPixel(rect, [&](int x, int y) {
            const double share = coverage(rect, x, y) * clips_.back()[indexOf(x, y)];
            if (share > 0) layers_.back()[indexOf(x, y)].putOver(full.times(share));
        });
    }
    void fill(const Path& path, const Color& color) override { fill(path.bounds(), color); }
    void stroke(const Path& path, const Color& color, double width) override {
        fill(path.bounds().insetBy(-width / 2, -width / 2), color);
    }
    void drawShadow(const Path& path, const Shadow& shadow) override {
        fill(path.bounds().offsetBy(shadow.offset).insetBy(-shadow.blur, -shadow.blur), shadow.color);
    }
    void drawImage(const std::string& path, const Rect& rect, const Color& tint) override {
        fill(rect, colorOf(path, tint));
    }
    /// Reaches out of its rectangle, as the glyphs of some fonts do.
    void drawText(const std::string& text, const Rect& rect, const TextStyle& style) override {
        fill(rect.insetBy(-3, -6), colorOf(text, style.color));
    }
    void drawParagraph(const std::string& text, const Rect& rect, const TextStyle& style) override {
        drawText(text, rect, style);
    }
    [[nodiscard]] Size measureText(const std::string&, const Font&) override { return {}; }
    [[nodiscard]] Size measureParagraph(const std::string&, double, const Font&) override { return {}; }

private:
    static Color colorOf(const std::string& text, const Color& color) {
        const double hue = static_cast<double>(std::hash<std::string>()(text) % 997) / 997;
        return {hue, color.green, 1 - hue, 0.5};
    }
    [[nodiscard]] std::size_t pixelCount() const { return static_cast<std::size_t>(width_ * height_); }
    [[nodiscard]] std::size_t indexOf(int x, int y) const { return static_cast<std::size_t>(y * width_ + x); }
    [[nodiscard]] std::vector<double> whole() const { return std::vector<double>(pixelCount(), 1.0); }
    [[nodiscard]] double coverage(const Rect& rect, int x, int y) const {
        const Rect shared = rect.offsetBy(origin_).intersection({double(x), double(y), 1, 1});
        return shared.width * shared.height;
    }
    /// Those that the rectangle touches.
    template <typename Visit>
    void forEachPixel(const Rect& rect, Visit visit) const {
        const Rect shown = rect.offsetBy(origin_).intersection({0, 0, double(width_), double(height_)});
        if (shown.isEmpty()) return;
        for (int y = int(shown.y); y < shown.bottom(); ++y) {
            for (int x = int(shown.x); x < shown.right(); ++x) visit(x, y);
        }
    }

    int width_;
    int height_;
    Point origin_;
    std::vector<std::vector<double>> clips_;
    std::vector<std::vector<Pixel>> layers_;
    std::vector<std::pair<Point, std::size_t>> states_;
};

}  // namespace vorpel::ui
