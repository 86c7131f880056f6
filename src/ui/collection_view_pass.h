// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/collection_view.h"

namespace vorpel::ui {

/// One laying out of a collection view, during which its host is called. It lives on the stack, and tells
/// after each call whether there is something to go on with.
class CollectionView::LayoutPass {
public:
    explicit LayoutPass(CollectionView& view) : view_(view), watch_(view) { view.layingOut_ = true; }
    ~LayoutPass() {
        if (watch_.isAlive()) view_.layingOut_ = false;
    }
    LayoutPass(const LayoutPass&) = delete;
    LayoutPass& operator=(const LayoutPass&) = delete;

    [[nodiscard]] bool isViewAlive() const { return watch_.isAlive(); }

    /// The view lives, and shows what it showed when the pass began.
    [[nodiscard]] bool goesOn() const { return watch_.isAlive() && !view_.needsReload_; }

private:
    CollectionView& view_;
    ViewWatch watch_;
};

}  // namespace vorpel::ui
