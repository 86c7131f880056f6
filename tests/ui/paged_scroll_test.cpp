// SPDX-License-Identifier: Apache-2.0
#include "ui/control.h"
#include "ui/paged_scroll_view.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>

namespace vorpel::ui {
namespace {

struct Item : View {
    explicit Item(int& count) : living(count) {
        ++living;
        addSubview(list);
        addSubview(control);
        list.setContentSize({100, 1000});
    }
    ~Item() override { --living; }
    int& living;
    ScrollView list{Rect{0, 0, 100, 150}};
    Control control{Rect{0, 150, 100, 50}};
};

/// A pager of 100 x 200 in the corner of the window; its items are as large as it, or `itemSize`.
class PagedScrollTest : public UiTest, PagedScrollViewDataSource, PagedScrollViewDelegate {
protected:
    PagedScrollTest() { show(); }
    void show() {
        root.addSubview(*pager);
        pager->setDelegate(this);
        pager->setDataSource(this);
        frame();
    }

    void told(const std::string& call) {
        log += call + ' ';
        if (call == trigger) action();
    }
    int numberOfItemsInPagedScrollView(PagedScrollView&) override { return told("count"), items; }
    std::unique_ptr<View> viewForItemAtIndex(PagedScrollView&, int index,
                                             std::unique_ptr<View> old) override {
        EXPECT_TRUE(index >= 0 && index < items) << index;
        auto view = old ? std::move(old) : std::make_unique<Item>(living);
        view->setTag(index);
        static_cast<Item&>(*view).list.setScrollEnabled(listsScroll);
        mostLiving = std::max(mostLiving, living);
        return told("view"), std::move(view);
    }
    std::optional<Size> pagedScrollViewItemSize(PagedScrollView& of) override {
        const Size size = itemSize.value_or(of.bounds().size());
        return told("size"), size;
    }
    void pagedScrollViewDidScroll(PagedScrollView&) override { told("scroll"); }
    void pagedScrollViewCurrentItemIndexDidChange(PagedScrollView&) override { told("item"); }
    void pagedScrollViewWillBeginDragging(PagedScrollView&) override { told("drag"); }
    void pagedScrollViewDidEndDragging(PagedScrollView&, bool) override { told("drop"); }
    void pagedScrollViewWillBeginDecelerating(PagedScrollView&) override { told("glide"); }
    void pagedScrollViewDidEndDecelerating(PagedScrollView&) override { told("rest"); }
    void pagedScrollViewDidEndScrollingAnimation(PagedScrollView&) override { told("arrived"); }
    bool shouldSelectItemAtIndex(PagedScrollView&, int) override { return told("should"), selects; }
    void didSelectItemAtIndex(PagedScrollView&, int index) override {
        told("select" + std::to_string(index));
    }

    /// A steady hand that moves the finger by that much in 0.1 seconds; it stays down.
    void drag(Point from, Point by) {
        window.touchDown(1, from);
        for (int i = 1; i <= 10; ++i) {
            advance(0.01);
            finger = {from.x + by.x * i / 10, from.y + by.y * i / 10};
            window.touchMoved(1, finger);
        }
    }
    void lift(double seconds) {
        window.touchUp(1, finger);
        advance(seconds);
    }
    /// The item in the middle of the pager, and how far its left edge is from the pager's.
    std::pair<int, double> middle() {
        frame();
        View* view = pager->hitTest({pager->bounds().width / 2, 190});
        while (view && !dynamic_cast<Item*>(view)) view = view->superview();
        return view ? std::pair(view->tag(), view->convertToWindow({}).x) : std::pair(-1, 0.0);
    }
    int timesTold(const std::string& call) const {
        int times = 0;
        for (auto at = log.find(call); at != std::string::npos; at = log.find(call, at + 1)) ++times;
        return times;
    }

