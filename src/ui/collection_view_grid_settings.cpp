// SPDX-License-Identifier: Apache-2.0
#include "ui/collection_view_grid_layout.h"

#include <algorithm>
#include <cmath>

// What the grid layout is told, by its host for all sections and by its delegate for one.

namespace vorpel::ui {

void CollectionViewGridLayout::setNumberOfItemsPerLine(int count) {
    itemsPerLine_ = count;
    invalidateLayout();
}

void CollectionViewGridLayout::setAspectRatio(double ratio) {
    aspectRatio_ = ratio;
    invalidateLayout();
}

void CollectionViewGridLayout::setSectionInset(const EdgeInsets& inset) {
    sectionInset_ = inset;
    invalidateLayout();
}

void CollectionViewGridLayout::setInteritemSpacing(double spacing) {
    interitemSpacing_ = spacing;
    invalidateLayout();
}

void CollectionViewGridLayout::setLineSpacing(double spacing) {
    lineSpacing_ = spacing;
    invalidateLayout();
}

void CollectionViewGridLayout::setScrollDirection(ScrollDirection direction) {
    direction_ = direction;
    invalidateLayout();
}

void CollectionViewGridLayout::setHeaderReferenceLength(double length) {
    headerLength_ = length;
    invalidateLayout();
}

void CollectionViewGridLayout::setFooterReferenceLength(double length) {
    footerLength_ = length;
    invalidateLayout();
}

template <typename Value>
Value CollectionViewGridLayout::ask(Question<Value> question, int section, Value setting) {
    CollectionViewLayoutDelegate* const any = source() ? source()->layoutDelegate() : nullptr;
    auto* const delegate = dynamic_cast<CollectionViewGridLayoutDelegate*>(any);
    return delegate ? (delegate->*question)(*this, section).value_or(setting) : setting;
}

EdgeInsets CollectionViewGridLayout::sectionInsetForSection(int section) {
    return ask(&CollectionViewGridLayoutDelegate::sectionInsetForSection, section, sectionInset_);
}

double CollectionViewGridLayout::lineSpacingForSection(int section) {
    return ask(&CollectionViewGridLayoutDelegate::lineSpacingForSection, section, lineSpacing_);
}

double CollectionViewGridLayout::interitemSpacingForSection(int section) {
    return ask(&CollectionViewGridLayoutDelegate::interitemSpacingForSection, section, interitemSpacing_);
}

double CollectionViewGridLayout::headerLengthForSection(int section) {
    return std::max(0.0,
                    ask(&CollectionViewGridLayoutDelegate::headerLengthForSection, section, headerLength_));
}

double CollectionViewGridLayout::footerLengthForSection(int section) {
    return std::max(0.0,
                    ask(&CollectionViewGridLayoutDelegate::footerLengthForSection, section, footerLength_));
}

int CollectionViewGridLayout::numberOfItemsPerLineForSection(int section) {
    return std::max(
        1, ask(&CollectionViewGridLayoutDelegate::numberOfItemsPerLineForSection, section, itemsPerLine_));
}

double CollectionViewGridLayout::aspectRatioForSection(int section) {
    const double ratio = ask(&CollectionViewGridLayoutDelegate::aspectRatioForSection, section, aspectRatio_);
    return ratio > 0 && std::isfinite(ratio) ? ratio : 1;
}

}  // namespace vorpel::ui
