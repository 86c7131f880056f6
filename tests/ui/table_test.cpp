// SPDX-License-Identifier: Apache-2.0
#include "ui/switch.h"
#include "ui/table_view.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vorpel::ui {
namespace {

/// Like a settings screen: switches, one of the rows with a long note.
class TableTest : public UiTest, protected TableDataSource {
protected:
    TableTest() {
        root.addSubview(table);
        table.setDataSource(this);
        frame();
    }

    [[nodiscard]] std::size_t sectionCount() const override { return rows.size(); }
    [[nodiscard]] std::size_t rowCount(std::size_t section) const override { return rows[section].size(); }
    [[nodiscard]] std::string sectionTitle(std::size_t section) const override {
        return section == 0 ? "LANGUAGES" : "";
    }
    [[nodiscard]] std::string sectionFooter(std::size_t section) const override {
        return section == 0 ? "A footer" : "";
    }
    std::unique_ptr<TableCell> makeCell(const RowPath& path) override {
        auto cell = std::make_unique<TableCell>();
        cell->titleLabel().setText(rows[path.section][path.row]);
        if (path == RowPath{1, 0}) cell->noteLabel().setText(NOTE);
        cell->setAccessory(std::make_unique<Switch>());
        return cell;
    }
    void rowTapped(const RowPath& path) override {
        tapped.push_back(path);
        if (reloadsWhenTapped) table.reloadData();
    }

    Switch& switchOf(const RowPath& path) {
        return dynamic_cast<Switch&>(*table.cellForRow(path)->accessory());
    }
    static Rect inWindow(const View& view) {
        const Point origin = view.convertToWindow({0, 0});
        return {origin.x, origin.y, view.bounds().width, view.bounds().height};
    }

    static inline const std::string NOTE = std::string(200, 'n');
    std::vector<std::vector<std::string>> rows{{"Arabic", "English"}, {"Clicks", "Lowercase"}};
    std::vector<RowPath> tapped;
    bool reloadsWhenTapped = false;
    TableView table{Rect{0, 0, 320, 240}};
};

TEST_F(TableTest, RowsFollowEachOtherUnderTheirTitlesAndOverTheirFooters) {
    const View& content = table.contentView();
    double bottom = 0;
    std::vector<std::string> order;
    for (const View* const view : content.subviews()) {
        if (view->frame().isEmpty()) continue;  // titles and footers that are empty
        EXPECT_GE(view->frame().y, bottom);
        EXPECT_LE(view->frame().right(), 320);
        bottom = view->frame().bottom();
        const auto* const label = dynamic_cast<const Label*>(view);
        order.push_back(label ? label->text() : "row");
    }
    EXPECT_EQ(order, (std::vector<std::string>{"LANGUAGES", "row", "row", "A footer", "row", "row"}));
    EXPECT_GE(table.contentSize().height, bottom);
    EXPECT_EQ(table.contentSize().width, 320);
    EXPECT_EQ(table.cellForRow({0, 0})->frame().bottom(), table.cellForRow({0, 1})->frame().y);
    EXPECT_EQ(table.cellForRow({2, 0}), nullptr);
    EXPECT_EQ(table.cellForRow({1, 2}), nullptr);
}

TEST_F(TableTest, ARowIsAsHighAsItsWrappedNoteNeedsAtItsWidth) {
    TableCell& noted = *table.cellForRow({1, 0});
    const double plainHeight = table.cellForRow({1, 1})->frame().height;
    const auto needed = [&] {
        vorpel::testing::RecordingPainter painter;
        const Label& note = noted.noteLabel();
        return painter.measureParagraph(NOTE, note.frame().width, note.font()).height;
    };
    EXPECT_GT(needed(), 60);
    EXPECT_NEAR(noted.noteLabel().frame().height, needed(), 1e-9);
    EXPECT_GT(noted.frame().height, plainHeight + needed() - 20);
    EXPECT_LE(noted.noteLabel().frame().bottom(), noted.bounds().height);
    EXPECT_GE(noted.noteLabel().frame().y, noted.titleLabel().frame().bottom());

    const double before = noted.frame().height;
    table.setFrame({0, 0, 200, 240});
    frame();
    EXPECT_GT(noted.frame().height, before) << "narrower, and so higher";
    EXPECT_NEAR(noted.noteLabel().frame().height, needed(), 1e-9);
}

TEST_F(TableTest, TextAndSwitchStandBesideEachOther) {
    for (const RowPath path : {RowPath{0, 0}, RowPath{1, 0}}) {
        TableCell& cell = *table.cellForRow(path);
        const Rect accessory = switchOf(path).frame();
        EXPECT_EQ(accessory.size(), Switch::SIZE);
        EXPECT_LE(cell.titleLabel().frame().right(), accessory.x);
        EXPECT_LE(cell.noteLabel().frame().right(), accessory.x);
        EXPECT_LT(accessory.right(), cell.bounds().width);
        EXPECT_NEAR(accessory.center().y, cell.bounds().center().y, 1e-9);
    }
}

TEST_F(TableTest, ARowIsTappedButNotThroughItsSwitch) {
    const Rect row = inWindow(*table.cellForRow({0, 1}));
    tap({row.x + 30, row.center().y});
    EXPECT_EQ(tapped, (std::vector<RowPath>{{0, 1}}));
    tap(inWindow(switchOf({0, 1})).center());
    EXPECT_TRUE(switchOf({0, 1}).isOn());
    EXPECT_EQ(tapped.size(), 1U);
    tap({30, 5});
    EXPECT_EQ(tapped.size(), 1U) << "a title is no row";
}

TEST_F(TableTest, AFingerThatScrollsTurnsNoSwitchAndTapsNoRow) {
    const Point start = inWindow(switchOf({0, 1})).center();
    window.touchDown(1, start);
    EXPECT_TRUE(switchOf({0, 1}).isHighlighted());
    for (int i = 1; i <= 6; ++i) window.touchMoved(1, {start.x, start.y - i * 8.0});
    window.touchUp(1, {start.x, start.y - 48});
    EXPECT_FALSE(switchOf({0, 1}).isOn());
    EXPECT_TRUE(tapped.empty());
    EXPECT_GT(table.contentOffset().y, 20);
}

TEST_F(TableTest, MayBeReloadedByWhatItsRowsDo) {
    switchOf({0, 0}).addTarget(this, "reload", ControlEvent::ValueChanged, [&](Control&) {
        rows[0].pop_back();
        table.reloadData();
    });
    tap(inWindow(switchOf({0, 0})).center());
    frame();
    EXPECT_EQ(table.cellForRow({0, 1}), nullptr);
    reloadsWhenTapped = true;
    tap(inWindow(*table.cellForRow({0, 0})).center());
    frame();
    EXPECT_EQ(tapped.size(), 1U);
    table.setDataSource(nullptr);
    frame();
    EXPECT_TRUE(table.contentView().subviews().empty());
}

TEST_F(TableTest, LaysOutInTheFrameEvenWhenAskedBefore) {
    rows[0].emplace_back("Third");
    table.reloadData();
    window.layoutIfNeeded();
    EXPECT_TRUE(window.needsPaint()) << "nothing to measure with until then";
    frame();
    EXPECT_GT(table.cellForRow({0, 2})->frame().height, 0);
    EXPECT_FALSE(window.needsPaint());
}

}  // namespace
}  // namespace vorpel::ui
