// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "suggestion/vp_word_suggestions.h"

#include <map>
#include <string>
#include <vector>

namespace vorpel::cli {

/// Carries touches from a plain grid (rows of equal height, key cells of equal width, each row in the
/// middle) over to the keyboard that a geometry file describes: a touch lies in the same place of the
/// cell of our key as it lay in the cell of the grid's.
class PlainGrid {
public:
    static constexpr double DEFAULT_WIDTH = 320;
    static constexpr double DEFAULT_HEIGHT = 216;

    /// The letter rows of a language and the centres of its keys. Throws std::runtime_error for a
    /// geometry file that cannot be read or lacks a letter.
    PlainGrid(const std::string& language, const std::string& geometryFile);

    /// The place on our keyboard of a touch on a grid of the given size in points. A touch outside
    /// the letters' cells counts from the nearest one. The touch must be finite, the size above 0.
    [[nodiscard]] TouchPoint carryOver(TouchPoint touch, double width, double height) const;

private:
    struct Row {
        std::vector<TouchPoint> centers;
        double pitch = 0;  ///< from one key's centre to the next
    };

    std::vector<Row> rows_;
    double rowPitch_ = 0;
    std::size_t mostKeys_ = 0;
};

}  // namespace vorpel::cli
