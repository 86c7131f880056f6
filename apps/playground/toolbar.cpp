// SPDX-License-Identifier: Apache-2.0
#include "toolbar.h"

#include "ui/painter.h"
#include "ui/path.h"

#include <memory>
#include <utility>

namespace vorpel::playground {

namespace {

constexpr std::array CAPTIONS{"Field", "Return key", "Look", "Theme", "Held", "Language", "Settings"};

constexpr double MARGIN = 12;
constexpr double GAP = 8;
constexpr double CHIP_HEIGHT = 44;
constexpr double CORNER_RADIUS = 10;
constexpr double LEAST_CHIP_WIDTH = 76;
constexpr double LEAST_TEXT_SCALE = 0.6;

// The lines of a chip, from its upper edge.
constexpr double CAPTION_TOP = 5;
constexpr double CAPTION_HEIGHT = 15;
constexpr double VALUE_TOP = 19;
constexpr double VALUE_HEIGHT = 21;
constexpr double TEXT_INSET = 8;
constexpr ui::Font CAPTION_FONT{11, ui::FontWeight::Regular};
constexpr ui::Font VALUE_FONT{15, ui::FontWeight::Medium};

std::size_t columnsFor(double width) {
    const std::size_t all = CAPTIONS.size();
    const double needed = static_cast<double>(all) * (LEAST_CHIP_WIDTH + GAP) - GAP + 2 * MARGIN;
    return width >= needed ? all : (all + 1) / 2;
}

}  // namespace

Toolbar::Toolbar(std::function<void(Choice)> handler) {
    const auto shared = std::make_shared<std::function<void(Choice)>>(std::move(handler));
    for (std::size_t index = 0; index < COUNT; ++index) {
        chips_[index].caption = CAPTIONS.at(index);
        chips_[index].addTarget(this, "chosen", ui::ControlEvent::TouchUpInside,
                                [shared, index](ui::Control&) { (*shared)(static_cast<Choice>(index)); });
        addSubview(chips_[index]);
    }
}

void Toolbar::setValue(Choice choice, const std::string& value) {
    Chip& chip = chips_.at(indexOf(choice));
    if (chip.value == value) return;
    chip.value = value;
    chip.setNeedsDisplay();
}

void Toolbar::setLook(const Look& look) {
    for (Chip& chip : chips_) {
        chip.look = look;
        chip.setNeedsDisplay();
    }
}

double Toolbar::heightFor(double width) {
    const double rows = columnsFor(width) < COUNT ? 2 : 1;
    return MARGIN + rows * (CHIP_HEIGHT + GAP) - GAP + MARGIN;
}

void Toolbar::layoutSubviews() {
    const std::size_t columns = columnsFor(bounds().width);
    const auto count = static_cast<double>(columns);
    const double width = (bounds().width - 2 * MARGIN - (count - 1) * GAP) / count;
    for (std::size_t index = 0; index < COUNT; ++index) {
        const auto column = static_cast<double>(index % columns);
        const auto row = static_cast<double>(index / columns);
        chips_[index].setFrame(
            {MARGIN + column * (width + GAP), MARGIN + row * (CHIP_HEIGHT + GAP), width, CHIP_HEIGHT});
    }
}

void Toolbar::Chip::draw(ui::Painter& painter) {
    const ui::Path card = ui::Path::roundedRect(bounds().insetBy(0.5, 0.5), CORNER_RADIUS);
    painter.fill(card, isHighlighted() ? look.pressedCard : look.card);
    painter.stroke(card, look.line, 1);
    const double width = bounds().width - 2 * TEXT_INSET;
    painter.drawText(caption, {TEXT_INSET, CAPTION_TOP, width, CAPTION_HEIGHT},
                     {CAPTION_FONT, look.quietText, ui::TextAlignment::Center, LEAST_TEXT_SCALE});
    painter.drawText(value, {TEXT_INSET, VALUE_TOP, width, VALUE_HEIGHT},
                     {VALUE_FONT, look.text, ui::TextAlignment::Center, LEAST_TEXT_SCALE});
}

}  // namespace vorpel::playground
