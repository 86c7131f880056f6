// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"

#include <array>
#include <span>
#include <vector>

namespace vorpel::ui {

/// An outline of straight lines, arcs and cubic curves.
class Path {
public:
    enum class Verb { Move, Line, Curve, Close };

    struct Element {
        Verb verb = Verb::Move;
        /// Curve: two control points, then the end. Move and Line: the end, first. Close: none.
        std::array<Point, 3> points{};
    };

    static Path rect(const Rect& rect);

    /// Corners are quarter circles; the radius is cut to half the shorter side.
    static Path roundedRect(const Rect& rect, double radius);
    static Path ellipse(const Rect& rect);

    void moveTo(Point point) { elements_.push_back({Verb::Move, {point}}); }
    void lineTo(Point point) { elements_.push_back({Verb::Line, {point}}); }
    void curveTo(Point control1, Point control2, Point end) {
        elements_.push_back({Verb::Curve, {control1, control2, end}});
    }

    /// From the current point, which lies on the circle at `startAngle`, to `endAngle`; radians, clockwise on
    /// the screen when the end is greater.
    void arc(Point center, double radius, double startAngle, double endAngle);
    void close() { elements_.push_back({Verb::Close, {}}); }
    void clear() { elements_.clear(); }

    /// Another path's elements behind this one's.
    void append(const Path& other);

    /// Each point times the scale, then moved.
    void transform(double scaleX, double scaleY, Point by);

    [[nodiscard]] std::span<const Element> elements() const { return elements_; }
    [[nodiscard]] bool isEmpty() const { return elements_.empty(); }

    /// The smallest rectangle around all points, control points too.
    [[nodiscard]] Rect bounds() const;

private:
    std::vector<Element> elements_;
};

}  // namespace vorpel::ui
