// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/cairo_painter.h"

#include "ui/cairo/trace_path.h"

#include <algorithm>
#include <cmath>

namespace vorpel::ui {

namespace {

// A point that is computed to lie on a pixel's edge does so up to rounding.
constexpr double EDGE_TOLERANCE = 1e-6;

Rect aroundPixels(const Rect& rect) {
    const double left = std::floor(rect.x + EDGE_TOLERANCE);
    const double top = std::floor(rect.y + EDGE_TOLERANCE);
    return {left, top, std::ceil(rect.right() - EDGE_TOLERANCE) - left,
            std::ceil(rect.bottom() - EDGE_TOLERANCE) - top};
}

/// Where a picture of whole pixels begins that is to fill a length: at the nearest pixel from which it does
/// not reach beyond those that the length touches, for nobody repaints more.
double firstPixel(double start, double length, int pixels) {
    return std::min(std::round(start), std::ceil(start + length - EDGE_TOLERANCE) - pixels);
}

double leftEdge(const Rect& rect, double width, TextAlignment alignment) {
    switch (alignment) {
        case TextAlignment::Left:
            return rect.x;
        case TextAlignment::Right:
            return rect.right() - width;
        case TextAlignment::Center:
            break;
    }
    return rect.x + (rect.width - width) / 2;
}

}  // namespace

CairoPainter::CairoPainter(cairo_t* context, DrawingResources& resources)
    : context_(context), resources_(resources) {
    cairo_save(context_);
    cairo_scale(context_, resources.scale(), resources.scale());
    cairo_set_line_cap(context_, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
}

CairoPainter::~CairoPainter() {
    cairo_restore(context_);
}

Rect CairoPainter::beginRepaint(const Rect& damage) {
    const double scale = resources_.scale();
    const Rect pixels =
        aroundPixels({damage.x * scale, damage.y * scale, damage.width * scale, damage.height * scale});
    repainted_ = repainted_.unionWith(pixels);
    const Rect points{pixels.x / scale, pixels.y / scale, pixels.width / scale, pixels.height / scale};
    clip(points);
    cairo_set_operator(context_, CAIRO_OPERATOR_CLEAR);
    cairo_paint(context_);
    cairo_set_operator(context_, CAIRO_OPERATOR_OVER);
    return points;
}

void CairoPainter::save() {
    cairo_save(context_);
}

void CairoPainter::restore() {
    cairo_restore(context_);
}

void CairoPainter::translate(Point by) {
    cairo_translate(context_, by.x, by.y);
}

void CairoPainter::rotate(double angle) {
    cairo_rotate(context_, angle);
}

void CairoPainter::clip(const Rect& rect) {
    cairo_new_path(context_);
    cairo_rectangle(context_, rect.x, rect.y, rect.width, rect.height);
    cairo_clip(context_);
}

void CairoPainter::clip(const Path& path) {
    tracePath(context_, path);
    cairo_clip(context_);
}

void CairoPainter::beginLayer() {
    cairo_push_group(context_);
}

void CairoPainter::endLayer(double alpha) {
    cairo_pop_group_to_source(context_);
    cairo_paint_with_alpha(context_, alpha);
}

void CairoPainter::fill(const Rect& rect, const Color& color) {
    setColor(color);
    cairo_new_path(context_);
    cairo_rectangle(context_, rect.x, rect.y, rect.width, rect.height);
    cairo_fill(context_);
}

void CairoPainter::fill(const Path& path, const Color& color) {
    setColor(color);
    tracePath(context_, path);
    cairo_fill(context_);
}

void CairoPainter::stroke(const Path& path, const Color& color, double width) {
    setColor(color);
    cairo_set_line_width(context_, width);
    tracePath(context_, path);
    cairo_stroke(context_);
}

void CairoPainter::drawShadow(const Path& path, const Shadow& shadow) {
    if (shadow.color.isClear()) return;
    cairo_matrix_t toPixels;
    cairo_get_matrix(context_, &toPixels);
    const ShadowMask mask = resources_.shadows().mask(path, shadow, toPixels, resources_.scale());
    if (!mask.surface) return;
    cairo_identity_matrix(context_);
    setColor(shadow.color);
    cairo_mask_surface(context_, mask.surface, mask.x, mask.y);
    cairo_set_matrix(context_, &toPixels);
}

void CairoPainter::drawImage(const std::string& path, const Rect& rect, const Color& tint) {
    const double scale = resources_.scale();
    const int width = static_cast<int>(std::lround(std::clamp(rect.width * scale, 0.0, 8192.0)));
    const int height = static_cast<int>(std::lround(std::clamp(rect.height * scale, 0.0, 8192.0)));
    cairo_surface_t* const image = resources_.images().image(path, width, height);
    if (image) paintPixels(image, rect, tint);
}

/// A picture of about as many pixels as the rectangle has.
void CairoPainter::paintPixels(cairo_surface_t* image, const Rect& rect, const Color& tint) {
    const double scale = resources_.scale();
    const int width = cairo_image_surface_get_width(image);
    const int height = cairo_image_surface_get_height(image);
    cairo_save(context_);
    cairo_translate(context_, rect.x, rect.y);
    cairo_scale(context_, 1 / scale, 1 / scale);
    cairo_matrix_t matrix;
    cairo_get_matrix(context_, &matrix);
    // Unless it is turned, each of its pixels is to fall on one of the screen's.
    if (matrix.xx > 0 && std::abs(matrix.yx) < EDGE_TOLERANCE) {
        cairo_identity_matrix(context_);
        cairo_translate(context_, firstPixel(matrix.x0, rect.width * scale, width),
                        firstPixel(matrix.y0, rect.height * scale, height));
    }
    if (tint.isClear()) {
        cairo_set_source_surface(context_, image, 0, 0);
        cairo_paint(context_);
    } else {
        setColor(tint);
        cairo_mask_surface(context_, image, 0, 0);
    }
    cairo_restore(context_);
}

void CairoPainter::drawText(const std::string& text, const Rect& rect, const TextStyle& style) {
    if (text.empty() || rect.isEmpty() || style.color.isClear()) return;
    if (style.font.face == FontFace::Emoji && drawEmoji(text, rect, style)) return;
    TextLayouts& texts = resources_.texts();
    const TextLine& line = texts.fittedLine(text, style.font, rect.width, style.minimumScale);
    const double baseline = rect.center().y + texts.baselineBelowMiddle(line, style.font);
    setColor(style.color);
    cairo_move_to(context_, leftEdge(rect, line.width, style.alignment), baseline);
    pango_cairo_show_layout_line(context_, pango_layout_get_line_readonly(line.layout.get(), 0));
}

bool CairoPainter::drawEmoji(const std::string& text, const Rect& rect, const TextStyle& style) {
    const double scale = resources_.scale();
    cairo_surface_t* const picture = resources_.emoji().picture(text, style.font.size * scale);
    if (!picture) return false;
    const double width = cairo_image_surface_get_width(picture) / scale;
    const double height = cairo_image_surface_get_height(picture) / scale;
    if (width > rect.width) return false;
    const Rect place{leftEdge(rect, width, style.alignment), rect.center().y - height / 2, width, height};
    paintPixels(picture, place, Color::clear());
    return true;
}

Size CairoPainter::measureText(const std::string& text, const Font& font) {
    const TextLine& line = resources_.texts().line(text, font);
    return {line.width, line.height};
}

void CairoPainter::drawParagraph(const std::string& text, const Rect& rect, const TextStyle& style) {
    if (text.empty() || rect.isEmpty() || style.color.isClear()) return;
    const TextParagraph& paragraph = resources_.texts().paragraph(text, style.font, rect.width, rect.height);
    setColor(style.color);
    PangoLayoutIter* const lines = pango_layout_get_iter(paragraph.layout.get());
    do {
        PangoLayoutLine* const line = pango_layout_iter_get_line_readonly(lines);
        PangoRectangle logical{};
        pango_layout_line_get_extents(line, nullptr, &logical);
        const double width = pango_units_to_double(logical.width);
        const double baseline = pango_units_to_double(pango_layout_iter_get_baseline(lines));
        cairo_move_to(context_, leftEdge(rect, width, style.alignment), rect.y + baseline);
        pango_cairo_show_layout_line(context_, line);
    } while (pango_layout_iter_next_line(lines));
    pango_layout_iter_free(lines);
}

Size CairoPainter::measureParagraph(const std::string& text, double width, const Font& font) {
    if (text.empty()) return {};
    const TextParagraph& paragraph = resources_.texts().paragraph(text, font, width);
    return {paragraph.width, paragraph.height};
}

void CairoPainter::setColor(const Color& color) {
    cairo_set_source_rgba(context_, color.red, color.green, color.blue, color.alpha);
}

}  // namespace vorpel::ui
