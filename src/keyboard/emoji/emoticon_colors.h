// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/user_defaults.h"
#include "ui/color.h"

namespace vorpel {

/// The colours of the emoji keyboard. Each text can be read where it stands.
struct EmoticonColors {
    ui::Color background;
    ui::Color text;              ///< on the background
    ui::Color buttonTitle;       ///< on the button's ground, which may be clear
    ui::Color buttonBackground;  ///< of the two buttons
    ui::Color heldButton;        ///< the same while one is held; the title can be read on it too
    ui::Color highlight;         ///< behind the icon of the page on show
    ui::Color indicator;         ///< of the line under it

    /// Those of the theme in force, else of the built-in look.
    static EmoticonColors of(bool darkMode, const platform::UserDefaults& defaults);
};

}  // namespace vorpel
