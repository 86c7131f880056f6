// SPDX-License-Identifier: Apache-2.0
#include "compiler/geometry_file_writer.h"

#include "compiler/input_error.h"
#include "storage/atomic_file.h"
#include "text/char_utils.h"

#include <json/json.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

namespace vorpel::compiler {

namespace {

constexpr int GRID_WIDTH = 32;
constexpr int GRID_HEIGHT = 16;
constexpr std::size_t SLOTS_PER_CELL = 16;
constexpr std::size_t MOST_KEYS = 64;
constexpr double NEAR_KEY_WIDTHS = 1.2;
// Of a key's diagonal: inside it a touch counts as well aimed.
constexpr double SWEET_SPOT_RADIUS = 0.15;
constexpr int NO_KEY = -1;

int toInt(double measure) {
    return static_cast<int>(std::lround(measure));
}

int codeOf(const KeyFrame& key, LetterCase letterCase) {
    return letterCase == LetterCase::Upper ? key.codePoint
                                           : wordengine::CharUtils::toLowerCase(key.codePoint);
}

/// The value that most of the letter keys have; the smaller one where two are as common.
template <typename Measure>
double mostCommon(const KeyPage& page, Measure measure) {
    std::map<double, int> counts;
    for (const KeyFrame& key : page.keys) {
        if (key.codePoint != ' ') ++counts[measure(key)];
    }
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& left, const auto& right) { return left.second < right.second; })
        ->first;
}

double squaredDistanceToEdge(const KeyFrame& key, double x, double y) {
    const double dx = x - std::clamp(x, key.x, key.x + key.width);
    const double dy = y - std::clamp(y, key.y, key.y + key.height);
    return dx * dx + dy * dy;
}

double squaredDistanceToCenter(const KeyFrame& key, double x, double y) {
    return (x - key.centerX()) * (x - key.centerX()) + (y - key.centerY()) * (y - key.centerY());
}

/// The small letters near a point, nearest edge first; among keys as near the nearer centre.
std::vector<int> nearCodes(const KeyPage& page, double x, double y, double limit) {
    using Nearness = std::pair<double, double>;
    std::vector<std::pair<Nearness, int>> near;
    for (const KeyFrame& key : page.keys) {
        const double toEdge = squaredDistanceToEdge(key, x, y);
        if (toEdge >= limit * limit) continue;
        near.push_back({{toEdge, squaredDistanceToCenter(key, x, y)}, codeOf(key, LetterCase::Lower)});
    }
    std::sort(near.begin(), near.end());
    std::vector<int> codes;
    for (const auto& [nearness, code] : near) codes.push_back(code);
    return codes;
}

Json::Value proximityGrid(const KeyPage& page, double keyWidth) {
    const int cellWidth = (toInt(page.width) + GRID_WIDTH - 1) / GRID_WIDTH;
    const int cellHeight = (toInt(page.height) + GRID_HEIGHT - 1) / GRID_HEIGHT;
    Json::Value grid(Json::arrayValue);
    for (int row = 0; row < GRID_HEIGHT; ++row) {
        for (int column = 0; column < GRID_WIDTH; ++column) {
            std::vector<int> codes = nearCodes(page, (column + 0.5) * cellWidth, (row + 0.5) * cellHeight,
                                               NEAR_KEY_WIDTHS * keyWidth);
            codes.resize(SLOTS_PER_CELL, NO_KEY);
            for (const int code : codes) grid.append(code);
        }
    }
    return grid;
}

void appendKeys(const KeyPage& page, LetterCase letterCase, Json::Value* file) {
    for (const KeyFrame& key : page.keys) {
        (*file)["keyXCoordinates"].append(toInt(key.x));
        (*file)["keyYCoordinates"].append(toInt(key.y));
        (*file)["keyWidths"].append(toInt(key.width));
        (*file)["keyHeights"].append(toInt(key.height));
        (*file)["keyCharCodes"].append(codeOf(key, letterCase));
        (*file)["sweetSpotCenterXs"].append(key.centerX());
        (*file)["sweetSpotCenterYs"].append(key.centerY());
        (*file)["sweetSpotRadii"].append(SWEET_SPOT_RADIUS * std::hypot(key.width, key.height));
    }
}

void checkPage(const KeyPage& page) {
    if (page.keys.empty()) throw std::invalid_argument("a geometry needs at least one key");
    if (page.keys.size() > MOST_KEYS) throw std::invalid_argument("a geometry holds at most 64 keys");
    if (!(page.width >= 1 && page.height >= 1)) throw std::invalid_argument("the page has no size");
}

}  // namespace

std::string geometryJson(const KeyPage& page, const std::string& locale, LetterCase letterCase) {
    checkPage(page);
    const double keyWidth = mostCommon(page, [](const KeyFrame& key) { return key.width; });
    const double keyHeight = mostCommon(page, [](const KeyFrame& key) { return key.height; });

    Json::Value file(Json::objectValue);
    file["locale"] = locale;
    file["keyboardMinWidth"] = toInt(page.width);
    file["keyboardHeight"] = toInt(page.height);
    file["gridWidth"] = GRID_WIDTH;
    file["gridHeight"] = GRID_HEIGHT;
    file["mostCommonKeyWidth"] = toInt(keyWidth);
    file["mostCommonKeyHeight"] = toInt(keyHeight);
    file["keyCount"] = static_cast<int>(page.keys.size());
    file["proximityCharsArray"] = proximityGrid(page, keyWidth);
    appendKeys(page, letterCase, &file);

    Json::StreamWriterBuilder writer;
    writer["indentation"] = "";
    writer["precision"] = 9;
    return Json::writeString(writer, file) + "\n";
}

void writeGeometryFile(const std::string& path, const KeyPage& page, const std::string& locale,
                       LetterCase letterCase) {
    const std::string json = geometryJson(page, locale, letterCase);
    const auto* bytes = reinterpret_cast<const uint8_t*>(json.data());
    const int error = wordengine::writeFileAtomically(path, {bytes, json.size()});
    if (error != 0) throw CompileError(path + ": " + std::strerror(error));
}

}  // namespace vorpel::compiler
