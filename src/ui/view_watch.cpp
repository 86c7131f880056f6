// SPDX-License-Identifier: Apache-2.0
#include "ui/view.h"

// Apart from the views: a compiler that sees both warns of a watch that the view it watched has let go.

namespace vorpel::ui {

ViewWatch::~ViewWatch() {
    if (!view_) return;
    // Nearly always the first one.
    ViewWatch** link = &view_->watches_;
    while (*link != this) link = &(*link)->next_;
    *link = next_;
}

}  // namespace vorpel::ui