    int items = 5, living = 0, mostLiving = 0;
    bool selects = true, listsScroll = true;
    std::optional<Size> itemSize;
    std::string log, trigger;
    std::function<void()> action;
    Point finger;
    std::unique_ptr<PagedScrollView> pager = std::make_unique<PagedScrollView>(Rect{0, 0, 100, 200});
};

TEST_F(PagedScrollTest, AFlingTurnsOnePageASlowDragComesBackAndTheEndsSwing) {
    const struct {
        int from;
        double by, hold;
        int page, wrapped;
    } cases[] = {{1, -70, 1, 2, 2},  {1, -45, 1, 1, 1}, {1, -45, 0, 2, 2},
                 {1, -190, 0, 2, 2}, {1, 190, 0, 0, 0}, {0, 90, 0, 0, 4},
                 {4, -90, 0, 4, 0},  {4, -45, 1, 4, 4}, {0, 75, 1, 0, 4}};
    listsScroll = false;
    pager->setFrame({0, 0, 100, 100});
    pager->reloadData();
    for (const int axes : {0, 1, 2, 3}) {
        const bool vertical = axes % 2 == 1;
        const bool wraps = axes / 2 == 1;
        pager->setVertical(vertical);
        pager->setWrapEnabled(wraps);
        frame();
        for (const auto& test : cases) {
            SCOPED_TRACE(::testing::Message() << axes << ' ' << test.from << ' ' << test.by);
            pager->setCurrentPage(test.from);
            drag({50, 97}, vertical ? Point{0, test.by} : Point{test.by, 0});
            advance(test.hold);
            lift(2);
            EXPECT_EQ(pager->scrollOffset(), wraps ? test.wrapped : test.page) << "exactly";
            EXPECT_EQ(pager->currentPage(), pager->scrollOffset());
        }
    }
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(PagedScrollTest, TheItemsFollowTheFingerOverTheSeamAndGlideOnWithoutALeap) {
    pager->setWrapEnabled(true);
    for (const int perPage : {1, 2}) {  // the second does not divide the ring
        itemSize = Size{100.0 / perPage, 200};
        pager->setItemsPerPage(perPage);
        frame();
        for (int turn = 1; turn <= 12; ++turn) {
            drag({90, 180}, {-20, 0});
            const auto [held, before] = middle();
            window.touchMoved(1, finger = {60, 180});
            EXPECT_EQ(middle(), std::pair(held, before - 10));
            lift(0);
            for (auto last = middle(); pager->isDecelerating(); last = middle()) {
                advance(1.0 / 60);
                const auto [now, place] = middle();
                ASSERT_NE(now, -1) << "never a gap";
                EXPECT_TRUE(now != last.first || std::abs(place - last.second) <= 20);
            }
            EXPECT_EQ(pager->scrollOffset(), turn * perPage % items);
        }
        pager->setCurrentItemIndex(0);
    }
    pager->setPagingEnabled(false);
    for (const auto& [rate, most] : {std::pair(0.998, 10), std::pair(0.99, 4)}) {
        pager->setDecelerationRate(rate);
        log.clear();
        drag({95, 180}, {-90, 0});
        lift(5);
        EXPECT_NEAR(timesTold("item"), most, 1)
            << "thrown with 900 points a second, more than round the ring";
    }
}

TEST_F(PagedScrollTest, ATimedScrollIsSlowAtBothEndsAndAFingerTakesOver) {
    pager->scrollToItemAtIndex(4, 1);
    for (const double offset : {0.25, 2.0, 3.75, 4.0}) {
        advance(0.25);
        EXPECT_NEAR(pager->scrollOffset(), offset, 0.2);
    }
    EXPECT_EQ(timesTold("arrived"), 1);
    pager->scrollByNumberOfItems(-3, 1);
    advance(0.5);
    const double caught = pager->scrollOffset();
    window.touchDown(1, {50, 100});
    window.touchMoved(1, finger = {40, 100});
    advance(1);
    EXPECT_NEAR(pager->scrollOffset(), caught + 0.1, 1e-9);
    lift(1);
    EXPECT_EQ(pager->scrollOffset(), std::round(caught + 0.1));
    EXPECT_EQ(timesTold("arrived") + timesTold("select"), 1) << "neither arrived nor tapped";

    pager->setWrapEnabled(true);
    pager->setCurrentItemIndex(4);
    pager->scrollToPage(0, 0.2);
    advance(0.1);
    EXPECT_GT(pager->scrollOffset(), 4) << "the shorter way";
    pager->removeFromSuperview();
    EXPECT_EQ(pager->scrollOffset(), 0) << "nobody would see the rest";
    pager->scrollByOffset(-1.5, 1);
    EXPECT_EQ(pager->scrollOffset(), 3.5);
    EXPECT_EQ(timesTold("arrived"), 2);
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(PagedScrollTest, AutoscrollGoesRoundAndWaitsForTheFinger) {
    pager->setWrapEnabled(true);
    pager->setPagingEnabled(false);
    pager->setAutoscroll(2);
    frame();
    advance(3);
    EXPECT_NEAR(pager->scrollOffset(), 1, 0.05);
    drag({50, 180}, {-20, 0});
    const double held = pager->scrollOffset();
    advance(1);
    EXPECT_EQ(pager->scrollOffset(), held);
    lift(0.5);
    EXPECT_NEAR(pager->scrollOffset(), held + 1, 0.1);
    pager->setAutoscroll(0);
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(PagedScrollTest, LoadsWhatIsSeenAndUsesItsViewsAgain) {
    items = 50;
    pager->reloadData();
    for (const bool defers : {false, true}) {
        pager->setDefersItemViewLoading(defers);
        pager->setCurrentPage(0);
        frame();
        for (int turn = 0; turn < 1000; ++turn) {
            pager->scrollByNumberOfItems(turn / 49 % 2 == 0 ? 1 : -1, 0.1);
            for (int step = 0; step < 8; ++step) {
                advance(1.0 / 60);
                ASSERT_EQ(middle().first, pager->currentItemIndex());
                for (const double edge : {0.0, 99.0})
                    ASSERT_NE(pager->hitTest({edge, 190}), &pager->scrollView());
            }
            const int current = pager->currentItemIndex();
            std::vector<int> expected{current};
            if (defers && current > 0) expected.insert(expected.begin(), current - 1);
            if (defers && current < 49) expected.push_back(current + 1);
            ASSERT_EQ(pager->indexesForVisibleItems(), expected);
        }
        EXPECT_LE(mostLiving, defers ? 4 : 3);
    }
    for (const int count : {10, 0, -3, 1}) {
        items = count;
        pager->reloadData();
        EXPECT_EQ(pager->currentItemView() != nullptr, count > 0);
    }
    itemSize = Size{};
    pager->reloadData();
    EXPECT_EQ(pager->visibleItemViews().size(), 0U);
    pager->setDataSource(nullptr);
    EXPECT_EQ(living, 0);
}

TEST_F(PagedScrollTest, ADragGoesEitherToThePagerOrToTheListInIt) {
    const auto list = [&]() -> ScrollView& { return static_cast<Item*>(pager->currentItemView())->list; };
    for (const Point by : {Point{-60, 15}, {-15, -60}, {-30, -31}, {-60, 0}}) {
        pager->setCurrentPage(0);
        list().setContentOffset({});
        drag({80, 100}, by);
        window.touchMoved(1, finger = {finger.x - 10, finger.y - 30});
        const bool pages = std::abs(by.x) > std::abs(by.y);
        EXPECT_EQ(pager->scrollOffset() > 0.3, pages);
        EXPECT_EQ(list().contentOffset().y > 30, !pages);
        EXPECT_TRUE(pager->scrollOffset() == 0 || list().contentOffset().y == 0) << "never both";
        lift(3);
    }
    pager->setCurrentPage(0);
    drag({80, 100}, {-60, 0});
    lift(0.25);
    ASSERT_TRUE(pager->isDecelerating());
    drag({50, 100}, {0, -60});
    EXPECT_GT(list().contentOffset().y, 30) << "nearly there: the finger means the list";
}

TEST_F(PagedScrollTest, ATapSelectsUnlessAControlTakesIt) {
    itemSize = Size{40, 200};
    pager->setAlignment(PageAlignment::Center);
    frame();
    const struct {
        Point at;
        bool allowed;
        const char* log;
    } cases[] = {{{50, 50}, true, "should select0 "},
                 {{90, 50}, true, "should select1 "},
                 {{50, 50}, false, "should "},
                 {{50, 190}, true, ""},
                 {{10, 50}, true, ""}};
    for (const auto& test : cases) {
        selects = test.allowed;
        log.clear();
        tap(test.at);
        EXPECT_EQ(log, test.log) << test.at.x;
    }
    drag({95, 50}, {-52, 0});
    EXPECT_NEAR(pager->scrollOffset(), 1, 0.1) << "drawn along beside the page";
}

TEST_F(PagedScrollTest, AnotherSizeKeepsTheCurrentItem) {
    pager->setCurrentItemIndex(3);
    pager->setFrame({0, 0, 320, 200});
    EXPECT_EQ(middle(), std::pair(3, 0.0));
    drag({50, 100}, {90, 0});
    lift(0.05);
    const int current = pager->currentItemIndex();
    pager->setFrame({0, 0, 130, 100});
    frame();
    EXPECT_EQ(pager->scrollOffset(), current);
    drag({90, 50}, {-60, 0});
    pager->removeFromSuperview();
    EXPECT_EQ(pager->scrollOffset(), std::round(pager->scrollOffset())) << "not left between two pages";
}

TEST_F(PagedScrollTest, AnyCallMayDestroyReloadOrScroll) {
    const std::function<void()> actions[] = {
        [&] { pager.reset(); }, [&] { pager->reloadData(); },
        [&] { pager->setCurrentItemIndex((pager->currentItemIndex() + 1) % items); },
        [&] { items = 8 - items, pager->reloadData(); }};
    for (const char* call : {"count", "view", "size", "scroll", "item", "drag", "drop", "glide", "rest",
                             "arrived", "should", "select0"}) {
        for (const auto& act : actions) {
            SCOPED_TRACE(call);
            trigger.clear();
            log.clear();
            items = 5;
            pager = std::make_unique<PagedScrollView>(Rect{0, 0, 100, 200});
            pager->setWrapEnabled(true);
            action = act;
            if (std::string("count view size").find(call) != std::string::npos) trigger = call;
            show();
            trigger = call;
            if (pager) pager->setCurrentItemIndex(0);
            tap({50, 100});
            drag({95, 100}, {-90, 0});
            lift(2);
            if (pager) pager->scrollByNumberOfItems(1, 0.1);
            advance(0.5);
            trigger.clear();
            EXPECT_GE(timesTold(call), 1);
            EXPECT_TRUE(!pager || middle().first == pager->currentItemIndex());
        }
    }
}

}  // namespace
}  // namespace vorpel::ui
