// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace vorpel {

/// The content of a geometry file: one keyboard layout. Absent members are empty, 0.
struct GeometryFile {
    std::string locale;
    int keyboardMinWidth = 0;
    int keyboardHeight = 0;
    int gridWidth = 0;
    int gridHeight = 0;
    int mostCommonKeyWidth = 0;
    int mostCommonKeyHeight = 0;
    int keyCount = 0;
    std::vector<int> proximityCharsArray;
    std::vector<int> keyXCoordinates;
    std::vector<int> keyYCoordinates;
    std::vector<int> keyWidths;
    std::vector<int> keyHeights;
    std::vector<int> keyCharCodes;
    std::vector<float> sweetSpotCenterXs;
    std::vector<float> sweetSpotCenterYs;
    std::vector<float> sweetSpotRadii;

    /// Reads a file and sees to it that it is usable: every per-key array has at least `keyCount` entries,
    /// the grid is of a sane size, the reals are coordinates. Else raises std::runtime_error
    /// "reading file : PATH has failed : REASON".
    static GeometryFile load(const std::string& path);
};

/// The "proximityCharsArray" of a geometry file alone, whatever else the file holds or lacks. Raises alike.
std::vector<int> loadProximityChars(const std::string& path);

}  // namespace vorpel
