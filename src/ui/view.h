// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/color.h"
#include "ui/geometry.h"

#include <span>
#include <vector>

namespace vorpel::ui {

class GestureRecognizer;
class Painter;
class Touch;
class ViewWatch;
class Window;

/// The touches that an event is about, all of one phase.
using Touches = std::span<Touch* const>;

/// One rectangle of the retained tree. A view does not own its subviews: whoever makes a view keeps it, and a
/// view that is destroyed leaves the tree by itself. Later subviews lie over earlier ones. Main thread only.
class View {
public:
    View() = default;
    explicit View(const Rect& frame) : frame_(frame) {}
    virtual ~View();
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    /// In the superview's points.
    [[nodiscard]] const Rect& frame() const { return frame_; }
    void setFrame(const Rect& frame);
    [[nodiscard]] Rect bounds() const { return {0, 0, frame_.width, frame_.height}; }

    [[nodiscard]] bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);
    [[nodiscard]] double alpha() const { return alpha_; }
    void setAlpha(double alpha);
    [[nodiscard]] bool isUserInteractionEnabled() const { return userInteractionEnabled_; }
    void setUserInteractionEnabled(bool enabled) { userInteractionEnabled_ = enabled; }
    [[nodiscard]] const Color& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const Color& color);
    [[nodiscard]] int tag() const { return tag_; }
    void setTag(int tag) { tag_ = tag; }

    /// What is drawn outside the bounds is cut off.
    [[nodiscard]] bool clipsToBounds() const { return clipsToBounds_; }
    void setClipsToBounds(bool clips);

    [[nodiscard]] View* superview() const { return superview_; }
    [[nodiscard]] std::span<View* const> subviews() const { return subviews_; }

    /// Over the others; a view that is in a tree already leaves it first.
    void addSubview(View& view);
    void insertSubview(View& view, std::size_t index);
    void bringSubviewToFront(View& view);
    void removeFromSuperview();

    /// The window whose tree this is in, or null.
    [[nodiscard]] Window* window() const;

    [[nodiscard]] Point convertToWindow(Point point) const;
    [[nodiscard]] Point convertFromWindow(Point point) const;

    /// The deepest view that takes a touch there, in this view's points; null for none. Hidden, faded out and
    /// disabled views take none.
    [[nodiscard]] virtual View* hitTest(Point point);

    /// How far outside its bounds the view draws now, so that it is repainted whole.
    [[nodiscard]] virtual EdgeInsets drawingOutsets() const { return {}; }

    /// Paints the view alone; the subviews follow on their own.
    virtual void draw(Painter& painter);

    /// Called before drawing when the size has changed or `setNeedsLayout` was called.
    virtual void layoutSubviews() {}

    /// The subviews are placed anew before the next frame. Paints nothing by itself: what moves says so.
    void setNeedsLayout();
    void layoutIfNeeded();

    /// The view with all it draws outside its bounds, or a part of it, is painted anew in the next frame.
    void setNeedsDisplay() { setNeedsDisplay(drawnRect()); }
    void setNeedsDisplay(const Rect& rect);

    virtual void touchesBegan(Touches touches);
    virtual void touchesMoved(Touches touches);
    virtual void touchesEnded(Touches touches);
    virtual void touchesCancelled(Touches touches);

    /// Paints this view and what is in it where it meets `damage`, in this view's points.
    void paintTree(Painter& painter, const Rect& damage);

protected:
    /// The view came into a tree or left it, or the tree's window changed.
    virtual void didMoveToWindow() {}

private:
    friend class GestureRecognizer;
    friend class ViewWatch;
    friend class Window;
    void damageWhole();
    [[nodiscard]] Rect drawnRect() const;
    void tellMovedToWindow();
    void requestLayout();

    Rect frame_;
    Color backgroundColor_;
    double alpha_ = 1;
    int tag_ = 0;
    bool hidden_ = false;
    bool userInteractionEnabled_ = true;
    bool clipsToBounds_ = false;
    bool needsLayout_ = true;
    View* superview_ = nullptr;
    Window* window_ = nullptr;  // of the topmost view only
    std::vector<View*> subviews_;
    std::vector<GestureRecognizer*> recognizers_;
    EdgeInsets paintedOutsets_;  // of the last frame: what was drawn there has to go, whatever is drawn now
    ViewWatch* watches_ = nullptr;
};

/// Tells whether a view outlived a call into foreign code, which may destroy what it likes. Lives on the
/// stack of who makes the call.
class ViewWatch {
public:
    explicit ViewWatch(View& view) : view_(&view), next_(view.watches_) { view.watches_ = this; }
    ~ViewWatch();
    ViewWatch(const ViewWatch&) = delete;
    ViewWatch& operator=(const ViewWatch&) = delete;

    [[nodiscard]] bool isAlive() const { return view_ != nullptr; }

private:
    friend class View;
    View* view_;
    ViewWatch* next_;
};

}  // namespace vorpel::ui
