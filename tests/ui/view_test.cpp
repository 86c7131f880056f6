// SPDX-License-Identifier: Apache-2.0
#include "ui/view.h"

#include "ui/label.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vorpel::ui {
namespace {

class ViewTest : public UiTest {
protected:
    ViewTest() {
        root.addSubview(left);
        root.addSubview(right);
        right.addSubview(inner);
    }

    View left{Rect{10, 10, 100, 100}};
    View right{Rect{60, 20, 100, 100}};  // over a part of the left one
    View inner{Rect{-20, 10, 40, 40}};   // reaches out of the right one
};

TEST_F(ViewTest, TheTopmostViewThatTakesTouchesIsHit) {
    EXPECT_EQ(root.hitTest({80, 100}), &right);
    EXPECT_EQ(root.hitTest({70, 40}), &inner);
    EXPECT_EQ(root.hitTest({50, 40}), &left) << "what lies outside its superview is not hit";
    EXPECT_EQ(root.hitTest({319.9, 239.9}), &root);
    EXPECT_EQ(root.hitTest({320, 100}), nullptr) << "the right edge does not belong to it";

    root.bringSubviewToFront(left);
    EXPECT_EQ(root.hitTest({70, 40}), &left);
    root.insertSubview(left, 0);
    EXPECT_EQ(root.hitTest({70, 40}), &inner);
    right.setHidden(true);
    EXPECT_EQ(root.hitTest({70, 40}), &left) << "hidden with all that is in it";
    right.setHidden(false);
    right.setAlpha(0);
    EXPECT_EQ(root.hitTest({70, 40}), &left);
    right.setAlpha(0.01);
    inner.setUserInteractionEnabled(false);
    EXPECT_EQ(root.hitTest({70, 40}), &right);
    right.setUserInteractionEnabled(false);
    EXPECT_EQ(root.hitTest({70, 40}), &left);
    root.setUserInteractionEnabled(false);
    EXPECT_EQ(root.hitTest({70, 40}), nullptr);
}

TEST_F(ViewTest, PointsConvertThroughEveryFrameAndBack) {
    root.setFrame({5, 7, 320, 240});
    EXPECT_EQ(inner.convertToWindow({1, 2}), (Point{5 + 60 - 20 + 1, 7 + 20 + 10 + 2}));
    for (const View* const view : {&root, &left, &right, &inner}) {
        EXPECT_EQ(view->convertFromWindow(view->convertToWindow({3, 4})), (Point{3, 4}));
    }
}

TEST_F(ViewTest, AViewIsInOneTreeAtATimeAndKnowsItsWindow) {
    EXPECT_EQ(inner.window(), &window);
    left.addSubview(inner);
    EXPECT_TRUE(right.subviews().empty());
    EXPECT_EQ(inner.superview(), &left);
    left.removeFromSuperview();
    EXPECT_EQ(inner.window(), nullptr);
    EXPECT_EQ(inner.superview(), &left);
    root.insertSubview(left, 99);
    EXPECT_EQ(root.subviews().back(), &left);
}

TEST_F(ViewTest, ViewsGoInAnyOrder) {
    auto parent = std::make_unique<View>(Rect{0, 0, 50, 50});
    auto child = std::make_unique<View>(Rect{0, 0, 20, 20});
    parent->addSubview(*child);
    root.addSubview(*parent);
    parent.reset();
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_EQ(child->window(), nullptr);
    root.addSubview(*child);
    child.reset();
    EXPECT_EQ(root.subviews().size(), 2U);
}

TEST_F(ViewTest, IsToldOnceWhenItsTreeComesIntoAWindowAndLeaves) {
    struct Listener : View {
        void didMoveToWindow() override { windows.push_back(window()); }
        std::vector<Window*> windows;
    };
    Listener deep;
    View holder;
    holder.addSubview(deep);
    deep.windows.clear();
    root.addSubview(holder);
    holder.removeFromSuperview();
    auto otherRoot = std::make_unique<View>();
    otherRoot->addSubview(holder);
    window.setRoot(otherRoot.get());
    otherRoot.reset();
    EXPECT_EQ(window.root(), nullptr);
    const std::vector<Window*> wanted{&window, nullptr, nullptr, &window, nullptr};
    EXPECT_EQ(deep.windows, wanted) << "in, out, in without a window, the window, the window without a root";
}

TEST_F(ViewTest, PaintsInOrderAndOnlyWhatMeetsTheDamage) {
    Label under(Rect{0, 0, 50, 20});
    Label over(Rect{30, 0, 50, 20});
    Label far(Rect{200, 100, 50, 20});
    for (Label* const label : {&under, &over, &far}) root.addSubview(*label);
    under.setText("under");
    over.setText("over");
    far.setText("far");
    EXPECT_EQ(frame().texts(), (std::vector<std::string>{"under", "over", "far"}));
    over.setText("other");
    EXPECT_EQ(frame().texts(), (std::vector<std::string>{"under", "other"}));
    root.bringSubviewToFront(under);
    EXPECT_EQ(frame().texts(), (std::vector<std::string>{"other", "under"}));
}

}  // namespace
}  // namespace vorpel::ui
