// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"

#include <vector>

namespace vorpel::ui {

class GestureRecognizer;
class View;

/// One finger, or the mouse, from down to up. The window owns it; the same object comes with each event.
class Touch {
public:
    /// In the view's points.
    [[nodiscard]] Point locationIn(const View& view) const;
    [[nodiscard]] Point previousLocationIn(const View& view) const;

    [[nodiscard]] Point locationInWindow() const { return location_; }

    /// 1 for the first; one more for each that comes down soon after, near the one before.
    [[nodiscard]] int tapCount() const { return tapCount_; }

    /// On the run loop's clock, of the latest event.
    [[nodiscard]] double timestamp() const { return timestamp_; }

    /// The view that was hit, or null once it has left the window. What comes after goes to the view that it
    /// was in.
    [[nodiscard]] View* view() const { return view_; }

private:
    friend class Window;
    int finger_ = 0;
    Point location_;
    Point previousLocation_;
    double timestamp_ = 0;
    int tapCount_ = 1;
    bool ended_ = false;
    bool told_ = false;  // the receiver knows of it
    View* view_ = nullptr;
    View* receiver_ = nullptr;
    /// Those of the view and of all it is in, innermost first; null where one has dropped out.
    std::vector<GestureRecognizer*> recognizers_;
};

}  // namespace vorpel::ui
