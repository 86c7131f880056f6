// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::ui {

class Window;

enum class Actions { Enabled, Disabled };

/// A group of changes to the views of a window, from construction to `commit`. While one with disabled
/// actions is open, however deep others lie in it, an animation that starts in the window applies its end at
/// once. The window must outlive it.
class Transaction {
public:
    /// Without a window nothing is on show, and the transaction has nothing to do.
    explicit Transaction(Window* window, Actions actions = Actions::Enabled);
    ~Transaction() { commit(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Closes it; the destructor does so at the latest.
    void commit();

private:
    Window* window_;  // that this one disables; null once closed
};

}  // namespace vorpel::ui
