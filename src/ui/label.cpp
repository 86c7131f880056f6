// SPDX-License-Identifier: Apache-2.0
#include "ui/label.h"

#include "ui/painter.h"

#include <utility>

namespace vorpel::ui {

namespace {

// Slanted and round glyphs reach beyond their advance by up to this share of the font's size.
constexpr double GLYPH_OVERHANG = 0.15;

}  // namespace

Label::Label(const Rect& frame) : View(frame) {
    setUserInteractionEnabled(false);
}

template <typename Value>
void Label::change(Value& field, Value value) {
    if (field == value) return;
    field = std::move(value);
    setNeedsDisplay();
}

void Label::setText(std::string text) {
    change(text_, std::move(text));
}

void Label::setFont(const Font& font) {
    change(font_, font);
}

void Label::setTextColor(const Color& color) {
    change(textColor_, color);
}

void Label::setTextAlignment(TextAlignment alignment) {
    change(alignment_, alignment);
}

void Label::setAdjustsFontSizeToFitWidth(bool adjusts) {
    change(shrinks_, adjusts);
}

void Label::setMinimumScaleFactor(double factor) {
    change(minimumScale_, factor);
}

void Label::setWraps(bool wraps) {
    change(wraps_, wraps);
}

EdgeInsets Label::drawingOutsets() const {
    if (text_.empty()) return {};
    const double out = font_.size * GLYPH_OVERHANG;
    return {out, out, out, out};
}

void Label::draw(Painter& painter) {
    View::draw(painter);
    if (text_.empty() || bounds().isEmpty()) return;
    // How far a font's glyphs really reach nobody knows; the damage must be right all the same.
    const double out = font_.size * GLYPH_OVERHANG;
    const TextStyle style{font_, textColor_, alignment_, shrinks_ ? minimumScale_ : 1};
    painter.save();
    painter.clip(bounds().insetBy(-out, -out));
    if (wraps_) {
        painter.drawParagraph(text_, bounds(), style);
    } else {
        painter.drawText(text_, bounds(), style);
    }
    painter.restore();
}

}  // namespace vorpel::ui
