// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/animation.h"
#include "ui/display_link.h"
#include "ui/pan_gesture.h"
#include "ui/scroll_motion.h"
#include "ui/view.h"

#include <optional>

namespace vorpel::ui {

class ScrollView;

/// What a scroll view tells. A call may set the offset, and may destroy the scroll view.
class ScrollDelegate {
public:
    virtual ~ScrollDelegate() = default;
    virtual void scrollViewDidScroll(ScrollView&) {}
    virtual void scrollViewWillBeginDragging(ScrollView&) {}
    virtual void scrollViewDidEndDragging(ScrollView&, bool /*willDecelerate*/) {}
    virtual void scrollViewWillBeginDecelerating(ScrollView&) {}
    virtual void scrollViewDidEndDecelerating(ScrollView&) {}

    /// An animated `setContentOffset` has arrived.
    virtual void scrollViewDidEndScrollingAnimation(ScrollView&) {}
};

/// Shows a part of a content that is larger than itself, and lets a finger draw the content along. What is to
/// scroll goes into `contentView`. A finger that moves takes its touch away from the controls under it.
class ScrollView : public View, private PanHandler {
public:
    ScrollView() : ScrollView(Rect{}) {}
    explicit ScrollView(const Rect& frame);

    /// As large as the content; its subviews scroll.
    [[nodiscard]] View& contentView() { return content_; }
    [[nodiscard]] Size contentSize() const { return content_.frame().size(); }
    void setContentSize(Size size);

    /// The point of the content that lies in the upper left corner.
    [[nodiscard]] Point contentOffset() const;

    /// Goes no farther than the content. Ends what moves by itself; a finger that holds the content goes on
    /// from there.
    void setContentOffset(Point offset, Animated animated = Animated::No);

    /// The largest offset at which the view is still filled.
    [[nodiscard]] Point largestOffset() const;

    /// Comes to rest only where a whole number of its own sizes has gone by.
    void setPagingEnabled(bool enabled) { paging_ = enabled; }
    void setScrollEnabled(bool enabled) { scrollEnabled_ = enabled; }

    /// Whether the content can be drawn beyond its ends and swings back; true at first.
    void setBounces(bool bounces) { bounces_ = bounces; }

    /// How far beyond the content the offset may go as if there were more of it; infinity for a side without
    /// an end.
    void setContentInset(const EdgeInsets& inset) { contentInset_ = inset; }

    /// The share of its velocity that a thrown content keeps after each millisecond, between 0 and 1.
    [[nodiscard]] double decelerationRate() const { return decelerationRate_; }
    void setDecelerationRate(double rate);

    /// Even along an axis on which there is nothing to scroll.
    void setAlwaysBounceHorizontal(bool always) { alwaysHorizontal_ = always; }
    void setAlwaysBounceVertical(bool always) { alwaysVertical_ = always; }

    /// The bars that tell where in the content one is; they show while it moves.
    void setShowsIndicators(bool shows);

    /// Not owned; null for none.
    void setDelegate(ScrollDelegate* delegate) { delegate_ = delegate; }

    [[nodiscard]] bool isDragging() const { return dragging_; }
    [[nodiscard]] bool isDecelerating() const { return deceleration_.has_value(); }

    void layoutSubviews() override;

protected:
    void didMoveToWindow() override;

    /// A finger came down; true when it takes hold of content that moves.
    bool panTouched() override;

    /// The content offset has changed; the delegate is told next. Must not destroy the view.
    virtual void contentDidMove() {}

private:
    /// A rounded bar; what it lies over shines through.
    class Indicator : public View {
    public:
        Indicator();
        void draw(Painter& painter) override;
    };

    struct Deceleration {
        double start;
        ScrollMotion x;
        ScrollMotion y;
        DisplayLink link;
    };

    bool panShouldBegin(Point moved) override;
    void panBegan() override;
    void panMoved(Point moved) override;
    void panEnded(Point velocity) override;

    [[nodiscard]] bool scrollsHorizontally() const;
    [[nodiscard]] bool scrollsVertically() const;
    [[nodiscard]] Point clamped(Point offset) const;
    [[nodiscard]] Point lowestEnd() const;
    [[nodiscard]] Point highestEnd() const;
    void moveTo(Point offset);
    [[nodiscard]] bool seemsToStand() const;
    [[nodiscard]] Point pageAt(Point offset) const;
    void stopMoving();
    void decelerate(Point velocity);
    void decelerationStep(double time);
    void placeIndicators();
    void showIndicators();
    void fadeIndicators();

    View content_;
    Indicator horizontalIndicator_;
    Indicator verticalIndicator_;
    PanGesture pan_{*this};
    ScrollDelegate* delegate_ = nullptr;
    EdgeInsets contentInset_;
    double decelerationRate_ = ScrollMotion::DECELERATION_RATE;
    bool paging_ = false;
    bool scrollEnabled_ = true;
    bool bounces_ = true;
    bool alwaysHorizontal_ = false;
    bool alwaysVertical_ = false;
    bool showsIndicators_ = true;
    bool dragging_ = false;
    Point dragStart_;      // the offset, as if there were no ends, when the drag began
    Point dragStartPage_;  // in pages
    Point dragged_;        // what the finger has moved since
    std::optional<Deceleration> deceleration_;
    Animation travel_;
    Animation fade_;
};

}  // namespace vorpel::ui
