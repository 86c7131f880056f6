// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::ui {

class Touch;
class View;

/// Watches the touches on a view and on all that is in it, before the views themselves are told. It belongs
/// to whoever made it; recognizer and view may go in either order. Main thread only.
class GestureRecognizer {
public:
    GestureRecognizer() = default;
    virtual ~GestureRecognizer();
    GestureRecognizer(const GestureRecognizer&) = delete;
    GestureRecognizer& operator=(const GestureRecognizer&) = delete;

    /// Watches touches that begin from here on; leaves the view it was attached to.
    void attachTo(View& view);
    void detach();
    [[nodiscard]] View* view() const { return view_; }

protected:
    // A touch may be cancelled, moved or ended without ever having begun here: pass over unknown ones.

    virtual void touchBegan(Touch& touch) = 0;
    virtual void touchMoved(Touch& touch) = 0;
    virtual void touchEnded(Touch& touch) = 0;
    virtual void touchCancelled(Touch& touch) = 0;

    /// The view left the window, or the recognizer left the view: no touch will be told of any more.
    virtual void reset() = 0;

    /// From here on the touch is told to this recognizer alone; for the view and the others it is cancelled.
    void claim(Touch& touch);

    /// As `claim`, but for those that may yet claim the touch themselves.
    void hold(Touch& touch);

    /// Whether what another recognizer holds can still become this one's.
    [[nodiscard]] virtual bool mayClaimHeld() const { return false; }

private:
    friend class View;
    friend class Window;
    bool leaveView();

    View* view_ = nullptr;
};

}  // namespace vorpel::ui
