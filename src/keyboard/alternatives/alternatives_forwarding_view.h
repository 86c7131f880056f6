// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/alternatives/alternatives_row.h"
#include "keyboard/controller/forwarding_view.h"
#include "keyboard/keys/keyboard_key.h"

#include <optional>
#include <string>
#include <vector>

namespace vorpel {

/// What a key offers while it is held.
struct AlternativesOffer {
    std::vector<std::string> texts;  ///< as they would be typed now; the key's own first
    AlternativesRow::Look look;
    ui::View& layer;  ///< over all keys; fills the room that there is for a row
};

/// Who knows what keys offer, and types it.
class AlternativesSource {
public:
    virtual ~AlternativesSource() = default;

    /// Nothing for a key without alternatives, or where none may be shown.
    [[nodiscard]] virtual std::optional<AlternativesOffer> offerOf(const KeyboardKey& key) = 0;
    virtual void enterAlternative(const std::string& text) = 0;
};

/// Takes the touches of the keys, and opens a row of alternatives over a key that a finger rests on. While
/// the row is open that finger moves in it alone; other fingers go on typing. One row at a time: of two
/// fingers that come down, the later one is waited for. Main thread only; all that it is made with must
/// outlive it.
class AlternativesForwardingView final : public ForwardingView {
public:
    /// How long a finger rests on a key until the row opens, in seconds.
    static constexpr double HOLD = 0.35;

    AlternativesForwardingView(platform::RunLoop& runLoop, platform::NotificationCenter& notificationCenter,
                               AlternativesSource& source);

    /// The row on show, or null.
    [[nodiscard]] const AlternativesRow* row() const { return row_.superview() ? &row_ : nullptr; }

    /// What the held key offers may have changed; an open row follows.
    void offerChanged();

    void touchesBegan(ui::Touches touches) override;
    void touchesMoved(ui::Touches touches) override;
    void touchesEnded(ui::Touches touches) override;
    void touchesCancelled(ui::Touches touches) override;
    bool ownView(const ui::Touch* newTouch, ui::View* viewToOwn) override;
    void resetTrackedViews() override;

private:
    struct Hold {
        const ui::Touch* touch;
        KeyboardKey* key;
        ui::Point openedAt;  ///< where the finger was when the row opened
    };

    [[nodiscard]] bool isHolding(const ui::Touch* touch) const { return hold_ && hold_->touch == touch; }
    void beginHold(const ui::Touch* touch);
    void endHold();
    void openRow();
    bool fillRow();
    void leaveRow(const ui::Touch& touch);

    platform::RunLoop& runLoop_;
    AlternativesSource& source_;
    AlternativesRow row_;
    std::optional<Hold> hold_;
    platform::Timer holdTimer_;
};

}  // namespace vorpel
