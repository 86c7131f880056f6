// SPDX-License-Identifier: Apache-2.0
#include "keyboard/theme/contrast.h"

#include <algorithm>
#include <cmath>

namespace vorpel {

namespace {

/// Of a component, as light.
double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const ui::Color& color) {
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

}  // namespace

double contrast(const ui::Color& one, const ui::Color& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

}  // namespace vorpel
