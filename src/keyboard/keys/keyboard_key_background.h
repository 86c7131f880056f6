// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"
#include "ui/path.h"

namespace vorpel {

/// The outlines that key faces and popups are drawn with.
class KeyboardKeyBackground {
public:
    KeyboardKeyBackground() = delete;

    static constexpr double CORNER_RADIUS = 5;
    static constexpr double POPUP_CORNER_RADIUS = 9;

    /// How far the line under a key shows.
    static constexpr double UNDER_LINE = 1;

    static ui::Path face(const ui::Rect& frame);
};

/// The neck between a popup and its key.
class KeyboardConnector {
public:
    KeyboardConnector() = delete;

    /// The popup, the neck and the key as one outline, so that no seam shows. The popup lies above the key;
    /// one that reaches down into it has no neck.
    static ui::Path join(const ui::Rect& popup, const ui::Rect& key);
};

}  // namespace vorpel
