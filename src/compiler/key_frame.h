// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

namespace vorpel::compiler {

/// One key of a drawn page: what it types and where it lies, in points from the page's top left.
struct KeyFrame {
    int codePoint = 0;
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double centerX() const { return x + width / 2; }
    [[nodiscard]] double centerY() const { return y + height / 2; }
};

/// The typing keys of one page, in row order, and the page's size in points.
struct KeyPage {
    double width = 0;
    double height = 0;
    std::vector<KeyFrame> keys;
};

}  // namespace vorpel::compiler
