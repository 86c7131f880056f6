// SPDX-License-Identifier: Apache-2.0
#include "ui/collection_view_layout.h"

#include <utility>

namespace vorpel::ui {

CollectionViewLayout::~CollectionViewLayout() {
    if (source_) source_->layoutLeft();
}

void CollectionViewLayout::setSource(CollectionViewLayoutSource* source) {
    if (source == source_) return;
    CollectionViewLayoutSource* const former = std::exchange(source_, source);
    if (former) former->layoutLeft();
    prepared_ = false;
}

void CollectionViewLayout::prepareIfNeeded() {
    // Before the work: who invalidates the layout while it is computed has it computed once more.
    if (!std::exchange(prepared_, true)) prepareLayout();
}

void CollectionViewLayout::invalidateLayout() {
    prepared_ = false;
    if (source_) source_->layoutInvalidated();
}

}  // namespace vorpel::ui
