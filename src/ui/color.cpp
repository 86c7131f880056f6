// SPDX-License-Identifier: Apache-2.0
#include "ui/color.h"

#include <cmath>

namespace vorpel::ui {

Color Color::hsb(double hue, double saturation, double brightness, double alpha) {
    const double sector = (hue - std::floor(hue)) * 6;
    const auto channel = [&](double shift) {
        const double k = std::fmod(shift + sector, 6.0);
        const double slope = std::fmax(0.0, std::fmin(std::fmin(k, 4 - k), 1.0));
        return brightness - brightness * saturation * slope;
    };
    return {channel(5), channel(3), channel(1), alpha};
}

}  // namespace vorpel::ui
