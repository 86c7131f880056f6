// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/color.h"

namespace vorpel {

/// The colours of one key, at rest and while it is held.
struct KeyColors {
    ui::Color face;
    ui::Color faceDown;
    ui::Color text;
    ui::Color textDown;
    ui::Color border;
    ui::Color under;
    ui::Color popup;
    ui::Color popupText;

    friend bool operator==(const KeyColors&, const KeyColors&) = default;
};

}  // namespace vorpel
