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

using ViewTest = UiTest;

TEST_F(ViewTest, TheTopmostViewThatTakesTouchesIsHit) {
    View left(Rect{10, 10, 100, 100});
    View right(Rect{60, 20, 100, 100});  // over a part of the left one
    View inner(Rect{-20, 10, 40, 40});   // reaches out of the right one
    root.addSubview(left);
    root.addSubview(right);
    right.addSubview(inner);
    const auto hit = [&] { return root.hitTest({70, 40}); };
    EXPECT_EQ(hit(), &inner);
    EXPECT_EQ(root.hitTest({50, 40}), &left) << "what lies outside its superview is not hit";
    EXPECT_EQ(root.hitTest({320, 100}), nullptr) << "the right edge does not belong to it";
    root.bringSubviewToFront(left);
    EXPECT_EQ(hit(), &left);
    root.insertSubview(left, 0);
    right.setAlpha(0);
    EXPECT_EQ(hit(), &left) << "clear with all that is in it";
    right.setAlpha(0.01);
    EXPECT_EQ(hit(), &inner);
    inner.setUserInteractionEnabled(false);
    EXPECT_EQ(hit(), &right);

    root.setFrame({5, 7, 320, 240});
    EXPECT_EQ(inner.convertToWindow({1, 2}), (Point{5 + 60 - 20 + 1, 7 + 20 + 10 + 2}));
}

TEST_F(ViewTest, ViewsGoInAnyOrderAndAreToldOnceOfEachWindow) {
    struct Listener : View {
        void didMoveToWindow() override { windows.push_back(window()); }
        std::vector<Window*> windows;
    };
    Listener deep;
    auto holder = std::make_unique<View>();
    holder->addSubview(deep);
    deep.windows.clear();
    root.addSubview(*holder);
    holder->removeFromSuperview();
    auto otherRoot = std::make_unique<View>();
    otherRoot->addSubview(*holder);
    window.setRoot(otherRoot.get());
    otherRoot.reset();
    EXPECT_EQ(window.root(), nullptr);
    const std::vector<Window*> wanted{&window, nullptr, nullptr, &window, nullptr};
    EXPECT_EQ(deep.windows, wanted) << "in, out, in without a window, the window, the window without a root";
    holder.reset();
    EXPECT_EQ(deep.superview(), nullptr);

    auto child = std::make_unique<View>();
    View other;
    root.addSubview(*child);
    other.addSubview(*child);
    EXPECT_TRUE(root.subviews().empty()) << "a view is in one tree at a time";
    child.reset();
    EXPECT_TRUE(other.subviews().empty());
}

TEST_F(ViewTest, PaintsInOrderAndOnlyWhatMeetsTheDamage) {
    Label under(Rect{0, 0, 50, 20});
    Label over(Rect{30, 0, 50, 20});
    Label far(Rect{200, 100, 50, 20});
    under.setText("under");
    over.setText("over");
    far.setText("far");
    for (Label* const label : {&under, &over, &far}) root.addSubview(*label);
    EXPECT_EQ(frame().texts(), (std::vector<std::string>{"under", "over", "far"}));
    root.bringSubviewToFront(under);
    EXPECT_EQ(frame().texts(), (std::vector<std::string>{"over", "under"}));
}

}  // namespace
}  // namespace vorpel::ui
