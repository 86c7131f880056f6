// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"

namespace vorpel::ui {

class View;

/// One finger, or the mouse, from down to up. The window owns it; the same object comes with each event.
class Touch {
public:
    /// In the view's points.
    [[nodiscard]] Point locationIn(const View& view) const;
    [[nodiscard]] Point previousLocationIn(const View& view) const;

    /// 1 for the first; one more for each that comes down soon after, near the one before.
    [[nodiscard]] int tapCount() const { return tapCount_; }

    /// On the run loop's clock, of the latest event.
    [[nodiscard]] double timestamp() const { return timestamp_; }

    /// The view that was hit, or null once it is gone.
    [[nodiscard]] View* view() const { return view_; }

private:
    friend class Window;
    int finger_ = 0;
    Point location_;
    Point previousLocation_;
    double timestamp_ = 0;
    int tapCount_ = 1;
    View* view_ = nullptr;
};

}  // namespace vorpel::ui
