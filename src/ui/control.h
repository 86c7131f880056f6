// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/view.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace vorpel::ui {

/// What happens to a control; values are flags, so that one action can be registered for several.
enum class ControlEvent : unsigned {
    TouchDown = 1U << 0U,
    TouchDownRepeat = 1U << 1U,
    TouchDragInside = 1U << 2U,
    TouchDragOutside = 1U << 3U,
    TouchDragEnter = 1U << 4U,
    TouchDragExit = 1U << 5U,
    TouchUpInside = 1U << 6U,
    TouchUpOutside = 1U << 7U,
    TouchCancel = 1U << 8U,
    ValueChanged = 1U << 12U
};

/// Several events at once.
struct ControlEvents {
    unsigned bits = 0;

    ControlEvents(ControlEvent event) : bits(static_cast<unsigned>(event)) {}  // NOLINT: one is several too
    [[nodiscard]] bool contains(ControlEvent event) const {
        return (bits & static_cast<unsigned>(event)) != 0;
    }
    friend ControlEvents operator|(ControlEvents a, ControlEvents b) {
        a.bits |= b.bits;
        return a;
    }
};

inline ControlEvents operator|(ControlEvent a, ControlEvent b) {
    return ControlEvents(a) | ControlEvents(b);
}

/// Appearance and behaviour of a control at a moment, by flags; Normal is none of them.
enum class ControlState : unsigned { Normal = 0, Highlighted = 1, Disabled = 2, Selected = 4 };

/// A view that turns touches on itself into events for its targets.
class Control : public View {
public:
    using Action = std::function<void(Control& sender)>;

    using View::View;

    /// The action is called for each of the events, after those added before it. The target only marks whose
    /// action it is; the name, which must be a literal, is for those who look for one.
    void addTarget(const void* target, std::string_view name, ControlEvents events, Action action);
    void removeAllTargets() { actions_.clear(); }
    void removeTarget(const void* target);

    /// Calls what is registered for the event. An action may change the control's targets, take the control
    /// out of the tree or destroy it; who goes on after this watches for that with a `ViewWatch`.
    void sendActions(ControlEvent event);

    [[nodiscard]] bool hasTargets() const { return !actions_.empty(); }
    [[nodiscard]] bool hasAction(ControlEvent event, std::string_view name) const;

    [[nodiscard]] bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled);
    [[nodiscard]] bool isHighlighted() const { return highlighted_; }
    void setHighlighted(bool highlighted);
    [[nodiscard]] bool isSelected() const { return selected_; }
    void setSelected(bool selected);

    /// Disabled before highlighted before selected.
    [[nodiscard]] ControlState state() const;

    void touchesBegan(Touches touches) override;
    void touchesMoved(Touches touches) override;
    void touchesEnded(Touches touches) override;
    void touchesCancelled(Touches touches) override;

protected:
    /// The state has changed; as it stands, the control is painted anew.
    virtual void stateChanged() { setNeedsDisplay(); }
    void didMoveToWindow() override;

    /// The finger that held the control was lifted on it; the actions for that follow.
    virtual void tapped() {}

private:
    struct Entry {
        unsigned number;  // rising along the list
        const void* target;
        std::string_view name;
        ControlEvents events;
        std::shared_ptr<const Action> action;  // shared: it may remove itself while it runs
    };

    [[nodiscard]] bool isNear(const Touch& touch) const;

    void stopTracking(ControlEvent last);

    std::vector<Entry> actions_;
    unsigned nextNumber_ = 1;
    Touch* tracked_ = nullptr;  // the finger that holds it; others are passed over
    bool trackedInside_ = false;
    bool enabled_ = true;
    bool highlighted_ = false;
    bool selected_ = false;
};

/// Whether the view is a control or lies in one, which then is what a tap on it is meant for.
[[nodiscard]] bool isInControl(const View* view);

}  // namespace vorpel::ui
