// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>

namespace vorpel::ui {

// Measures are points; x runs to the right, y downwards.

struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
    friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
};

struct Size {
    double width = 0;
    double height = 0;

    friend bool operator==(const Size&, const Size&) = default;
};

struct EdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;

    friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

/// The left and upper edge belong to it, the right and lower edge do not.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    friend bool operator==(const Rect&, const Rect&) = default;

    [[nodiscard]] double right() const { return x + width; }
    [[nodiscard]] double bottom() const { return y + height; }
    [[nodiscard]] Point origin() const { return {x, y}; }
    [[nodiscard]] Size size() const { return {width, height}; }
    [[nodiscard]] Point center() const { return {x + width / 2, y + height / 2}; }
    [[nodiscard]] bool isEmpty() const { return !(width > 0 && height > 0); }

    [[nodiscard]] bool contains(Point point) const {
        return point.x >= x && point.x < right() && point.y >= y && point.y < bottom();
    }

    [[nodiscard]] bool intersects(const Rect& other) const {
        return x < other.right() && other.x < right() && y < other.bottom() && other.y < bottom();
    }

    [[nodiscard]] Rect offsetBy(Point by) const { return {x + by.x, y + by.y, width, height}; }

    /// Smaller by that much on each side; larger when negative.
    [[nodiscard]] Rect insetBy(double dx, double dy) const {
        return {x + dx, y + dy, width - 2 * dx, height - 2 * dy};
    }

    [[nodiscard]] Rect insetBy(const EdgeInsets& by) const {
        return {x + by.left, y + by.top, width - by.left - by.right, height - by.top - by.bottom};
    }

    /// The part of both; empty when they do not meet.
    [[nodiscard]] Rect intersection(const Rect& other) const {
        const double left = std::max(x, other.x);
        const double top = std::max(y, other.y);
        return {left, top, std::max(0.0, std::min(right(), other.right()) - left),
                std::max(0.0, std::min(bottom(), other.bottom()) - top)};
    }

    /// The smallest rectangle around both; an empty one adds nothing.
    [[nodiscard]] Rect unionWith(const Rect& other) const {
        if (isEmpty()) return other;
        if (other.isEmpty()) return *this;
        const double left = std::min(x, other.x);
        const double top = std::min(y, other.y);
        return {left, top, std::max(right(), other.right()) - left, std::max(bottom(), other.bottom()) - top};
    }
};

}  // namespace vorpel::ui
