// SPDX-License-Identifier: Apache-2.0
#include "suggestion/proximity_provider.h"

#include "proximity/bounded_numbers.h"
#include "suggestion/file_utils.h"
#include "suggestion/geometry_file.h"
#include "suggestion/key_neighbours.h"
#include "text/diagnostics.h"

#include <algorithm>

namespace vorpel {

using wordengine::ProximityInfo;

namespace {

int lengthOf(const std::vector<int>& values) {
    return wordengine::saturatedInt(static_cast<int64_t>(values.size()));
}

std::vector<int> copyPixels(const int* values, int count) {
    std::vector<int> copy(values, values + count);
    std::transform(copy.begin(), copy.end(), copy.begin(), wordengine::boundedCoordinate);
    return copy;
}

/// The layout of live key frames, all but the codes and the proximity lists.
GeometryFile liveGeometry(const char* locale, int keyboardWidth, int keyboardHeight, int mostCommonKeyWidth,
                          int mostCommonKeyHeight, int keyCount, const int* xs, const int* ys,
                          const int* widths, const int* heights) {
    GeometryFile geometry;
    geometry.locale = locale != nullptr ? locale : "";
    geometry.keyboardMinWidth = keyboardWidth;
    geometry.keyboardHeight = keyboardHeight;
    geometry.gridWidth = LIVE_GRID_WIDTH;
    geometry.gridHeight = LIVE_GRID_HEIGHT;
    geometry.mostCommonKeyWidth = mostCommonKeyWidth;
    geometry.mostCommonKeyHeight = mostCommonKeyHeight;
    geometry.keyCount = keyCount;
    geometry.keyXCoordinates = copyPixels(xs, keyCount);
    geometry.keyYCoordinates = copyPixels(ys, keyCount);
    geometry.keyWidths = copyPixels(widths, keyCount);
    geometry.keyHeights = copyPixels(heights, keyCount);
    for (int i = 0; i < keyCount; ++i) {
        const size_t at = static_cast<size_t>(i);
        const SweetSpot spot = liveSweetSpot(i, geometry.keyXCoordinates[at], geometry.keyYCoordinates[at],
                                             geometry.keyWidths[at], geometry.keyHeights[at],
                                             mostCommonKeyWidth, mostCommonKeyHeight);
        geometry.sweetSpotCenterXs.push_back(spot.x);
        geometry.sweetSpotCenterYs.push_back(spot.y);
        geometry.sweetSpotRadii.push_back(spot.radius);
    }
    return geometry;
}

using CellLists = std::vector<std::vector<KeyModel>>;

KeyModel boundedFrame(int x, int y, int width, int height) {
    using wordengine::boundedCoordinate;
    return {boundedCoordinate(x), boundedCoordinate(y), boundedCoordinate(width), boundedCoordinate(height),
            0};
}

/// The cells whose centres are nearer to the key than the threshold, row by row.
std::vector<size_t> findCellsNearKey(const KeyModel& key, int threshold, int cellWidth, int cellHeight) {
    std::vector<size_t> cells;
    const int64_t squaredThreshold = int64_t{threshold} * threshold;
    const CellSpan rows = cellsNearKey(key.y, key.height, threshold, cellHeight, LIVE_GRID_HEIGHT);
    const CellSpan columns = cellsNearKey(key.x, key.width, threshold, cellWidth, LIVE_GRID_WIDTH);
    for (int y = rows.start; y <= rows.end; y += cellHeight) {
        for (int x = columns.start; x <= columns.end; x += cellWidth) {
            const int squaredDistance =
                ProximityProvider::squaredDistanceToEdge(x, y, key.x, key.y, key.width, key.height);
            if (squaredDistance >= squaredThreshold) continue;
            cells.push_back(static_cast<size_t>((y / cellHeight) * LIVE_GRID_WIDTH + x / cellWidth));
        }
    }
    return cells;
}

/// Writes the codes of the last LIVE_GRID_CELLS lists.
void writeProximityChars(const CellLists& neighbours, int* chars) {
    constexpr size_t SLOTS = LIVE_PROXIMITY_CHARS / LIVE_GRID_CELLS;
    std::fill_n(chars, LIVE_PROXIMITY_CHARS, wordengine::NO_CODE_POINT);
    if (neighbours.size() < LIVE_GRID_CELLS) return;
    auto cell = neighbours.end() - LIVE_GRID_CELLS;
    for (int* slots = chars; cell != neighbours.end(); ++cell, slots += SLOTS) {
        const size_t count = std::min(cell->size(), SLOTS);
        std::transform(cell->begin(), cell->begin() + static_cast<std::ptrdiff_t>(count), slots,
                       [](const KeyModel& key) { return static_cast<int>(key.code); });
    }
}

}  // namespace

ProximityProvider::ProximityProvider(const std::string& directory, const std::string& language) {
    const std::string text = language == "en" ? "en_US_P_" : "ar_SA_P";
    for (const std::string& name : FileUtils::getFiles(directory, true, text)) {
        createNewProximityInstance(directory + "/" + name);
    }
}

ProximityProvider::ProximityProvider(const char* locale, int keyboardWidth, int keyboardHeight,
                                     int mostCommonKeyWidth, int mostCommonKeyHeight, int keyCount,
                                     const int* xs, const int* ys, const int* widths, const int* heights,
                                     const int* upperCodes, const int* lowerCodes,
                                     const std::string& lowerGeometryPath,
                                     const std::string& upperGeometryPath) {
    keyCount = std::max(keyCount, 0);
    GeometryFile geometry = liveGeometry(locale, keyboardWidth, keyboardHeight, mostCommonKeyWidth,
                                         mostCommonKeyHeight, keyCount, xs, ys, widths, heights);
    std::vector<int> lowerChars = loadProximityChars(lowerGeometryPath);
    std::vector<int> upperChars = loadProximityChars(upperGeometryPath);
    // The length of the list read last counts for both.
    if (lowerChars.size() > upperChars.size()) lowerChars.resize(upperChars.size());

    geometry.keyCharCodes.assign(lowerCodes, lowerCodes + keyCount);
    geometry.proximityCharsArray = std::move(lowerChars);
    ProximityInfo* const lowerInfo = keepProximity(geometry);
    geometry.keyCharCodes.assign(upperCodes, upperCodes + keyCount);
    geometry.proximityCharsArray = std::move(upperChars);
    ProximityInfo* const upperInfo = keepProximity(geometry);

    for (int i = 0; i < keyCount; ++i) {
        const size_t at = static_cast<size_t>(i);
        KeyCoordinate* const coordinate =
            keepCoordinate(geometry.sweetSpotCenterXs[at], geometry.sweetSpotCenterYs[at]);
        proximityByCode_[lowerCodes[i]] = lowerInfo;
        proximityByCode_[upperCodes[i]] = upperInfo;
        coordinateByCode_[lowerCodes[i]] = coordinate;
        coordinateByCode_[upperCodes[i]] = coordinate;
    }
}

ProximityProvider::~ProximityProvider() = default;

ProximityInfo* ProximityProvider::createNewProximityInstance(const std::string& path) {
    const GeometryFile geometry = GeometryFile::load(path);
    ProximityInfo* const proximityInfo = keepProximity(geometry);
    proximityByPath_[path] = proximityInfo;
    const size_t keys = std::min(
        {geometry.keyCharCodes.size(), geometry.sweetSpotCenterXs.size(), geometry.sweetSpotCenterYs.size()});
    for (size_t i = 0; i < keys; ++i) {
        const int code = geometry.keyCharCodes[i];
        proximityByCode_[code] = proximityInfo;
        coordinateByCode_[code] =
            keepCoordinate(geometry.sweetSpotCenterXs[i], geometry.sweetSpotCenterYs[i]);
    }
    return proximityInfo;
}

KeyCoordinate* ProximityProvider::getKeyCoordinate(int code) {
    const auto found = coordinateByCode_.find(code);
    return found != coordinateByCode_.end() ? found->second : keepCoordinate(0.0f, 0.0f);
}

KeyCoordinate ProximityProvider::keyCenter(int code) const {
    const auto found = coordinateByCode_.find(code);
    return found != coordinateByCode_.end() ? *found->second : KeyCoordinate(0.0f, 0.0f);
}

ProximityInfo* ProximityProvider::getProximity(int code) const {
    const auto found = proximityByCode_.find(code);
    if (found != proximityByCode_.end()) return found->second;
    return proximityInfos_.empty() ? nullptr : proximityInfos_.front().get();
}

const ProximityInfo* ProximityProvider::findLayout(const std::string& path) const {
    const auto found = proximityByPath_.find(path);
    return found != proximityByPath_.end() ? found->second : nullptr;
}

KeyCoordinate* ProximityProvider::keepCoordinate(float x, float y) {
    keyCoordinates_.push_back(std::make_unique<KeyCoordinate>(x, y));
    return keyCoordinates_.back().get();
}

ProximityInfo* ProximityProvider::keepProximity(const GeometryFile& geometry) {
    proximityInfos_.push_back(std::make_unique<ProximityInfo>(
        geometry.locale.c_str(), geometry.keyboardMinWidth, geometry.keyboardHeight, geometry.gridWidth,
        geometry.gridHeight, geometry.mostCommonKeyWidth, geometry.mostCommonKeyHeight,
        geometry.proximityCharsArray.data(), lengthOf(geometry.proximityCharsArray), geometry.keyCount,
        geometry.keyXCoordinates.data(), geometry.keyYCoordinates.data(), geometry.keyWidths.data(),
        geometry.keyHeights.data(), geometry.keyCharCodes.data(), geometry.sweetSpotCenterXs.data(),
        geometry.sweetSpotCenterYs.data(), geometry.sweetSpotRadii.data()));
    return proximityInfos_.back().get();
}

void ProximityProvider::computeNearestNeighbours(int, int, int mostCommonKeyWidth, int, int upperKeyCount,
                                                 int lowerKeyCount, const int* xs, const int* ys,
                                                 const int* widths, const int* heights, int cellWidth,
                                                 int cellHeight, const int* lowerCodes,
                                                 const int* upperCodes) {
    if (cellWidth <= 0 || cellHeight <= 0) return;
    constexpr double SEARCH_DISTANCE_IN_KEY_WIDTHS = 1.2;
    const int threshold =
        static_cast<int>(wordengine::boundedCoordinate(mostCommonKeyWidth) * SEARCH_DISTANCE_IN_KEY_WIDTHS);
    cellWidth = wordengine::boundedCoordinate(cellWidth);
    cellHeight = wordengine::boundedCoordinate(cellHeight);
    const int keyCount = std::min({upperKeyCount, lowerKeyCount, NEIGHBOUR_KEY_LIMIT});
    CellLists upperCells(LIVE_GRID_CELLS);
    CellLists lowerCells(LIVE_GRID_CELLS);
    for (int k = 0; k < keyCount; ++k) {
        KeyModel key = boundedFrame(xs[k], ys[k], widths[k], heights[k]);
        for (const size_t cell : findCellsNearKey(key, threshold, cellWidth, cellHeight)) {
            key.code = static_cast<int8_t>(upperCodes[k]);
            upperCells[cell].push_back(key);
            key.code = static_cast<int8_t>(lowerCodes[k]);
            lowerCells[cell].push_back(key);
        }
        // The lists of all cells are appended after every key, so the last ones are the complete ones.
        upperNeighbours_.insert(upperNeighbours_.end(), upperCells.begin(), upperCells.end());
        lowerNeighbours_.insert(lowerNeighbours_.end(), lowerCells.begin(), lowerCells.end());
    }
}

void ProximityProvider::getProximityCharsArrays(int* upperChars, int* lowerChars) const {
    writeProximityChars(upperNeighbours_, upperChars);
    writeProximityChars(lowerNeighbours_, lowerChars);
    if (lowerNeighbours_.size() < LIVE_GRID_CELLS) return;
    for (auto cell = lowerNeighbours_.end() - LIVE_GRID_CELLS; cell != lowerNeighbours_.end(); ++cell) {
        wordengine::Diagnostics::print("lNeighBourKeySize: %li\n", static_cast<long>(cell->size()));
    }
}

int ProximityProvider::squaredDistanceToEdge(int x, int y, int keyX, int keyY, int keyWidth, int keyHeight) {
    const int64_t edgeX = x < keyX ? keyX : std::min(int64_t{keyX} + keyWidth, int64_t{x});
    const int64_t edgeY = y < keyY ? keyY : std::min(int64_t{keyY} + keyHeight, int64_t{y});
    return wordengine::saturatedInt((x - edgeX) * (x - edgeX) + (y - edgeY) * (y - edgeY));
}

}  // namespace vorpel
