// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/proximity_info.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vorpel {

struct GeometryFile;

/// A touch or the centre of a key, in the coordinates of the keyboard's geometry.
struct KeyCoordinate {
    KeyCoordinate(float xValue, float yValue) : x(xValue), y(yValue) {}

    float x;
    float y;
};

/// One key in the nearest-neighbour work on live frames.
struct KeyModel {
    int32_t x;
    int32_t y;
    int32_t width;
    int32_t height;
    int8_t code;
};

/// Gives, for any key code, the layout to search with and the stored centre of that key. Each keyboard
/// page is a layout of its own; the last letter of a word finds the right one. It owns all that it
/// returns, for its own lifetime. One thread at a time.
class ProximityProvider {
public:
    using KeyCoordinate = vorpel::KeyCoordinate;

    /// Reads every geometry file of the language ("en", or anything else for Arabic) in the top level of
    /// the directory. An unreadable or unusable file raises std::runtime_error.
    ProximityProvider(const std::string& directory, const std::string& language);

    /// Makes two layouts out of live key frames, the arrays holding `keyCount` entries each; only the
    /// lists of near characters come from the two geometry files. Raises as above.
    ProximityProvider(const char* locale, int keyboardWidth, int keyboardHeight, int mostCommonKeyWidth,
                      int mostCommonKeyHeight, int keyCount, const int* xs, const int* ys, const int* widths,
                      const int* heights, const int* upperCodes, const int* lowerCodes,
                      const std::string& lowerGeometryPath, const std::string& upperGeometryPath);

    ~ProximityProvider();
    ProximityProvider(const ProximityProvider&) = delete;
    ProximityProvider& operator=(const ProximityProvider&) = delete;

    /// Loads one geometry file, enters its codes, keeps the layout and returns it. A code that an earlier
    /// file has too goes to this one. Raises as above.
    wordengine::ProximityInfo* createNewProximityInstance(const std::string& path);

    /// The key's centre. An unknown code gives (0, 0), a new object at each call, all of which are kept.
    KeyCoordinate* getKeyCoordinate(int code);

    /// The same as a value, for callers that ask at every keystroke.
    [[nodiscard]] KeyCoordinate keyCenter(int code) const;

    /// The key's layout; of an unknown code the first layout, null if there is none.
    wordengine::ProximityInfo* getProximity(int code) const;

    /// Whether some layout has a key for the code.
    [[nodiscard]] bool hasKey(int code) const { return coordinateByCode_.count(code) > 0; }

    /// The layout that was read from the file, null if it is none of those that were read.
    const wordengine::ProximityInfo* findLayout(const std::string& path) const;

    /// The neighbour lists of each grid cell by key frames: appends, key by key, the lists of all cells so
    /// far. No constructor needs them, as the geometry files hold better lists. The arrays hold as many
    /// keys as the smaller of the two counts says; keys from 29 on are ignored.
    void computeNearestNeighbours(int keyboardWidth, int keyboardHeight, int mostCommonKeyWidth,
                                  int mostCommonKeyHeight, int upperKeyCount, int lowerKeyCount,
                                  const int* xs, const int* ys, const int* widths, const int* heights,
                                  int cellWidth, int cellHeight, const int* lowerCodes,
                                  const int* upperCodes);

    /// Writes the lists last computed, 8192 code points for each array, padded with -1.
    void getProximityCharsArrays(int* upperChars, int* lowerChars) const;

    /// From (x, y) to the nearest point of the key's rectangle, squared pixels.
    static int squaredDistanceToEdge(int x, int y, int keyX, int keyY, int keyWidth, int keyHeight);

private:
    KeyCoordinate* keepCoordinate(float x, float y);
    wordengine::ProximityInfo* keepProximity(const GeometryFile& geometry);

    std::vector<std::unique_ptr<wordengine::ProximityInfo>> proximityInfos_;
    std::vector<std::unique_ptr<KeyCoordinate>> keyCoordinates_;
    std::map<int32_t, wordengine::ProximityInfo*> proximityByCode_;
    std::map<std::string, wordengine::ProximityInfo*> proximityByPath_;
    std::map<int32_t, KeyCoordinate*> coordinateByCode_;
    std::vector<std::vector<KeyModel>> upperNeighbours_;
    std::vector<std::vector<KeyModel>> lowerNeighbours_;
};

}  // namespace vorpel
