// SPDX-License-Identifier: Apache-2.0
#include "ui/transaction.h"

#include "ui/window.h"

#include <utility>

namespace vorpel::ui {

Transaction::Transaction(Window* window, Actions actions)
    : window_(actions == Actions::Disabled ? window : nullptr) {
    if (window_) ++window_->disabledActions_;
}

void Transaction::commit() {
    if (Window* const window = std::exchange(window_, nullptr)) --window->disabledActions_;
}

}  // namespace vorpel::ui
