// SPDX-License-Identifier: Apache-2.0
#include "plain_grid.h"

#include "compiler/key_page_layout.h"
#include "suggestion/geometry_file.h"
#include "text/char_utils.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

namespace vorpel::cli {

namespace {

// Letters above, space and its neighbours below.
constexpr double ROWS_OF_A_PAGE = 4;

std::map<int, TouchPoint> centersByCode(const std::string& geometryFile) {
    const GeometryFile geometry = GeometryFile::load(geometryFile);
    std::map<int, TouchPoint> centers;
    // A file may hold more codes than centres.
    const std::size_t keys = std::min(
        {geometry.keyCharCodes.size(), geometry.sweetSpotCenterXs.size(), geometry.sweetSpotCenterYs.size()});
    for (std::size_t i = 0; i < keys; ++i) {
        centers[geometry.keyCharCodes[i]] = {geometry.sweetSpotCenterXs[i], geometry.sweetSpotCenterYs[i]};
    }
    return centers;
}

/// The small letters of the letters page, row by row.
std::vector<std::vector<int>> lettersByRow(const std::string& language) {
    // Any size tells which letters share a row.
    const compiler::KeyPage page = compiler::layOutKeyPage(language, 0, 375, 216);
    std::map<double, std::vector<int>> rows;
    for (const compiler::KeyFrame& key : page.keys) {
        if (key.codePoint != ' ') rows[key.y].push_back(wordengine::CharUtils::toLowerCase(key.codePoint));
    }
    std::vector<std::vector<int>> inOrder;
    for (auto& [y, letters] : rows) inOrder.push_back(std::move(letters));
    return inOrder;
}

/// The cell of `count` in a row that a place falls into, the nearest one outside of them.
std::size_t cellOf(double place, std::size_t count) {
    // A size so small that a cell has none gives a place that is no number.
    if (std::isnan(place)) return 0;
    return static_cast<std::size_t>(std::clamp(std::floor(place), 0.0, static_cast<double>(count - 1)));
}

}  // namespace

PlainGrid::PlainGrid(const std::string& language, const std::string& geometryFile) {
    const std::map<int, TouchPoint> centers = centersByCode(geometryFile);
    for (const auto& keys : lettersByRow(language)) {
        Row row;
        for (const int letter : keys) {
            const auto center = centers.find(letter);
            if (center == centers.end()) {
                throw std::runtime_error(geometryFile + ": a letter of the language has no key");
            }
            row.centers.push_back(center->second);
        }
        row.pitch = row.centers[1].x - row.centers[0].x;
        mostKeys_ = std::max(mostKeys_, row.centers.size());
        rows_.push_back(std::move(row));
    }
    rowPitch_ = rows_[1].centers[0].y - rows_[0].centers[0].y;
}

TouchPoint PlainGrid::carryOver(TouchPoint touch, double width, double height) const {
    const double cellWidth = width / static_cast<double>(mostKeys_);
    const double cellHeight = height / ROWS_OF_A_PAGE;
    const std::size_t rowIndex = cellOf(touch.y / cellHeight, rows_.size());
    const Row& row = rows_[rowIndex];
    const double indent = static_cast<double>(mostKeys_ - row.centers.size()) / 2;
    const double place = touch.x / cellWidth - indent;
    const std::size_t column = cellOf(place, row.centers.size());
    const double fromCenterX = place - (static_cast<double>(column) + 0.5);
    const double fromCenterY = touch.y / cellHeight - (static_cast<double>(rowIndex) + 0.5);
    const TouchPoint center = row.centers[column];
    return {center.x + fromCenterX * row.pitch, center.y + fromCenterY * rowPitch_};
}

}  // namespace vorpel::cli
