// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/proximity_info.h"
#include "proximity/proximity_params.h"

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace wordengine {

/// A keyboard in plain vectors, from which the engine's picture is built and against which it is checked.
struct Layout {
    int width = 0;
    int height = 0;
    int gridWidth = 32;
    int gridHeight = 16;
    int keyWidth = 0;
    int keyHeight = 0;
    bool hasSweetSpots = true;
    std::vector<int> xs, ys, widths, heights, codes;
    std::vector<float> sweetXs, sweetYs, radii;
    std::vector<int> chars;

    int keyCount() const { return static_cast<int>(codes.size()); }

    void addKey(int x, int y, int w, int h, int code) {
        xs.push_back(x);
        ys.push_back(y);
        widths.push_back(w);
        heights.push_back(h);
        codes.push_back(code);
        sweetXs.push_back(static_cast<float>(x) + static_cast<float>(w) / 2.0f);
        sweetYs.push_back(static_cast<float>(y) + static_cast<float>(h) / 2.0f);
        radii.push_back(static_cast<float>(w) * 0.15f);
    }

    int cellWidth() const { return (width + gridWidth - 1) / gridWidth; }
    int cellHeight() const { return (height + gridHeight - 1) / gridHeight; }

    /// Lists in each cell the keys within 1.2 key widths of its centre, nearest first.
    void fillChars() {
        chars.assign(static_cast<size_t>(gridWidth * gridHeight * PROXIMITY_SLOT_COUNT), -1);
        for (int cell = 0; cell < gridWidth * gridHeight; ++cell) {
            const int x = (cell % gridWidth) * cellWidth() + cellWidth() / 2;
            const int y = (cell / gridWidth) * cellHeight() + cellHeight() / 2;
            std::vector<std::pair<long, int>> near;
            for (int k = 0; k < keyCount(); ++k) {
                const long dx = x - std::clamp(x, xs[k], xs[k] + widths[k]);
                const long dy = y - std::clamp(y, ys[k], ys[k] + heights[k]);
                const long distance = dx * dx + dy * dy;
                if (distance * 100 < 144L * keyWidth * keyWidth) near.push_back({distance, codes[k]});
            }
            std::stable_sort(near.begin(), near.end(),
                             [](const auto& a, const auto& b) { return a.first < b.first; });
            for (size_t i = 0; i < std::min<size_t>(near.size(), PROXIMITY_SLOT_COUNT); ++i) {
                chars[static_cast<size_t>(cell * PROXIMITY_SLOT_COUNT) + i] = near[i].second;
            }
        }
    }

    std::unique_ptr<ProximityInfo> build(const char* locale = "en_US") const {
        return std::make_unique<ProximityInfo>(
            locale, width, height, gridWidth, gridHeight, keyWidth, keyHeight, chars.data(),
            static_cast<int>(chars.size()), keyCount(), xs.data(), ys.data(), widths.data(), heights.data(),
            codes.data(), hasSweetSpots ? sweetXs.data() : nullptr, hasSweetSpots ? sweetYs.data() : nullptr,
            hasSweetSpots ? radii.data() : nullptr);
    }

    int keyOf(int code) const {
        return static_cast<int>(std::find(codes.begin(), codes.end(), code) - codes.begin());
    }
    int centerX(int code) const { return xs[keyOf(code)] + widths[keyOf(code)] / 2; }
    int centerY(int code) const { return ys[keyOf(code)] + heights[keyOf(code)] / 2; }
};

/// Three rows of letters, an apostrophe-less page with a wide space below: keys of 100 x 150 pixels.
inline Layout qwertyLayout() {
    Layout layout;
    layout.width = 1000;
    layout.height = 600;
    layout.keyWidth = 100;
    layout.keyHeight = 150;
    const std::string rows[] = {"qwertyuiop", "asdfghjkl", "zxcvbnm"};
    const int indents[] = {0, 50, 150};
    for (int row = 0; row < 3; ++row) {
        for (size_t i = 0; i < rows[row].size(); ++i) {
            layout.addKey(indents[row] + static_cast<int>(i) * 100, row * 150, 100, 150, rows[row][i]);
        }
    }
    layout.addKey(250, 450, 500, 150, ' ');
    layout.fillChars();
    return layout;
}

inline Layout randomLayout(std::mt19937& random) {
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    Layout layout;
    layout.width = pick(50, 1500);
    layout.height = pick(50, 900);
    layout.gridWidth = pick(1, 40);
    layout.gridHeight = pick(1, 20);
    layout.keyWidth = pick(5, 160);
    layout.keyHeight = pick(5, 160);
    layout.hasSweetSpots = pick(0, 3) != 0;
    const int keys = pick(0, 40);
    for (int k = 0; k < keys; ++k) {
        const int code = pick(0, 2) == 0 ? pick(0x600, 0x800) : pick(0x20, 0x240);
        layout.addKey(pick(0, layout.width), pick(0, layout.height), pick(1, 3 * layout.keyWidth),
                      pick(1, 2 * layout.keyHeight), code);
        layout.sweetXs.back() += static_cast<float>(pick(-100, 100)) / 7.0f;
        layout.sweetYs.back() += static_cast<float>(pick(-100, 100)) / 7.0f;
    }
    layout.fillChars();
    return layout;
}

}  // namespace wordengine
