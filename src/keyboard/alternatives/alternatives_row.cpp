// SPDX-License-Identifier: Apache-2.0
#include "keyboard/alternatives/alternatives_row.h"

#include "keyboard/keys/keyboard_key_background.h"
#include "platform/characters.h"
#include "ui/painter.h"

#include <algorithm>
#include <cmath>

namespace vorpel {

namespace {

// A finger that is held strays so far, in points, without meaning to.
constexpr double LEAST_SLIDE = 6;
constexpr double SHADOW_BLUR = 4;
constexpr double SHADOW_DROP = 1;
constexpr double BORDER = 0.5;
constexpr double CHOSEN_CORNER_RADIUS = 6;
constexpr double FONT_SHARE_OF_HEIGHT = 0.52;
constexpr double LEAST_TEXT_SCALE = 0.4;

/// A mark that joins the letter before it is shown on a stroke in that letter's place. Fonts set it more
/// evenly there than on a circle, which may come from another font than the mark.
std::string capOf(const std::string& text) {
    const std::string onStroke = "ـ" + text;
    return platform::characterCount(onStroke) == 1 ? onStroke : text;
}

}  // namespace

void AlternativesRow::setContent(const std::vector<std::string>& texts, const Look& look, const ui::Rect& key,
                                 const ui::Rect& room) {
    texts_ = texts;
    caps_.clear();
    for (const std::string& text : texts) caps_.push_back(capOf(text));
    look_ = look;
    grid_ = AlternativesGrid::over(key, room, texts.size());
    setFrame(grid_.panel);
    if (chosen_ && *chosen_ >= texts.size()) chosen_ = 0;
    setNeedsDisplay();
}

void AlternativesRow::start(ui::Point point) {
    startedAt_ = point;
    slides_ = false;
    choose(0);
}

void AlternativesRow::slideTo(ui::Point point) {
    slides_ = slides_ || std::hypot(point.x - startedAt_.x, point.y - startedAt_.y) > LEAST_SLIDE;
    if (slides_) choose(grid_.cellAt(point));
}

void AlternativesRow::choose(std::optional<std::size_t> cell) {
    if (cell == chosen_) return;
    chosen_ = cell;
    setNeedsDisplay();
}

void AlternativesRow::draw(ui::Painter& painter) {
    const ui::Path outline = ui::Path::roundedRect(bounds(), KeyboardKeyBackground::POPUP_CORNER_RADIUS);
    painter.drawShadow(outline, {ui::Color::black(0.3), {0, SHADOW_DROP}, SHADOW_BLUR});
    painter.fill(outline, look_.face);
    if (!look_.border.isClear()) painter.stroke(outline, look_.border, BORDER);
    ui::TextStyle style;
    style.minimumScale = LEAST_TEXT_SCALE;
    for (std::size_t i = 0; i < caps_.size(); ++i) {
        const ui::Rect cell = grid_.cells[i].offsetBy({-frame().x, -frame().y});
        if (chosen_ == i) painter.fill(ui::Path::roundedRect(cell, CHOSEN_CORNER_RADIUS), look_.chosenFace);
        style.font.size = cell.height * FONT_SHARE_OF_HEIGHT;
        style.color = chosen_ == i ? look_.chosenText : look_.text;
        painter.drawText(caps_[i], cell.insetBy(2, 0), style);
    }
}

ui::EdgeInsets AlternativesRow::drawingOutsets() const {
    const double around = 2 * SHADOW_BLUR;
    return {around, around, around + SHADOW_DROP, around};
}

}  // namespace vorpel
