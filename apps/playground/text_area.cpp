// SPDX-License-Identifier: Apache-2.0
#include "text_area.h"

#include "platform/characters.h"
#include "ui/painter.h"
#include "ui/path.h"
#include "ui/touch.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace vorpel::playground {

namespace {

constexpr ui::Font FONT{18, ui::FontWeight::Regular};
constexpr const char* PLACEHOLDER = "Touch the keys, or type";
constexpr double PADDING = 12;
constexpr double CORNER_RADIUS = 10;
constexpr double CURSOR_WIDTH = 2;
constexpr double SELECTION_ALPHA = 0.25;

// On, and as long off.
constexpr double BLINK_SECONDS = 0.53;

constexpr const char* BULLET = "•";

/// What others may see of a text.
std::string shownOf(const platform::PlainTextField& field, const std::string& text) {
    if (!field.isSecureTextEntry().value_or(false)) return text;
    std::string bullets;
    for (std::size_t left = platform::characterCount(text); left > 0; --left) bullets += BULLET;
    return bullets;
}

std::size_t offsetOfCharacter(const std::string& text, std::size_t number) {
    std::size_t offset = 0;
    for (; number > 0 && offset < text.size(); --number) {
        offset = platform::characterBoundaryFrom(text, offset + 1);
    }
    return offset;
}

}  // namespace

TextArea::TextArea(platform::PlainTextField& field, platform::RunLoop& runLoop)
    : field_(field), runLoop_(runLoop), tap_([this](const ui::Touch& touch) {
          if (tapHandler_) tapHandler_(characterAt(touch.locationIn(page_)), touch.tapCount());
      }) {
    addSubview(scroll_);
    scroll_.contentView().addSubview(page_);
    tap_.attachTo(*this);
}

void TextArea::refresh() {
    const std::string text = shownOf(field_, field_.text());
    const std::size_t cursor = offsetOfCharacter(text, field_.cursor());
    const std::size_t anchor = offsetOfCharacter(text, field_.anchor());
    const bool sameText = text == text_ && typeset_;
    if (sameText && cursor == cursor_ && anchor == anchor_) return;
    text_ = text;
    anchor_ = anchor;
    cursor_ = cursor;
    if (!sameText) typeset();
    placeCursor();
}

void TextArea::setLook(const Look& look) {
    page_.look = look;
    setNeedsDisplay();
}

void TextArea::layoutSubviews() {
    scroll_.setFrame(bounds().insetBy(1, 1));
    const double width = scroll_.bounds().width - 2 * PADDING;
    if (width != typesetWidth_) typeset();
    const double height = typeset_->height() + 2 * PADDING;
    scroll_.setContentSize({scroll_.bounds().width, height});
    page_.setFrame({0, 0, scroll_.bounds().width, std::max(height, scroll_.bounds().height)});
    placeCursor();
}

void TextArea::typeset() {
    typesetWidth_ = scroll_.bounds().width - 2 * PADDING;
    typeset_.emplace(text_, FONT, std::max(typesetWidth_, 1.0), layouts_);
    page_.text = &*typeset_;
    page_.isEmpty = text_.empty();
    page_.setNeedsDisplay();
    setNeedsLayout();
}

void TextArea::placeCursor() {
    const ui::Rect line = typeset_->cursorAt(cursor_);
    // Blanks at the end of a line may reach beyond it.
    const double x = std::clamp(line.x, 0.0, std::max(typesetWidth_, 0.0)) - CURSOR_WIDTH / 2;
    const ui::Rect cursor{PADDING + x, PADDING + line.y, CURSOR_WIDTH, line.height};
    page_.setCursor(cursor, true);
    page_.selection = selectionRects();
    page_.setNeedsDisplay();
    startBlinking();
    scrollToCursor();
}

/// One rectangle for each character: those of a line need not lie side by side, where scripts mix.
std::vector<ui::Rect> TextArea::selectionRects() const {
    std::vector<ui::Rect> rects;
    const std::size_t end = std::max(cursor_, anchor_);
    for (std::size_t at = std::min(cursor_, anchor_); at < end;) {
        const std::size_t next = platform::characterBoundaryFrom(text_, at + 1);
        const ui::Rect from = typeset_->cursorAt(at);
        const ui::Rect to = typeset_->cursorAt(next);
        at = next;
        if (from.y != to.y) continue;
        rects.push_back(
            {PADDING + std::min(from.x, to.x), PADDING + from.y, std::abs(to.x - from.x), from.height});
    }
    return rects;
}

/// No farther than it takes to see the line.
void TextArea::scrollToCursor() {
    const double lowest = page_.cursor.y - PADDING;
    const double highest = page_.cursor.bottom() + PADDING - scroll_.bounds().height;
    scroll_.setContentOffset({0, std::min(std::max(scroll_.contentOffset().y, highest), lowest)});
}

void TextArea::startBlinking() {
    blinking_ = runLoop_.scheduledTimer(BLINK_SECONDS, true,
                                        [this] { page_.setCursor(page_.cursor, !page_.cursorShown); });
}

std::size_t TextArea::characterAt(ui::Point pointOfPage) const {
    const std::size_t offset = typeset_->offsetAt(pointOfPage - ui::Point{PADDING, PADDING});
    return platform::characterCount(std::string_view(text_).substr(0, offset));
}

std::size_t TextArea::characterLinesOff(int lines) const {
    const ui::Rect cursor = page_.cursor;
    return characterAt({cursor.x, cursor.center().y + lines * cursor.height});
}

ui::Rect TextArea::cursorRect() const {
    return page_.cursor.offsetBy(scroll_.frame().origin() - scroll_.contentOffset());
}

void TextArea::draw(ui::Painter& painter) {
    const ui::Path card = ui::Path::roundedRect(bounds().insetBy(0.5, 0.5), CORNER_RADIUS);
    painter.fill(card, page_.look.card);
    painter.stroke(card, page_.look.line, 1);
}

void TextArea::Page::setCursor(const ui::Rect& rect, bool shown) {
    if (rect != cursor) setNeedsDisplay(cursor);
    cursor = rect;
    cursorShown = shown;
    setNeedsDisplay(cursor);
}

void TextArea::Page::draw(ui::Painter& painter) {
    if (!text) return;
    for (const ui::Rect& rect : selection) painter.fill(rect, look.accent.withAlpha(SELECTION_ALPHA));
    const ui::Rect lines{PADDING, PADDING, bounds().width - 2 * PADDING, text->height()};
    if (isEmpty) {
        painter.drawParagraph(PLACEHOLDER, lines, {FONT, look.quietText, ui::TextAlignment::Left});
    } else {
        painter.drawParagraph(text->drawn(), lines, {FONT, look.text, text->alignment()});
    }
    if (cursorShown) painter.fill(cursor, look.accent);
}

}  // namespace vorpel::playground
