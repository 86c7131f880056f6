// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/notification_center.h"
#include "platform/run_loop.h"
#include "ui/control.h"
#include "ui/touch.h"
#include "ui/view.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace vorpel {

/// Which way a finger moves.
enum class SwipeDirection { Left = 0, Right = 1 };

/// The one view that takes the touches of a keyboard. It gives each finger the key that is nearest to it and
/// sends that key its control events, so that a touch between keys still hits one, a finger rolls from key to
/// key, and several fingers type at once. The key views are its subviews. Main thread only; the run loop and
/// the notification centre must outlive it.
class ForwardingView : public ui::View {
public:
    ForwardingView(platform::RunLoop& runLoop, platform::NotificationCenter& notificationCenter);

    /// This view and never a subview: the keys get their touches from here.
    [[nodiscard]] ui::View* hitTest(ui::Point point) override;

    void touchesBegan(ui::Touches touches) override;
    void touchesMoved(ui::Touches touches) override;
    void touchesEnded(ui::Touches touches) override;
    void touchesCancelled(ui::Touches touches) override;

    /// Sends the view, if it is a control, the event. Null is passed over.
    virtual void handleControl(ui::View* view, ui::ControlEvent controlEvent);

    /// The visible key nearest to a point, the earlier of two; null outside the bounds.
    virtual ui::View* findNearestView(ui::Point position);

    /// 0 within the rectangle.
    [[nodiscard]] virtual double distanceBetween(const ui::Rect& rect, ui::Point point) const;

    /// Gives the touch the view, and tells whether it was taken from another one. Null takes away what it
    /// had.
    virtual bool ownView(const ui::Touch* newTouch, ui::View* viewToOwn);

    /// Every key that is held is told that its touch is cancelled.
    virtual void resetTrackedViews();

    /// How many touches own a key.
    [[nodiscard]] std::size_t ownedTouchCount() const { return touchToView_.size(); }

    [[nodiscard]] virtual bool isBackspaceButton(const ui::View* view) const;
    [[nodiscard]] virtual bool isSpaceButton(const ui::View* view) const;

    // For subclasses that move the cursor by a swipe; nothing here starts them.

    /// The square of the distance over the time: the offsets rest on it.
    [[nodiscard]] virtual double getVelocity(ui::Point initialPoint, ui::Point finalPoint, double time) const;
    [[nodiscard]] virtual SwipeDirection getDirectionWithHorizontal(ui::Point initialPoint,
                                                                    ui::Point finalPoint) const;

    /// By how many characters, from 1 to 20.
    [[nodiscard]] virtual int getOffsetForVelocity(double velocity) const;
    virtual void performCursorMovement(double currentTime, ui::Point currentLoc);

protected:
    /// The rest of the touches will not be told here.
    void didMoveToWindow() override;

    /// The key that the touch owns, or null.
    [[nodiscard]] ui::View* viewOf(const ui::Touch* touch) const;

    // A subclass may time a press: a short one on the key it times opens the emoji keyboard.
    bool timerOn = false;
    platform::Timer timer;
    std::optional<double> startTime;

    std::vector<double> velocityArray;
    std::optional<ui::Point> cachedLocation;
    std::optional<double> previousTime;

private:
    void endTouch(const ui::Touch& touch, ui::View* view);
    void endTimedPress(ui::View* view);

    platform::RunLoop& runLoop_;
    platform::NotificationCenter& notificationCenter_;
    std::unordered_map<const ui::Touch*, ui::View*> touchToView_;
};

}  // namespace vorpel
