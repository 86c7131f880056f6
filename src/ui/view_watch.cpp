// SPDX-License-Identifier: Apache-2.0
#include "ui/view.h"

namespace vorpel::ui {

ViewWatch::~ViewWatch() {
    if (!view_) return;
    // Nearly always the first one.
    ViewWatch** link = &view_->watches_;
    while (*link != this) link = &(*link)->next_;
    *link = next_;
}

}  // namespace vorpel::ui
