// SPDX-License-Identifier: Apache-2.0
#include "ui/collection_view_grid_layout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorpel::ui {

namespace {

struct Range {
    int first = 0;
    int end = 0;
};

/// As an index from 0 to `count`; what is no number counts as 0.
int indexFrom(double place, int count) {
    if (!(place > 0)) return 0;
    return place < count ? static_cast<int>(place) : count;
}

/// Which of `count` lines, one every `stride` points and each `length` long, may lie between two places. One
/// further at either end, for sums of fractions are not exact.
Range linesBetween(double from, double to, double stride, double length, int count) {
    if (!(stride > 0)) return {0, count};
    return {indexFrom(std::floor((from - length) / stride) - 1, count),
            indexFrom(std::ceil(to / stride) + 1, count)};
}

}  // namespace

void CollectionViewGridLayout::prepareLayout() {
    const CollectionViewLayoutSource* const shown = source();
    bounds_ = shown ? shown->layoutBounds().size() : Size{};
    const int count = shown ? std::max(0, shown->layoutSectionCount()) : 0;
    std::vector<Section> sections;
    sections.reserve(static_cast<std::size_t>(count));
    for (int section = 0; section < count; ++section) sections.push_back(readSection(section));
    sections_ = std::move(sections);
    calculateContentSize();
    calculateLayoutAttributes();
}

CollectionViewGridLayout::Section CollectionViewGridLayout::readSection(int section) {
    Section read;
    read.items = std::max(0, source()->layoutItemCount(section));
    read.itemsPerLine = numberOfItemsPerLineForSection(section);
    read.aspectRatio = aspectRatioForSection(section);
    read.inset = sectionInsetForSection(section);
    read.lineSpacing = lineSpacingForSection(section);
    read.interitemSpacing = interitemSpacingForSection(section);
    read.headerLength = headerLengthForSection(section);
    read.footerLength = footerLengthForSection(section);
    read.cellSize = cellSizeInSection(read);
    return read;
}

void CollectionViewGridLayout::calculateContentSize() {
    contentLength_ = 0;
    for (Section& section : sections_) {
        section.start = contentLength_;
        contentLength_ += contentLengthForSection(section);
    }
}

void CollectionViewGridLayout::calculateLayoutAttributes() {
    for (int i = 0; i < static_cast<int>(sections_.size()); ++i) {
        Section& section = sections_[static_cast<std::size_t>(i)];
        section.header = headerAttributesForIndexPath({i, 0});
        section.cells = layoutAttributesForItemsInSection(i);
        section.footer = footerAttributesForIndexPath({i, 0});
    }
}

double CollectionViewGridLayout::usableSpaceInSection(const Section& section) const {
    const EdgeInsets& inset = section.inset;
    const double insets = isVertical() ? inset.left + inset.right : inset.top + inset.bottom;
    const double gaps = section.interitemSpacing * (section.itemsPerLine - 1.0);
    return std::max(0.0, across(bounds_) - insets - gaps);
}

Size CollectionViewGridLayout::cellSizeInSection(const Section& section) const {
    const double length = usableSpaceInSection(section) / section.itemsPerLine;
    if (isVertical()) return {length, length / section.aspectRatio};
    return {length * section.aspectRatio, length};
}

int CollectionViewGridLayout::rowsInSection(const Section& section) {
    return section.items / section.itemsPerLine + (section.items % section.itemsPerLine > 0 ? 1 : 0);
}

double CollectionViewGridLayout::lengthwiseInsetLengthInSection(const Section& section) const {
    const EdgeInsets& inset = section.inset;
    return isVertical() ? inset.top + inset.bottom : inset.left + inset.right;
}

double CollectionViewGridLayout::contentLengthForSection(const Section& section) const {
    const int rows = rowsInSection(section);
    return rows * along(section.cellSize) + std::max(0, rows - 1) * section.lineSpacing +
           lengthwiseInsetLengthInSection(section) + section.headerLength + section.footerLength;
}

double CollectionViewGridLayout::startOfCells(const Section& section) const {
    return section.start + section.headerLength + (isVertical() ? section.inset.top : section.inset.left);
}

double CollectionViewGridLayout::acrossInset(const Section& section) const {
    return isVertical() ? section.inset.left : section.inset.top;
}

Rect CollectionViewGridLayout::rectAt(double along, double across, Size size) const {
    if (isVertical()) return {across, along, size.width, size.height};
    return {along, across, size.width, size.height};
}

Rect CollectionViewGridLayout::frameForItemAtIndexPath(const IndexPath& path) const {
    const Section& section = sections_[static_cast<std::size_t>(path.section)];
    const int row = path.item / section.itemsPerLine;
    const int column = path.item % section.itemsPerLine;
    return rectAt(
        startOfCells(section) + row * along(section.cellSize) + row * section.lineSpacing,
        acrossInset(section) + column * across(section.cellSize) + column * section.interitemSpacing,
        section.cellSize);
}

