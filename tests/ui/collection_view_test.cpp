// SPDX-License-Identifier: Apache-2.0
#include "ui/collection_view.h"

#include "ui/collection_view_grid_layout.h"
#include "ui/control.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <stdexcept>

namespace vorpel::ui {
namespace {

const std::string CALLS[] = {"sections", "items", "cell", "header", "select", "scroll"};

/// A cell with a number, and a button in its corner.
struct NumberCell : CollectionViewCell {
    NumberCell() { addSubview(button); }
    int number = -1;
    Control button{Rect{0, 0, 10, 10}};
};

/// 100 x 200 points; cells of 20 points, 4 in a line, 5 points apart.
class CollectionViewTest : public UiTest,
                           protected CollectionViewDataSource,
                           protected CollectionViewSelectionDelegate,
                           protected ScrollDelegate {
protected:
    CollectionViewTest() {
        layout.setNumberOfItemsPerLine(4);
        layout.setInteritemSpacing(5);
        layout.setLineSpacing(5);
        layout.setSectionInset({0, 2.5, 0, 2.5});
        makeView();
        frame();
    }

    void makeView() {
        view = std::make_unique<CollectionView>(Rect{0, 0, 100, 200});
        view->registerCell("number", [this] { return ++made, std::make_unique<NumberCell>(); });
        view->setLayout(&layout);
        view->setDataSource(this);
        view->setSelectionDelegate(this);
        view->setDelegate(this);
        root.addSubview(*view);
    }

    int numberOfSections(CollectionView&) override { return called("sections"), 1; }
    int numberOfItemsInSection(CollectionView&, int) override { return called("items"), items; }
    CollectionViewCell* cellForItemAtIndexPath(CollectionView& from, const IndexPath& path) override {
        ++asked;
        auto& cell = static_cast<NumberCell&>(from.dequeueReusableCell("number", path));
        EXPECT_GE(cell.frame().width, 20) << "known when it is filled in";
        cell.number = firstNumber + path.item;
        called("cell");
        return path.item == withoutCell ? nullptr : &cell;
    }
    CollectionViewCell* cellForSupplementaryView(CollectionView& from, SupplementaryKind,
                                                 const IndexPath& path) override {
        CollectionViewCell& cell = from.dequeueReusableCell("number", path);
        called("header");
        return &cell;
    }
    void didSelectItemAtIndexPath(CollectionView&, const IndexPath& path) override {
        selected.push_back(path.item);
        called("select");
    }
    void scrollViewDidScroll(ScrollView&) override { called("scroll"); }
    void called(const std::string& call) {
        if (call == disturbedCall) std::exchange(disturbance, nullptr)();
    }

    /// Sets all calls off, in the first of that name the disturbance.
    void disturb(const std::string& call, std::function<void()> with) {
        layout.setHeaderReferenceLength(30);
        view->reloadData();
        if (call == "scroll" || call == "select") frame();
        if (call == "scroll") scrollTo(100);
        disturbedCall = call;
        disturbance = [this, with] { disturbedCall.clear(), with(); };
        // Keeping the place then scrolls in the midst of laying out.
        if (call == "scroll") layout.setLineSpacing(7);
        frame();
        tap({15, 40});
        frame();
        EXPECT_FALSE(disturbance);
    }

    /// What the layout has in sight is in the tree and nothing else, in its place and with its number.
    void expectOnlyWhatIsInSight() {
        const Rect sight{0, top(), view->bounds().width, view->bounds().height};
        const auto wanted = layout.layoutAttributesForElementsInRect(sight);
        EXPECT_EQ(view->contentView().subviews().size(), wanted.size());
        for (const LayoutAttributes& one : wanted) {
            if (one.kind) continue;
            const auto* const cell = static_cast<NumberCell*>(view->cellForItem(one.path));
            ASSERT_TRUE(cell && cell->superview() == &view->contentView()) << one.path.item;
            EXPECT_EQ(cell->number, firstNumber + one.path.item);
            EXPECT_EQ(cell->frame(), one.frame);
        }
    }

    [[nodiscard]] double top() const { return view->contentOffset().y; }
    void scrollTo(double top) {
        view->setContentOffset({0, top});
        frame();
    }

    int items = 10000;
    int firstNumber = 0;
    int withoutCell = -1;
    int made = 0;
    int asked = 0;
    std::vector<int> selected;
    std::string disturbedCall;
    std::function<void()> disturbance;
    CollectionViewGridLayout layout;
    std::unique_ptr<CollectionView> view;
};

TEST_F(CollectionViewTest, HasCellsForWhatIsInSightAndUsesThemAgain) {
    std::mt19937 random(3);
    double place = 0;
    for (int i = 0; i < 1000; ++i) {
        place += static_cast<double>(random() % 60) - 20;
        if (i % 50 == 0) place = static_cast<double>(random() % 60000);
        scrollTo(place);
        expectOnlyWhatIsInSight();
        asked = 0;
        scrollTo(place + 1);
        EXPECT_LE(asked, 4) << "what stays is not asked for again";
    }
    EXPECT_EQ(made, 9 * 4);
}

TEST_F(CollectionViewTest, ATapSelectsWhatItHitsAndADragSelectsNothing) {
    scrollTo(105);  // in the fifth line
    EXPECT_EQ(view->indexPathForItemAt({30, 110}), (IndexPath{0, 17}));
    EXPECT_EQ(view->indexPathForItemAt({27, 110}), std::nullopt) << "between two";
    EXPECT_EQ(view->indexPathForItemAt({90, 62490}), (IndexPath{0, 9999})) << "out of sight";
    tap({45, 12});
    tap({24, 12});
    tap({28, 1});  // the button
    EXPECT_EQ(selected, std::vector<int>{17});
    stroke({{45, 150}, {45, 120}, {45, 110}});
    EXPECT_EQ(selected.size(), 1U);
    EXPECT_GT(top(), 105);
}

TEST_F(CollectionViewTest, ReloadingShowsTheNewItems) {
    scrollTo(5000);
    items = 50;
    withoutCell = 48;
    view->reloadData();
    EXPECT_TRUE(view->visibleCells().empty());
    EXPECT_EQ(view->indexPathForItemAt({10, 10}), std::nullopt) << "nobody knows yet";
    frame();
    EXPECT_EQ(top(), 13 * 25 - 5 - 200) << "at the end of what is left";
    EXPECT_TRUE(!view->cellForItem({0, 48}) && view->cellForItem({0, 49}));
    withoutCell = -1;
    for (const std::string& call : CALLS) {
        SCOPED_TRACE(call);
        items = 60;
        disturb(call, [this] {
            items = 20;
            firstNumber += 100;
            view->reloadData();
            view->layoutIfNeeded();
        });
        expectOnlyWhatIsInSight();
        EXPECT_EQ(view->visibleCells().size(), 20U);
    }
    EXPECT_LE(made, 9 * 4 + 1) << "with the header";
}

TEST_F(CollectionViewTest, TurnedToAndFroItKeepsItsPlace) {
    const auto turn = [this](const Rect& bounds, int perLine) {
        view->setFrame(bounds);
        layout.setNumberOfItemsPerLine(perLine);
        frame();
        expectOnlyWhatIsInSight();
    };
    scrollTo(1010);  // half of the line that begins with item 160
    for (int i = 0; i < 3; ++i) {
        turn({0, 0, 180, 120}, 7);
        EXPECT_NEAR(top(), layout.layoutAttributesForItemAtIndexPath({0, 160})->frame.center().y, 1e-6);
        turn({0, 0, 100, 200}, 4);
        EXPECT_EQ(top(), 1010);
    }
    scrollTo(0);
    layout.setHeaderReferenceLength(30);
    turn({0, 0, 180, 120}, 7);
    EXPECT_EQ(top(), 0) << "the beginning stays in sight";
    view->setFrame({0, 0, 200, 120});
    frame();
    EXPECT_EQ(view->contentSize().width, 200);
}

TEST_F(CollectionViewTest, TheHostMayDestroyItInAnyCallAndLayoutsComeAndGo) {
    for (const std::string& call : CALLS) {
        SCOPED_TRACE(call);
        disturb(call, [this] { view.reset(); });
        EXPECT_FALSE(view || layout.source());
        makeView();
    }
    auto other = std::make_unique<CollectionView>();
    other->setLayout(&layout);
    EXPECT_FALSE(view->layout()) << "one view at a time";
    auto passing = std::make_unique<CollectionViewGridLayout>();
    view->setLayout(passing.get());
    passing.reset();
    frame();
    EXPECT_TRUE(!view->layout() && view->visibleCells().empty());
    EXPECT_THROW(view->dequeueReusableCell("unheard of", {}), std::invalid_argument);
}

}  // namespace
}  // namespace vorpel::ui
