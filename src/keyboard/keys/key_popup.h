// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/color.h"
#include "ui/view.h"

#include <string>

namespace vorpel {

struct PopupMetrics;

/// The enlarged cap over a key that is held, joined to it. It takes no touches. Main thread only.
class KeyPopup final : public ui::View {
public:
    KeyPopup() { setUserInteractionEnabled(false); }

    /// `key` and `room` in the popup layer's points: the popup stays within the room where it can.
    void place(const ui::Rect& key, const ui::Rect& room, const PopupMetrics& metrics);
    void setLook(const std::string& text, const ui::Color& face, const ui::Color& textColor,
                 const ui::Color& border);

    void draw(ui::Painter& painter) override;
    [[nodiscard]] ui::EdgeInsets drawingOutsets() const override;

private:
    ui::Rect popup_;  // in its own points, as is the key
    ui::Rect key_;
    std::string text_;
    ui::Color face_;
    ui::Color textColor_;
    ui::Color border_;
};

}  // namespace vorpel
