// SPDX-License-Identifier: Apache-2.0
#include "keyboard/settings/default_settings_table_view_cell.h"

#include "ui/painter.h"
#include "ui/path.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace vorpel {

namespace {

constexpr double CORNER_RADIUS = 10;
constexpr double SIDE_MARGIN = 16;

// Title and switch stand side by side; the note has the whole width under both.
constexpr double TITLE_ROW_HEIGHT = 44;
constexpr double NOTE_TOP = 40;
constexpr double NOTE_BOTTOM_MARGIN = 10;

// Of the title's colour, in a row that cannot be turned.
constexpr double DISABLED_ALPHA = 0.4;

}  // namespace

DefaultSettingsTableViewCell::DefaultSettingsTableViewCell(std::string title, std::string note, Place place,
                                                           TurnedHandler turned)
    : place_(place), turned_(std::move(turned)) {
    titleLabel().setText(std::move(title));
    noteLabel().setText(std::move(note));
    auto accessory = std::make_unique<ui::Switch>();
    switch_ = accessory.get();
    switch_->addTarget(this, "settingTurned:", ui::ControlEvent::ValueChanged,
                       [this](ui::Control&) { turned_(switch_->isOn()); });
    setAccessory(std::move(accessory));
}

void DefaultSettingsTableViewCell::show(bool on, bool enabled, ui::Animated animated) {
    switch_->setEnabled(enabled);
    switch_->setOn(on, animated);
    applyColors();
}

void DefaultSettingsTableViewCell::turn() {
    if (!switch_->isEnabled()) return;
    switch_->setOn(!switch_->isOn(), ui::Animated::Yes);
    turned_(switch_->isOn());
}

void DefaultSettingsTableViewCell::setColors(const SettingsColors& colors) {
    if (colors.card != colors_.card) setNeedsDisplay();
    colors_ = colors;
    applyColors();
}

void DefaultSettingsTableViewCell::applyColors() {
    const double alpha = switch_->isEnabled() ? 1 : DISABLED_ALPHA;
    titleLabel().setTextColor(colors_.text.withAlpha(colors_.text.alpha * alpha));
    noteLabel().setTextColor(colors_.quietText);
    switch_->setOnTintColor(colors_.accent);
    switch_->setOffTintColor(colors_.offTrack);
}

/// In whole points, lest a gap shines between two rows of a card.
double DefaultSettingsTableViewCell::heightForWidth(double width, ui::Painter& painter) const {
    if (noteLabel().text().empty()) return TITLE_ROW_HEIGHT;
    const double noteWidth = std::max(0.0, width - 2 * SIDE_MARGIN);
    const double noteHeight =
        painter.measureParagraph(noteLabel().text(), noteWidth, noteLabel().font()).height;
    return std::ceil(NOTE_TOP + noteHeight + NOTE_BOTTOM_MARGIN);
}

void DefaultSettingsTableViewCell::layoutSubviews() {
    const double width = std::max(0.0, bounds().width - 2 * SIDE_MARGIN);
    const ui::Size size = ui::Switch::SIZE;
    // As far from the row's upper edge as from the note.
    const double titleTop = TITLE_ROW_HEIGHT - NOTE_TOP;
    titleLabel().setFrame(
        {SIDE_MARGIN, titleTop, std::max(0.0, width - size.width - SIDE_MARGIN), NOTE_TOP - titleTop});
    switch_->setFrame(
        {SIDE_MARGIN + width - size.width, (TITLE_ROW_HEIGHT - size.height) / 2, size.width, size.height});
    noteLabel().setFrame(
        {SIDE_MARGIN, NOTE_TOP, width, std::max(0.0, bounds().height - NOTE_TOP - NOTE_BOTTOM_MARGIN)});
}

void DefaultSettingsTableViewCell::draw(ui::Painter& painter) {
    // Corners that the row does not have fall outside it.
    const double above = place_.first ? 0 : CORNER_RADIUS;
    const double below = place_.last ? 0 : CORNER_RADIUS;
    painter.save();
    painter.clip(bounds());
    painter.fill(ui::Path::roundedRect(bounds().insetBy({-above, 0, -below, 0}), CORNER_RADIUS),
                 colors_.card);
    painter.restore();
    TableCell::draw(painter);
}

}  // namespace vorpel
