// SPDX-License-Identifier: Apache-2.0
#include "ui/table_cell.h"

#include "ui/painter.h"

#include <algorithm>
#include <utility>

namespace vorpel::ui {

namespace {

constexpr double LEAST_HEIGHT = 44;
constexpr double SIDE_MARGIN = 16;
constexpr double EDGE_MARGIN = 8;
constexpr double NOTE_GAP = 2;
constexpr double SEPARATOR_HEIGHT = 0.5;

// Of the font's size; room for the marks of every script.
constexpr double LINE_HEIGHT = 1.5;

}  // namespace

TableCell::TableCell() {
    title_.setFont({17, FontWeight::Regular});
    title_.setAdjustsFontSizeToFitWidth(true);
    note_.setFont({13, FontWeight::Regular});
    note_.setTextColor(Color::rgb(0.43, 0.43, 0.45));
    note_.setWraps(true);
    addSubview(title_);
    addSubview(note_);
}

void TableCell::setAccessory(std::unique_ptr<View> accessory) {
    accessory_ = std::move(accessory);
    if (accessory_) addSubview(*accessory_);
    setNeedsLayout();
}

void TableCell::setSeparatorColor(const Color& color) {
    if (color == separatorColor_) return;
    separatorColor_ = color;
    setNeedsDisplay();
}

double TableCell::textWidth(double width) const {
    const double accessoryWidth = accessory_ ? accessory_->frame().width + SIDE_MARGIN : 0;
    return std::max(0.0, width - 2 * SIDE_MARGIN - accessoryWidth);
}

double TableCell::titleHeight() const {
    return title_.font().size * LINE_HEIGHT;
}

double TableCell::heightForWidth(double width, Painter& painter) const {
    double height = titleHeight() + 2 * EDGE_MARGIN;
    if (!note_.text().empty()) {
        height += NOTE_GAP + painter.measureParagraph(note_.text(), textWidth(width), note_.font()).height;
    }
    if (accessory_) height = std::max(height, accessory_->frame().height + 2 * EDGE_MARGIN);
    return std::max(LEAST_HEIGHT, height);
}

void TableCell::layoutSubviews() {
    const double width = textWidth(bounds().width);
    const bool alone = note_.text().empty();
    const double top = alone ? (bounds().height - titleHeight()) / 2 : EDGE_MARGIN;
    title_.setFrame({SIDE_MARGIN, top, width, titleHeight()});
    const double noteTop = top + titleHeight() + NOTE_GAP;
    note_.setFrame({SIDE_MARGIN, noteTop, width, std::max(0.0, bounds().height - EDGE_MARGIN - noteTop)});
    if (!accessory_) return;
    const Size size = accessory_->frame().size();
    accessory_->setFrame({bounds().width - SIDE_MARGIN - size.width, (bounds().height - size.height) / 2,
                          size.width, size.height});
}

void TableCell::draw(Painter& painter) {
    View::draw(painter);
    if (separatorColor_.isClear()) return;
    painter.fill(
        Rect{SIDE_MARGIN, bounds().height - SEPARATOR_HEIGHT, bounds().width - SIDE_MARGIN, SEPARATOR_HEIGHT},
        separatorColor_);
}

}  // namespace vorpel::ui
