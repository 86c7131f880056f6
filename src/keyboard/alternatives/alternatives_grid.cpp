// SPDX-License-Identifier: Apache-2.0
#include "keyboard/alternatives/alternatives_grid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vorpel {

namespace {

using ui::Point;
using ui::Rect;

constexpr double MARGIN = 2;   // between the panel and the edges of the room
constexpr double PADDING = 3;  // between the panel's edge and its cells
constexpr double GAP = 4;      // between the panel and the key
// A finger can aim at these; wider ones would only lengthen its way.
constexpr double NARROWEST_CELL = 28;
constexpr double WIDEST_CELL = 52;
constexpr double LOWEST_CELL = 32;
constexpr double HIGHEST_CELL = 44;
// A finger further than this from panel and key has left them.
constexpr double FAR = 48;

double distanceBetween(const Rect& rect, Point point) {
    const double x = std::clamp(point.x, rect.x, rect.right());
    const double y = std::clamp(point.y, rect.y, rect.bottom());
    return std::hypot(point.x - x, point.y - y);
}

/// Columns from the key's own outwards, first to the side that has more room.
std::vector<std::size_t> columnsOutwards(std::size_t own, std::size_t columns, bool growsRight) {
    std::vector<std::size_t> order{own};
    const auto addRight = [&] {
        for (std::size_t column = own + 1; column < columns; ++column) order.push_back(column);
    };
    const auto addLeft = [&] {
        for (std::size_t column = own; column > 0; --column) order.push_back(column - 1);
    };
    if (growsRight) addRight();
    addLeft();
    if (!growsRight) addRight();
    return order;
}

/// How many cells there are each way, and how large one is.
struct Measures {
    std::size_t columns;
    std::size_t rows;
    ui::Size cell;

    [[nodiscard]] ui::Size panel() const {
        return {static_cast<double>(columns) * cell.width + 2 * PADDING,
                static_cast<double>(rows) * cell.height + 2 * PADDING};
    }
};

/// Whole points, so that no edge is blurred.
Measures measure(const Rect& key, const Rect& room, std::size_t count) {
    const double width = std::round(std::clamp(key.width, NARROWEST_CELL, WIDEST_CELL));
    const double across = (room.width - 2 * (MARGIN + PADDING)) / width;
    const auto most = static_cast<std::size_t>(std::max(1.0, across));
    const std::size_t rows = (count + most - 1) / most;
    const double above = key.y - GAP - room.y - MARGIN - 2 * PADDING;
    const double highest = std::clamp(key.height, LOWEST_CELL, HIGHEST_CELL);
    const double height = std::clamp(above / static_cast<double>(rows), LOWEST_CELL, highest);
    return {(count + rows - 1) / rows, rows, {width, std::floor(height)}};
}

/// The column over the key: as many of the others as find room lie on the side that has more.
std::size_t ownColumn(const Rect& key, const Rect& room, const Measures& measures, bool growsRight) {
    const double width = measures.cell.width;
    const auto fitting = [&](double space) {
        const double beside = (space - width / 2 - MARGIN - PADDING) / width;
        return std::min(static_cast<std::size_t>(std::max(beside, 0.0)), measures.columns - 1);
    };
    const std::size_t onTheLeft = fitting(key.center().x - room.x);
    const std::size_t onTheRight = fitting(room.right() - key.center().x);
    return growsRight ? std::min(measures.columns - 1 - onTheRight, onTheLeft) : onTheLeft;
}

Rect placePanel(const Rect& key, const Rect& room, const Measures& measures, std::size_t own) {
    const ui::Size size = measures.panel();
    const double wanted = key.center().x - (static_cast<double>(own) + 0.5) * measures.cell.width - PADDING;
    const double x = std::max(room.x + MARGIN, std::min(wanted, room.right() - MARGIN - size.width));
    const double y = std::max(room.y + MARGIN, key.y - GAP - size.height);
    return {std::round(x), std::round(y), size.width, size.height};
}

}  // namespace

AlternativesGrid AlternativesGrid::over(const Rect& key, const Rect& room, std::size_t count) {
    const Measures measures = measure(key, room, count);
    const bool growsRight = key.center().x <= room.center().x;
    const std::size_t own = ownColumn(key, room, measures, growsRight);
    const Rect panel = placePanel(key, room, measures, own);
    AlternativesGrid grid{key, panel, {}};
    const std::vector<std::size_t> order = columnsOutwards(own, measures.columns, growsRight);
    const auto [width, height] = measures.cell;
    for (std::size_t i = 0; i < count; ++i) {
        const auto column = static_cast<double>(order[i % measures.columns]);
        const auto row = static_cast<double>(measures.rows - 1 - i / measures.columns);
        grid.cells.push_back(
            {panel.x + PADDING + column * width, panel.y + PADDING + row * height, width, height});
    }
    return grid;
}

std::optional<std::size_t> AlternativesGrid::cellAt(Point point) const {
    if (distanceBetween(panel, point) > FAR && distanceBetween(key, point) > FAR) return std::nullopt;
    std::optional<std::size_t> nearest;
    double least = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const double distance = distanceBetween(cells[i], point);
        if (distance >= least) continue;
        least = distance;
        nearest = i;
    }
    return nearest;
}

}  // namespace vorpel
