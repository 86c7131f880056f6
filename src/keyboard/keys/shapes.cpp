// SPDX-License-Identifier: Apache-2.0
#include "keyboard/keys/shapes.h"

#include "ui/painter.h"
#include "ui/path.h"

#include <algorithm>
#include <initializer_list>

namespace vorpel {

namespace {

using ui::Path;
using ui::Point;
using ui::Rect;

constexpr double STROKE = 1.5;

// Signs are drawn on a sheet of this size and then put in place.
constexpr double SHEET = 24;

struct Placement {
    double scale;
    Point origin;

    explicit Placement(const Rect& rect)
        : scale(std::min(rect.width, rect.height) / SHEET),
          origin{rect.center().x - SHEET * scale / 2, rect.center().y - SHEET * scale / 2} {}

    [[nodiscard]] Path place(Path path) const {
        path.transform(scale, scale, origin);
        return path;
    }
};

Path polygon(std::initializer_list<Point> points, bool closed) {
    Path path;
    for (const Point point : points) path.isEmpty() ? path.moveTo(point) : path.lineTo(point);
    if (closed) path.close();
    return path;
}

Path line(Point from, Point to) {
    return polygon({from, to}, false);
}

}  // namespace

void ShiftShape::draw(ui::Painter& painter, const Rect& rect, const ui::Color& color) const {
    const Placement placement(rect);
    const double foot = withLock_ ? 17.2 : 19.5;
    const Path arrow = placement.place(polygon(
        {{12, 3}, {21, 12.2}, {16.2, 12.2}, {16.2, foot}, {7.8, foot}, {7.8, 12.2}, {3, 12.2}}, true));
    if (filled_ || withLock_) painter.fill(arrow, color);
    painter.stroke(arrow, color, STROKE);
    if (!withLock_) return;
    const Path bar = placement.place(Path::rect({7.8, 20.2, 8.4, 1.6}));
    painter.fill(bar, color);
    painter.stroke(bar, color, STROKE / 2);
}

void BackspaceShape::draw(ui::Painter& painter, const Rect& rect, const ui::Color& color) const {
    const Placement placement(rect);
    Path tag;
    tag.moveTo({8.6, 4.5});
    tag.lineTo({20.4, 4.5});
    tag.curveTo({21.9, 4.5}, {23, 5.6}, {23, 7.1});
    tag.lineTo({23, 16.9});
    tag.curveTo({23, 18.4}, {21.9, 19.5}, {20.4, 19.5});
    tag.lineTo({8.6, 19.5});
    tag.lineTo({1, 12});
    tag.close();
    painter.stroke(placement.place(tag), color, STROKE);
    painter.stroke(placement.place(line({11.4, 8.6}, {18.2, 15.4})), color, STROKE);
    painter.stroke(placement.place(line({18.2, 8.6}, {11.4, 15.4})), color, STROKE);
}

void GlobeShape::draw(ui::Painter& painter, const Rect& rect, const ui::Color& color) const {
    const Placement placement(rect);
    const double thin = STROKE * 0.9;
    painter.stroke(placement.place(Path::ellipse({2.5, 2.5, 19, 19})), color, thin);
    painter.stroke(placement.place(Path::ellipse({7.8, 2.5, 8.4, 19})), color, thin);
    painter.stroke(placement.place(line({12, 2.5}, {12, 21.5})), color, thin);
    painter.stroke(placement.place(line({2.5, 12}, {21.5, 12})), color, thin);
    for (const double bend : {1.0, -1.0}) {
        Path parallel;
        parallel.moveTo({4.6, 12 - bend * 6});
        parallel.curveTo({8.4, 12 - bend * 4}, {15.6, 12 - bend * 4}, {19.4, 12 - bend * 6});
        painter.stroke(placement.place(parallel), color, thin);
    }
}

void ChevronShape::draw(ui::Painter& painter, const Rect& rect, const ui::Color& color) const {
    const Placement placement(rect);
    const double tip = direction_ == Direction::Left ? 8 : 16;
    const double ends = SHEET - tip;
    painter.stroke(placement.place(polygon({{ends, 4}, {tip, 12}, {ends, 20}}, false)), color, STROKE);
}

void ArrowShape::draw(ui::Painter& painter, const Rect& rect, const ui::Color& color) const {
    const Placement placement(rect);
    painter.stroke(placement.place(line({3, 12}, {20.5, 12})), color, STROKE);
    painter.stroke(placement.place(polygon({{14, 5.5}, {20.5, 12}, {14, 18.5}}, false)), color, STROKE);
}

void ReturnShape::draw(ui::Painter& painter, const Rect& rect, const ui::Color& color) const {
    const Placement placement(rect);
    painter.stroke(placement.place(polygon({{20, 5.5}, {20, 14.5}, {4, 14.5}}, false)), color, STROKE);
    painter.stroke(placement.place(polygon({{9, 9.5}, {4, 14.5}, {9, 19.5}}, false)), color, STROKE);
}

}  // namespace vorpel
