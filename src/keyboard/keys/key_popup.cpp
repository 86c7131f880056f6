// SPDX-License-Identifier: Apache-2.0
#include "keyboard/keys/key_popup.h"

#include "keyboard/keys/keyboard_key.h"
#include "keyboard/keys/keyboard_key_background.h"
#include "ui/painter.h"

#include <algorithm>

namespace vorpel {

namespace {

using ui::Rect;

// Between the popup and the edges of where it may be.
constexpr double MARGIN = 2;
constexpr double LEAST_HEIGHT = 40;
constexpr double GREATEST_HEIGHT = 62;
constexpr double SHADOW_BLUR = 4;
constexpr double SHADOW_DROP = 1;
constexpr double FONT_SHARE_OF_HEIGHT = 0.62;
constexpr double LEAST_TEXT_SCALE = 0.4;
constexpr double BORDER = 0.5;

}  // namespace

void KeyPopup::place(const Rect& key, const Rect& room, const PopupMetrics& metrics) {
    const double wanted = std::min(metrics.totalHeight - key.height - metrics.gap, GREATEST_HEIGHT);
    // Lower where the keyboard ends soon above the key.
    const double space = key.y - metrics.gap - room.y - MARGIN;
    const double height = std::max(std::min(wanted, space), LEAST_HEIGHT);
    const double width = key.width + metrics.widthIncrement;
    const double leftmost = room.x + MARGIN;
    const double x = std::max(leftmost, std::min(key.center().x - width / 2, room.right() - MARGIN - width));
    // Against the upper edge it comes down over its key rather than being cut off.
    const double y = std::max(room.y + MARGIN, key.y - metrics.gap - height);
    const Rect popup{x, y, width, height};
    const Rect whole = popup.unionWith(key);
    setFrame(whole);
    popup_ = popup.offsetBy({-whole.x, -whole.y});
    key_ = key.offsetBy({-whole.x, -whole.y});
}

void KeyPopup::setLook(const std::string& text, const ui::Color& face, const ui::Color& textColor,
                       const ui::Color& border) {
    text_ = text;
    face_ = face;
    textColor_ = textColor;
    border_ = border;
    setNeedsDisplay();
}

void KeyPopup::draw(ui::Painter& painter) {
    const ui::Path outline = KeyboardConnector::join(popup_, key_);
    painter.drawShadow(outline, {ui::Color::black(0.3), {0, SHADOW_DROP}, SHADOW_BLUR});
    painter.fill(outline, face_);
    if (!border_.isClear()) painter.stroke(outline, border_, BORDER);
    ui::TextStyle style;
    style.font.size = popup_.height * FONT_SHARE_OF_HEIGHT;
    style.color = textColor_;
    style.minimumScale = LEAST_TEXT_SCALE;
    painter.drawText(text_, popup_.insetBy(4, 0), style);
}

ui::EdgeInsets KeyPopup::drawingOutsets() const {
    const double around = 2 * SHADOW_BLUR;
    return {around, around, around + SHADOW_DROP, around};
}

}  // namespace vorpel
