// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/shadows.h"

#include "ui/cairo/blur.h"
#include "ui/cairo/trace_path.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorpel::ui {

namespace {

// Cairo's own grid within a pixel.
constexpr int FRACTIONS = 256;

// What stands before the elements in a key.
enum Head : std::size_t { BLUR, OFFSET_X, OFFSET_Y, HEAD_SIZE };

// A verb and the coordinates of its three points.
constexpr std::size_t ELEMENT_SIZE = 7;

// Shapes and shadows beyond any screen are not drawn: their masks would take much memory to no end.
constexpr double GREATEST_SIDE = 8192;

bool isBearable(const Path& path, const Shadow& shadow, double scale) {
    const Rect bounds = path.bounds();
    const double side = std::max(
        {bounds.width, bounds.height, std::abs(shadow.offset.x), std::abs(shadow.offset.y), shadow.blur});
    return side * scale < GREATEST_SIDE;
}

std::int32_t toFractions(double pixels) {
    return static_cast<std::int32_t>(std::lround(pixels * FRACTIONS));
}

double toPixels(std::int32_t fractions) {
    return static_cast<double>(fractions) / FRACTIONS;
}

Point transformed(const cairo_matrix_t& matrix, Point point) {
    cairo_matrix_transform_point(&matrix, &point.x, &point.y);
    return point;
}

Path pathOf(const std::vector<std::int32_t>& key) {
    Path path;
    for (std::size_t i = HEAD_SIZE; i + ELEMENT_SIZE <= key.size(); i += ELEMENT_SIZE) {
        const auto point = [&](std::size_t which) -> Point {
            return {toPixels(key[i + 1 + 2 * which]), toPixels(key[i + 2 + 2 * which])};
        };
        switch (static_cast<Path::Verb>(key[i])) {
            case Path::Verb::Move:
                path.moveTo(point(0));
                break;
            case Path::Verb::Line:
                path.lineTo(point(0));
                break;
            case Path::Verb::Curve:
                path.curveTo(point(0), point(1), point(2));
                break;
            case Path::Verb::Close:
                path.close();
                break;
        }
    }
    return path;
}

}  // namespace

std::size_t Shadows::KeyHash::operator()(const Key& key) const {
    std::size_t hash = key.size();
    for (const std::int32_t number : key) hash = (hash ^ static_cast<std::uint32_t>(number)) * 0x100000001b3U;
    return hash;
}

ShadowMask Shadows::mask(const Path& path, const Shadow& shadow, const cairo_matrix_t& toPixels,
                         double scale) {
    if (path.isEmpty() || !isBearable(path, shadow, scale)) return {};
    const Point origin = describe(path, shadow, toPixels, scale);
    const Entry* entry = masks_.find(wanted_);
    if (!entry) entry = &masks_.add(wanted_, render(wanted_));
    return {entry->surface.get(), origin.x + entry->left, origin.y + entry->top};
}

Point Shadows::describe(const Path& path, const Shadow& shadow, const cairo_matrix_t& toPixels,
                        double scale) {
    const Rect bounds = path.bounds();
    // The corner that the points count from; where it is turned to, does not matter.
    const Point corner = transformed(toPixels, bounds.origin());
    const Point origin{std::floor(corner.x + 1.0 / FRACTIONS), std::floor(corner.y + 1.0 / FRACTIONS)};
    Point offset = shadow.offset;
    cairo_matrix_transform_distance(&toPixels, &offset.x, &offset.y);
    wanted_.assign(
        {toFractions(std::max(shadow.blur, 0.0) * scale), toFractions(offset.x), toFractions(offset.y)});
    for (const auto& [verb, points] : path.elements()) {
        wanted_.push_back(static_cast<std::int32_t>(verb));
        for (const Point& point : points) {
            const Point pixel = transformed(toPixels, point) - origin;
            wanted_.push_back(toFractions(pixel.x));
            wanted_.push_back(toFractions(pixel.y));
        }
    }
    return origin;
}

Shadows::Entry Shadows::render(const Key& key) {
    const Path path = pathOf(key);
    const Rect bounds = path.bounds();
    // A blur spreads as far as it is wide: its deviation is half of that.
    const int radius = boxRadius(toPixels(key[BLUR]) / 2);
    const int reach = blurReach(radius) + 1;
    const Point offset{toPixels(key[OFFSET_X]), toPixels(key[OFFSET_Y])};
    const int left = static_cast<int>(std::floor(bounds.x + offset.x)) - reach;
    const int top = static_cast<int>(std::floor(bounds.y + offset.y)) - reach;
    const int width = static_cast<int>(std::ceil(bounds.right() + offset.x)) + reach - left;
    const int height = static_cast<int>(std::ceil(bounds.bottom() + offset.y)) + reach - top;
    SurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
    {
        const ContextHandle context(cairo_create(surface.get()));
        cairo_translate(context.get(), offset.x - left, offset.y - top);
        tracePath(context.get(), path);
        cairo_fill(context.get());
        blurMask(surface.get(), radius);
        cairo_identity_matrix(context.get());
        cairo_translate(context.get(), -left, -top);
        cairo_set_operator(context.get(), CAIRO_OPERATOR_DEST_OUT);
        tracePath(context.get(), path);
        cairo_fill(context.get());
    }
    return {std::move(surface), left, top};
}

}  // namespace vorpel::ui