LayoutAttributes CollectionViewGridLayout::layoutAttributesForCellAtIndexPath(const IndexPath& path) const {
    return {path, std::nullopt, frameForItemAtIndexPath(path)};
}

std::vector<LayoutAttributes> CollectionViewGridLayout::layoutAttributesForItemsInSection(int section) const {
    std::vector<LayoutAttributes> cells;
    const int items = sections_[static_cast<std::size_t>(section)].items;
    cells.reserve(static_cast<std::size_t>(items));
    for (int i = 0; i < items; ++i) cells.push_back(layoutAttributesForCellAtIndexPath({section, i}));
    return cells;
}

std::optional<LayoutAttributes> CollectionViewGridLayout::headerAttributesForIndexPath(
    const IndexPath& path) const {
    const Section& section = sections_[static_cast<std::size_t>(path.section)];
    if (!(section.headerLength > 0)) return std::nullopt;
    return supplementaryAttributes(SupplementaryKind::Header, path.section, section.start,
                                   section.headerLength);
}

std::optional<LayoutAttributes> CollectionViewGridLayout::footerAttributesForIndexPath(
    const IndexPath& path) const {
    const Section& section = sections_[static_cast<std::size_t>(path.section)];
    if (!(section.footerLength > 0)) return std::nullopt;
    const double end = section.start + contentLengthForSection(section);
    return supplementaryAttributes(SupplementaryKind::Footer, path.section, end - section.footerLength,
                                   section.footerLength);
}

LayoutAttributes CollectionViewGridLayout::supplementaryAttributes(SupplementaryKind kind, int section,
                                                                   double start, double length) const {
    const double whole = across(bounds_);
    const Size size = isVertical() ? Size{whole, length} : Size{length, whole};
    return {{section, 0}, kind, rectAt(start, 0, size)};
}

Size CollectionViewGridLayout::collectionViewContentSize() {
    prepareIfNeeded();
    const double length = std::max(0.0, contentLength_);
    return isVertical() ? Size{bounds_.width, length} : Size{length, bounds_.height};
}

std::vector<LayoutAttributes> CollectionViewGridLayout::layoutAttributesForElementsInRect(const Rect& rect) {
    prepareIfNeeded();
    std::vector<LayoutAttributes> found;
    for (const Section& section : sections_) {
        if (section.header && section.header->frame.intersects(rect)) found.push_back(*section.header);
        addCellsInRect(section, rect, found);
        if (section.footer && section.footer->frame.intersects(rect)) found.push_back(*section.footer);
    }
    return found;
}

void CollectionViewGridLayout::addCellsInRect(const Section& section, const Rect& rect,
                                              std::vector<LayoutAttributes>& found) const {
    const bool vertical = isVertical();
    const double length = along(section.cellSize);
    const double width = across(section.cellSize);
    const double top = (vertical ? rect.y : rect.x) - startOfCells(section);
    const double left = (vertical ? rect.x : rect.y) - acrossInset(section);
    const Range rows = linesBetween(top, top + along(rect.size()), length + section.lineSpacing, length,
                                    rowsInSection(section));
    const Range columns = linesBetween(left, left + across(rect.size()), width + section.interitemSpacing,
                                       width, section.itemsPerLine);
    for (int row = rows.first; row < rows.end; ++row) {
        const int first = row * section.itemsPerLine;
        const int end = std::min(columns.end, section.items - first);
        for (int column = columns.first; column < end; ++column) {
            const LayoutAttributes& cell = section.cells[static_cast<std::size_t>(first + column)];
            if (cell.frame.intersects(rect)) found.push_back(cell);
        }
    }
}

const CollectionViewGridLayout::Section* CollectionViewGridLayout::findSection(int section) const {
    if (section < 0 || section >= static_cast<int>(sections_.size())) return nullptr;
    return &sections_[static_cast<std::size_t>(section)];
}

std::optional<LayoutAttributes> CollectionViewGridLayout::layoutAttributesForItemAtIndexPath(
    const IndexPath& path) {
    prepareIfNeeded();
    const Section* const section = findSection(path.section);
    if (!section || path.item < 0 || path.item >= section->items) return std::nullopt;
    return section->cells[static_cast<std::size_t>(path.item)];
}

std::optional<LayoutAttributes> CollectionViewGridLayout::layoutAttributesForSupplementaryViewOfKind(
    SupplementaryKind kind, const IndexPath& path) {
    prepareIfNeeded();
    const Section* const section = findSection(path.section);
    if (!section) return std::nullopt;
    return kind == SupplementaryKind::Header ? section->header : section->footer;
}

bool CollectionViewGridLayout::shouldInvalidateLayoutForBoundsChange(const Rect& newBounds) {
    return source() && newBounds.size() != source()->layoutBounds().size();
}

}  // namespace vorpel::ui
