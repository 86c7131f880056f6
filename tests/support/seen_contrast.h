// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/theme/contrast.h"

namespace vorpel::testing {

/// The colour as it comes out over an opaque ground.
inline ui::Color over(const ui::Color& ground, const ui::Color& top) {
    const auto mix = [&](double below, double above) { return below + (above - below) * top.alpha; };
    return ui::Color::rgb(mix(ground.red, top.red), mix(ground.green, top.green), mix(ground.blue, top.blue));
}

/// Of what may let the ground through.
inline double seenContrast(const ui::Color& ground, const ui::Color& top) {
    return contrast(ground, over(ground, top));
}

}  // namespace vorpel::testing
