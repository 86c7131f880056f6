// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/run_loop.h"
#include "ui/geometry.h"
#include "ui/touch.h"

#include <functional>
#include <memory>
#include <vector>

namespace vorpel::ui {

class Painter;
class View;

/// Where a tree of views meets its host: fingers go in, and what has to be painted anew comes out. Main
/// thread only. The run loop must outlive it; the root is the host's.
class Window {
public:
    explicit Window(platform::RunLoop& runLoop) : runLoop_(runLoop) {}
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    [[nodiscard]] platform::RunLoop& runLoop() const { return runLoop_; }

    /// Null takes the tree out.
    void setRoot(View* root);
    [[nodiscard]] View* root() const { return root_; }

    // A finger is any number that its host gives it from down to up. Points are the window's.

    void touchDown(int finger, Point point);
    void touchMoved(int finger, Point point);
    void touchUp(int finger, Point point);
    void touchCancelled(int finger);
    void cancelAllTouches();
    [[nodiscard]] std::size_t touchCount() const { return touches_.size(); }

    /// Something is to be painted anew; called once until the next `paint`.
    void setDamageHandler(std::function<void()> handler) { damageHandler_ = std::move(handler); }

    /// What is to be painted anew, in points; empty when nothing is.
    [[nodiscard]] const std::vector<Rect>& damage() const { return damage_; }

    /// Lays out and paints what is damaged, and forgets the damage. Without damage it does nothing and
    /// allocates nothing.
    void paint(Painter& painter);

    /// Everything is to be painted anew.
    void damageAll();

private:
    friend class View;
    void addDamage(const Rect& rect);
    void rootDestroyed() { root_ = nullptr; }
    /// Touches on it or on anything in it have lost their view.
    void viewLeft(const View& view);
    Touch* findTouch(int finger);
    void removeTouch(Touch* touch);
    [[nodiscard]] int countTaps(Point point) const;

    platform::RunLoop& runLoop_;
    View* root_ = nullptr;
    std::vector<std::unique_ptr<Touch>> touches_;
    std::vector<Rect> damage_;
    std::function<void()> damageHandler_;
    double lastDownTime_ = 0;
    Point lastDownPoint_;
    int lastTapCount_ = 0;
};

}  // namespace vorpel::ui
