// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/run_loop.h"
#include "ui/geometry.h"
#include "ui/touch.h"

#include <functional>
#include <memory>
#include <vector>

namespace vorpel::ui {

class GestureRecognizer;
class Painter;
class View;

/// Where a tree of views meets its host: fingers go in, and what has to be painted anew comes out. Main
/// thread only. The run loop must outlive it; the root is the host's. What views do when they are touched may
/// destroy views, but not the window.
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
    [[nodiscard]] std::size_t touchCount() const;

    /// A new frame is due; called once until the next `paint`.
    void setDamageHandler(std::function<void()> handler) { damageHandler_ = std::move(handler); }

    /// Whether `paint` has something to do.
    [[nodiscard]] bool needsPaint() const { return needsLayout_ || !damage_.empty(); }

    /// What is to be painted anew, in points. Laying out, the first step of `paint`, may add to it.
    [[nodiscard]] const std::vector<Rect>& damage() const { return damage_; }

    /// Lays out what asked for it.
    void layoutIfNeeded();

    /// Lays out and paints what is damaged, and forgets the damage. Without a change it does nothing and
    /// allocates nothing.
    void paint(Painter& painter);

    /// Everything is to be painted anew.
    void damageAll();

    /// While a frame is laid out and painted, what it is painted with, for measuring; otherwise null.
    [[nodiscard]] Painter* painter() const { return painter_; }

    /// Whether a transaction is open in which nothing moves by and by.
    [[nodiscard]] bool actionsDisabled() const { return disabledActions_ > 0; }

private:
    friend class GestureRecognizer;
    friend class Transaction;
    friend class View;
    enum class Phase { Began, Moved, Ended, Cancelled };
    using SharedTouch = std::shared_ptr<Touch>;

    void addDamage(const Rect& rect);
    void requestLayout();
    void askForFrame();
    void rootDestroyed(const View& root);
    /// The view and all in it are out of the tree; `parent`, which may be null, held it.
    void viewLeft(const View& view, View* parent);
    void recognizerLeft(const GestureRecognizer& recognizer);
    /// From the view, and from the other recognizers that are to lose it.
    void takeTouch(Touch& touch, GestureRecognizer& taker,
                   const std::function<bool(const GestureRecognizer&)>& loses);
    void deliver(Touch& touch, Phase phase);
    void finish(const SharedTouch& touch, Phase phase);
    [[nodiscard]] SharedTouch findTouch(int finger) const;
    [[nodiscard]] int countTaps(Point point) const;

    platform::RunLoop& runLoop_;
    View* root_ = nullptr;
    std::vector<SharedTouch> touches_;
    std::vector<Rect> damage_;
    std::vector<Rect> painting_;  // the damage that is being painted; kept for its memory
    std::function<void()> damageHandler_;
    Painter* painter_ = nullptr;
    bool needsLayout_ = false;
    bool layingOut_ = false;
    int disabledActions_ = 0;
    double lastDownTime_ = 0;
    Point lastDownPoint_;
    int lastTapCount_ = 0;
};

}  // namespace vorpel::ui
