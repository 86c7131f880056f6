// SPDX-License-Identifier: Apache-2.0
#include "ui/path.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace vorpel::ui {

namespace {

std::size_t pointCount(Path::Verb verb) {
    switch (verb) {
        case Path::Verb::Move:
        case Path::Verb::Line:
            return 1;
        case Path::Verb::Curve:
            return 3;
        case Path::Verb::Close:
            break;
    }
    return 0;
}

}  // namespace

Path Path::rect(const Rect& rect) {
    Path path;
    path.moveTo({rect.x, rect.y});
    path.lineTo({rect.right(), rect.y});
    path.lineTo({rect.right(), rect.bottom()});
    path.lineTo({rect.x, rect.bottom()});
    path.close();
    return path;
}

Path Path::roundedRect(const Rect& rect, double radius) {
    constexpr double QUARTER = std::numbers::pi / 2;
    const double r = std::max(0.0, std::min({radius, rect.width / 2, rect.height / 2}));
    Path path;
    path.moveTo({rect.x + r, rect.y});
    path.lineTo({rect.right() - r, rect.y});
    path.arc({rect.right() - r, rect.y + r}, r, -QUARTER, 0);
    path.lineTo({rect.right(), rect.bottom() - r});
    path.arc({rect.right() - r, rect.bottom() - r}, r, 0, QUARTER);
    path.lineTo({rect.x + r, rect.bottom()});
    path.arc({rect.x + r, rect.bottom() - r}, r, QUARTER, 2 * QUARTER);
    path.lineTo({rect.x, rect.y + r});
    path.arc({rect.x + r, rect.y + r}, r, 2 * QUARTER, 3 * QUARTER);
    path.close();
    return path;
}

Path Path::ellipse(const Rect& rect) {
    const double half = rect.width / 2;
    Path path;
    path.moveTo({half, 0});
    path.arc({0, 0}, half, 0, 2 * std::numbers::pi);
    path.close();
    path.transform(1, half > 0 ? rect.height / rect.width : 0, rect.center());
    return path;
}

void Path::arc(Point center, double radius, double startAngle, double endAngle) {
    // A curve follows a quarter circle to within a thousandth of its radius.
    const int pieces = std::max(
        1, static_cast<int>(std::ceil(std::abs(endAngle - startAngle) * 2 / std::numbers::pi - 1e-9)));
    const double step = (endAngle - startAngle) / pieces;
    const double handle = 4.0 / 3.0 * std::tan(step / 4) * radius;
    for (int i = 0; i < pieces; ++i) {
        const double from = startAngle + i * step;
        const double to = from + step;
        const Point start{center.x + radius * std::cos(from), center.y + radius * std::sin(from)};
        const Point end{center.x + radius * std::cos(to), center.y + radius * std::sin(to)};
        curveTo({start.x - handle * std::sin(from), start.y + handle * std::cos(from)},
                {end.x + handle * std::sin(to), end.y - handle * std::cos(to)}, end);
    }
}

void Path::append(const Path& other) {
    elements_.insert(elements_.end(), other.elements_.begin(), other.elements_.end());
}

void Path::transform(double scaleX, double scaleY, Point by) {
    for (Element& element : elements_) {
        for (Point& point : element.points) point = {point.x * scaleX + by.x, point.y * scaleY + by.y};
    }
}

Rect Path::bounds() const {
    bool any = false;
    Point low;
    Point high;
    for (const Element& element : elements_) {
        for (std::size_t i = 0; i < pointCount(element.verb); ++i) {
            const Point point = element.points[i];
            low = any ? Point{std::min(low.x, point.x), std::min(low.y, point.y)} : point;
            high = any ? Point{std::max(high.x, point.x), std::max(high.y, point.y)} : point;
            any = true;
        }
    }
    return {low.x, low.y, high.x - low.x, high.y - low.y};
}

}  // namespace vorpel::ui
