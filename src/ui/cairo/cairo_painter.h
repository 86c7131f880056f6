// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/drawing_resources.h"
#include "ui/painter.h"

#include <cairo.h>

#include <string>

namespace vorpel::ui {

/// Draws on a Cairo context whose units are pixels, at the scale of its resources. Both must outlive it; the
/// context is left as it was. Made for one frame: it is cheap. One thread.
class CairoPainter final : public Painter {
public:
    CairoPainter(cairo_t* context, DrawingResources& resources);
    ~CairoPainter() override;
    CairoPainter(const CairoPainter&) = delete;
    CairoPainter& operator=(const CairoPainter&) = delete;

    /// In pixels, the smallest rectangle around all that was repainted.
    [[nodiscard]] const Rect& repainted() const { return repainted_; }

    Rect beginRepaint(const Rect& damage) override;
    void save() override;
    void restore() override;
    void translate(Point by) override;
    void rotate(double angle) override;
    void clip(const Rect& rect) override;
    void clip(const Path& path) override;
    void beginLayer() override;
    void endLayer(double alpha) override;
    void fill(const Rect& rect, const Color& color) override;
    void fill(const Path& path, const Color& color) override;
    void stroke(const Path& path, const Color& color, double width) override;
    void drawShadow(const Path& path, const Shadow& shadow) override;
    void drawImage(const std::string& path, const Rect& rect, const Color& tint) override;
    void drawText(const std::string& text, const Rect& rect, const TextStyle& style) override;
    [[nodiscard]] Size measureText(const std::string& text, const Font& font) override;
    void drawParagraph(const std::string& text, const Rect& rect, const TextStyle& style) override;
    [[nodiscard]] Size measureParagraph(const std::string& text, double width, const Font& font) override;

private:
    void setColor(const Color& color);
    void paintPixels(cairo_surface_t* image, const Rect& rect, const Color& tint);

    /// @return false where text must be drawn: there is no one picture of it, or no room for its size
    bool drawEmoji(const std::string& text, const Rect& rect, const TextStyle& style);

    cairo_t* context_;
    DrawingResources& resources_;
    Rect repainted_;
};

}  // namespace vorpel::ui
