// SPDX-License-Identifier: Apache-2.0
#include "suggestion/geometry_file.h"

#include "proximity/bounded_numbers.h"
#include "suggestion/file_utils.h"
#include "suggestion/long_int_array.h"

#include <json/value.h>

#include <cmath>
#include <cstdint>
#include <new>

namespace vorpel {

namespace {

/// Far above any keyboard's grid, which has some hundreds.
constexpr int64_t GRID_CELL_LIMIT = 1 << 16;

constexpr char PROXIMITY_CHARS_MEMBER[] = "proximityCharsArray";

int readInt(const Json::Value& root, const char* name) {
    return root.get(name, 0).asInt();
}

/// A member that is missing is null, which has no elements.
const Json::Value& readArray(const Json::Value& root, const char* name) {
    const Json::Value& array = root[name];
    if (!array.isNull() && !array.isArray()) {
        throw std::runtime_error(std::string("\"") + name + "\" is no array");
    }
    return array;
}

std::vector<int> readInts(const Json::Value& root, const char* name) {
    std::vector<int> values;
    for (const Json::Value& element : readArray(root, name)) values.push_back(element.asInt());
    return values;
}

std::vector<float> readReals(const Json::Value& root, const char* name) {
    std::vector<float> values;
    for (const Json::Value& element : readArray(root, name)) {
        const double value = element.asDouble();
        if (!(std::fabs(value) <= wordengine::COORDINATE_LIMIT)) {
            throw std::runtime_error(std::string("\"") + name + "\" holds a number that is no coordinate");
        }
        values.push_back(static_cast<float>(value));
    }
    return values;
}

void requireObject(const Json::Value& root) {
    if (!root.isObject()) throw std::runtime_error("the file holds no object");
}

std::vector<int> readProximityChars(const Json::Value& root, const LongIntArray& taken) {
    return taken.values().empty() ? readInts(root, PROXIMITY_CHARS_MEMBER) : taken.values();
}

GeometryFile readMembers(const Json::Value& root, const LongIntArray& proximityChars) {
    GeometryFile file;
    file.locale = root.get("locale", "").asString();
    file.keyboardMinWidth = readInt(root, "keyboardMinWidth");
    file.keyboardHeight = readInt(root, "keyboardHeight");
    file.gridWidth = readInt(root, "gridWidth");
    file.gridHeight = readInt(root, "gridHeight");
    file.mostCommonKeyWidth = readInt(root, "mostCommonKeyWidth");
    file.mostCommonKeyHeight = readInt(root, "mostCommonKeyHeight");
    file.keyCount = readInt(root, "keyCount");
    file.proximityCharsArray = readProximityChars(root, proximityChars);
    file.keyXCoordinates = readInts(root, "keyXCoordinates");
    file.keyYCoordinates = readInts(root, "keyYCoordinates");
    file.keyWidths = readInts(root, "keyWidths");
    file.keyHeights = readInts(root, "keyHeights");
    file.keyCharCodes = readInts(root, "keyCharCodes");
    file.sweetSpotCenterXs = readReals(root, "sweetSpotCenterXs");
    file.sweetSpotCenterYs = readReals(root, "sweetSpotCenterYs");
    file.sweetSpotRadii = readReals(root, "sweetSpotRadii");
    return file;
}

void requireUsable(const GeometryFile& file) {
    if (file.gridWidth > 0 && file.gridHeight > 0 &&
        int64_t{file.gridWidth} * file.gridHeight > GRID_CELL_LIMIT) {
        throw std::runtime_error("the grid has too many cells");
    }
    for (const size_t length :
         {file.keyXCoordinates.size(), file.keyYCoordinates.size(), file.keyWidths.size(),
          file.keyHeights.size(), file.keyCharCodes.size(), file.sweetSpotCenterXs.size(),
          file.sweetSpotCenterYs.size(), file.sweetSpotRadii.size()}) {
        if (static_cast<int64_t>(length) < file.keyCount) {
            throw std::runtime_error("an array holds fewer than \"keyCount\" entries");
        }
    }
}

/// jsoncpp raises errors of its own on a member of the wrong type; the caller learns which file it was.
template <typename Read>
auto readFile(const std::string& path, Read read) {
    LongIntArray proximityChars(PROXIMITY_CHARS_MEMBER);
    const Json::Value root = FileUtils::loadJson(path, &proximityChars);
    try {
        requireObject(root);
        return read(root, proximityChars);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw FileUtils::readingFailure(path, error.what());
    }
}

}  // namespace

GeometryFile GeometryFile::load(const std::string& path) {
    return readFile(path, [](const Json::Value& root, const LongIntArray& proximityChars) {
        GeometryFile file = readMembers(root, proximityChars);
        requireUsable(file);
        return file;
    });
}

std::vector<int> loadProximityChars(const std::string& path) {
    return readFile(path, readProximityChars);
}

}  // namespace vorpel
