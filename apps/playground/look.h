// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/color.h"

namespace vorpel::playground {

/// The colours of what stands above the keyboard.
struct Look {
    ui::Color ground;
    ui::Color card;  ///< under text
    ui::Color pressedCard;
    ui::Color line;  ///< around a card
    ui::Color text;
    ui::Color quietText;
    ui::Color accent;
};

constexpr Look LIGHT_LOOK{.ground = ui::Color::rgb(0.949, 0.953, 0.961),
                          .card = ui::Color::white(),
                          .pressedCard = ui::Color::rgb(0.85, 0.87, 0.9),
                          .line = ui::Color::black(0.1),
                          .text = ui::Color::rgb(0.08, 0.09, 0.11),
                          .quietText = ui::Color::rgb(0.4, 0.42, 0.46),
                          .accent = ui::Color::rgb(0.08, 0.45, 0.92)};

constexpr Look DARK_LOOK{.ground = ui::Color::rgb(0.11, 0.11, 0.12),
                         .card = ui::Color::rgb(0.175, 0.175, 0.19),
                         .pressedCard = ui::Color::rgb(0.3, 0.3, 0.32),
                         .line = ui::Color::white(0.12),
                         .text = ui::Color::rgb(0.95, 0.95, 0.96),
                         .quietText = ui::Color::rgb(0.64, 0.65, 0.68),
                         .accent = ui::Color::rgb(0.33, 0.62, 1)};

}  // namespace vorpel::playground
