// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/layout/global_colors.h"
#include "platform/user_defaults.h"
#include "ui/color.h"

namespace vorpel {

/// The surroundings that the settings screen is drawn for.
struct SettingsLook {
    bool darkMode = false;
    bool solidColorMode = false;
};

/// What the settings screen is drawn with.
struct SettingsColors {
    ui::Color ground;     ///< opaque: the keys lie under it
    ui::Color card;       ///< under the rows of a section
    ui::Color text;       ///< on a card, as all that follows but for the last three
    ui::Color quietText;  ///< of notes
    ui::Color line;
    ui::Color offTrack;         ///< of a switch
    ui::Color accent;           ///< of a switch that is on
    ui::Color groundText;       ///< beside the cards
    ui::Color quietGroundText;  ///< of section titles
    ui::Color button;           ///< the title of the way out

    /// The built-in look, or the theme that is stored.
    static SettingsColors of(const GlobalColors& global, SettingsLook look,
                             const platform::UserDefaults& defaults);
};

}  // namespace vorpel
