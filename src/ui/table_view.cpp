// SPDX-License-Identifier: Apache-2.0
#include "ui/table_view.h"

#include "ui/control.h"
#include "ui/painter.h"
#include "ui/touch.h"
#include "ui/window.h"

#include <algorithm>
#include <utility>

namespace vorpel::ui {

namespace {

constexpr double SIDE_MARGIN = 16;
constexpr double TITLE_TOP = 20;
constexpr double TITLE_HEIGHT = 20;
constexpr double TITLE_GAP = 6;
constexpr double FOOTER_GAP = 6;
constexpr double SECTION_GAP = 12;
constexpr double TEXT_SIZE = 13;

}  // namespace

TableView::TableView(const Rect& frame)
    : ScrollView(frame), tap_([this](const Touch& touch) { tapped(touch); }) {
    setAlwaysBounceVertical(true);
    tap_.setShouldReceive([](const Touch& touch) { return !isInControl(touch.view()); });
    tap_.attachTo(*this);
}

void TableView::setDataSource(TableDataSource* source) {
    source_ = source;
    reloadData();
}

void TableView::reloadData() {
    sections_.clear();
    const std::size_t count = source_ ? source_->sectionCount() : 0;
    for (std::size_t index = 0; index < count; ++index) {
        Section& section = sections_.emplace_back();
        section.title = makeSectionLabel(source_->sectionTitle(index));
        for (std::size_t row = 0; row < source_->rowCount(index); ++row) {
            section.cells.push_back(source_->makeCell({index, row}));
            contentView().addSubview(*section.cells.back());
        }
        section.footer = makeSectionLabel(source_->sectionFooter(index));
        section.footer->setWraps(true);
    }
    applyColors();
    setNeedsLayout();
}

std::unique_ptr<Label> TableView::makeSectionLabel(std::string text) {
    auto label = std::make_unique<Label>();
    label->setFont({TEXT_SIZE, FontWeight::Regular});
    label->setText(std::move(text));
    contentView().addSubview(*label);
    return label;
}

void TableView::setColors(const TableColors& colors) {
    if (colors == colors_) return;
    colors_ = colors;
    applyColors();
}

void TableView::setSideInset(double inset) {
    if (inset == sideInset_) return;
    sideInset_ = inset;
    setNeedsLayout();
}

void TableView::applyColors() {
    for (const Section& section : sections_) {
        section.title->setTextColor(colors_.sectionText);
        section.footer->setTextColor(colors_.sectionText);
        for (const auto& cell : section.cells) {
            cell->setBackgroundColor(colors_.cell);
            const bool last = cell == section.cells.back();
            cell->setSeparatorColor(last ? Color::clear() : colors_.separator);
        }
    }
}

TableCell* TableView::cellForRow(const RowPath& path) const {
    if (path.section >= sections_.size()) return nullptr;
    const auto& cells = sections_[path.section].cells;
    return path.row < cells.size() ? cells[path.row].get() : nullptr;
}

void TableView::layoutSubviews() {
    Painter* const painter = window() ? window()->painter() : nullptr;
    if (!painter) return setNeedsLayout();
    double bottom = 0;
    for (Section& section : sections_) bottom = layoutSection(section, bottom, *painter) + SECTION_GAP;
    setContentSize({bounds().width, bottom});
    ScrollView::layoutSubviews();
}

double TableView::layoutSection(Section& section, double top, Painter& painter) {
    const double width = std::max(0.0, bounds().width - 2 * sideInset_);
    const double textLeft = sideInset_ + SIDE_MARGIN;
    const double textWidth = width - 2 * SIDE_MARGIN;
    if (!section.title->text().empty()) {
        section.title->setFrame({textLeft, top + TITLE_TOP, textWidth, TITLE_HEIGHT});
        top += TITLE_TOP + TITLE_HEIGHT + TITLE_GAP;
    }
    for (const auto& cell : section.cells) {
        const double height = cell->heightForWidth(width, painter);
        cell->setFrame({sideInset_, top, width, height});
        top += height;
    }
    const Label& footer = *section.footer;
    if (footer.text().empty()) return top;
    const double height = painter.measureParagraph(footer.text(), textWidth, footer.font()).height;
    section.footer->setFrame({textLeft, top + FOOTER_GAP, textWidth, height});
    return top + FOOTER_GAP + height;
}

void TableView::tapped(const Touch& touch) {
    if (!source_) return;
    const Point place = touch.locationIn(contentView());
    for (std::size_t index = 0; index < sections_.size(); ++index) {
        const auto& cells = sections_[index].cells;
        for (std::size_t row = 0; row < cells.size(); ++row) {
            if (cells[row]->frame().contains(place)) return source_->rowTapped({index, row});
        }
    }
}

}  // namespace vorpel::ui
