// SPDX-License-Identifier: Apache-2.0
#include "keyboard/keys/keyboard_key.h"

#include "keyboard/keys/keyboard_key_background.h"
#include "ui/painter.h"

#include <algorithm>

namespace vorpel {

namespace {

// A letter may come close to the edges; a word needs air.
constexpr double LETTER_INSET = 1;
constexpr double WORD_INSET = 4;
constexpr double LEAST_TEXT_SCALE = 0.5;
constexpr double BORDER = 0.5;
constexpr double LEAST_SIGN_MARGIN = 5;
constexpr double LARGEST_SIGN = 23;

/// A square for a shape or a picture in the middle of the face.
ui::Rect signRect(const ui::Rect& bounds) {
    const double room = std::min(bounds.width, bounds.height) - 2 * LEAST_SIGN_MARGIN;
    const double side = std::clamp(room, 0.0, LARGEST_SIGN);
    return {bounds.center().x - side / 2, bounds.center().y - side / 2, side, side};
}

}  // namespace

KeyboardKey::KeyboardKey() {
    setUserInteractionEnabled(false);
}

void KeyboardKey::setText(const std::string& text, double fontSize, CapKind kind) {
    if (text == text_ && fontSize == fontSize_ && kind == kind_) return;
    text_ = text;
    fontSize_ = fontSize;
    kind_ = kind;
    setNeedsDisplay();
    updatePopupLook();
}

void KeyboardKey::setShape(Shape* shape) {
    if (shape == shape_) return;
    shape_ = shape;
    setNeedsDisplay();
}

void KeyboardKey::setColors(const KeyColors& colors) {
    if (colors == colors_) return;
    colors_ = colors;
    setNeedsDisplay();
    updatePopupLook();
}

void KeyboardKey::setPopupLayer(ui::View* layer, const PopupMetrics& metrics) {
    popupLayer_ = layer;
    popupMetrics_ = metrics;
}

void KeyboardKey::showPopup() {
    if (!popupLayer_ || !superview() || text_.empty()) return;
    if (!popup_) popup_ = std::make_unique<KeyPopup>();
    if (hasPopup()) return;
    const ui::Point origin = popupLayer_->convertFromWindow(convertToWindow({0, 0}));
    popup_->setLook(text_, colors_.popup, colors_.popupText, colors_.border);
    popup_->place({origin.x, origin.y, frame().width, frame().height}, popupLayer_->bounds(), popupMetrics_);
    popupLayer_->addSubview(*popup_);
}

/// A letter that is held while shift changes is shown as it will be typed.
void KeyboardKey::updatePopupLook() {
    if (hasPopup()) popup_->setLook(text_, colors_.popup, colors_.popupText, colors_.border);
}

void KeyboardKey::hidePopup() {
    if (popup_) popup_->removeFromSuperview();
}

void KeyboardKey::draw(ui::Painter& painter) {
    if (bounds().isEmpty()) return;
    const ui::Path outline = KeyboardKeyBackground::face(bounds());
    const bool isDown = isHighlighted();
    painter.drawShadow(outline, {colors_.under, {0, KeyboardKeyBackground::UNDER_LINE}, 0});
    painter.fill(outline, isDown ? colors_.faceDown : colors_.face);
    if (!colors_.border.isClear()) painter.stroke(outline, colors_.border, BORDER);
    drawFace(painter, isDown ? colors_.textDown : colors_.text);
}

void KeyboardKey::drawFace(ui::Painter& painter, const ui::Color& color) {
    if (shape_) {
        shape_->draw(painter, signRect(bounds()), color);
        return;
    }
    if (text_.empty()) return;
    ui::TextStyle style;
    style.font.size = fontSize_;
    style.color = color;
    style.minimumScale = LEAST_TEXT_SCALE;
    painter.drawText(text_, bounds().insetBy(kind_ == CapKind::Word ? WORD_INSET : LETTER_INSET, 0), style);
}

ui::EdgeInsets KeyboardKey::drawingOutsets() const {
    // Half of the border lies outside.
    return {BORDER, BORDER, BORDER + KeyboardKeyBackground::UNDER_LINE, BORDER};
}

void ImageKey::setImage(const std::string& path) {
    if (path == image_) return;
    image_ = path;
    setNeedsDisplay();
}

void ImageKey::drawFace(ui::Painter& painter, const ui::Color& color) {
    if (image_.empty()) {
        KeyboardKey::drawFace(painter, color);
        return;
    }
    painter.drawImage(image_, signRect(bounds()), color);
}

}  // namespace vorpel
