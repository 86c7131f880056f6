// SPDX-License-Identifier: Apache-2.0
#include "ui/switch.h"
#include "ui/table_view.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
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
        return section ? "" : "TITLE";
    }
    [[nodiscard]] std::string sectionFooter(std::size_t section) const override {
        return section ? "" : "Footer";
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
        table.reloadData();
    }

    Switch& switchOf(const RowPath& path) {
        return dynamic_cast<Switch&>(*table.cellForRow(path)->accessory());
    }
    static Point centerOf(const View& view) { return view.convertToWindow(view.bounds().center()); }

    static inline const std::string NOTE = std::string(200, 'n');
    std::vector<std::vector<std::string>> rows{{"Arabic", "English"}, {"Clicks", "Lowercase"}};
    std::vector<RowPath> tapped;
    TableView table{Rect{0, 0, 320, 240}};
};

TEST_F(TableTest, ARowIsAsHighAsItsWrappedNoteNeedsBesideItsSwitch) {
    for (const double width : {320.0, 200.0}) {
        table.setFrame({0, 0, width, 240});
        frame();
        TableCell& cell = *table.cellForRow({1, 0});
        const Rect title = cell.titleLabel().frame();
        const Rect note = cell.noteLabel().frame();
        const Rect accessory = cell.accessory()->frame();
        vorpel::testing::RecordingPainter painter;
        EXPECT_NEAR(note.height, painter.measureParagraph(NOTE, note.width, cell.noteLabel().font()).height,
                    1e-9);
        EXPECT_GE(note.y, title.bottom());
        EXPECT_LE(note.bottom(), cell.bounds().height);
        EXPECT_LE(std::max(title.right(), note.right()), accessory.x);
        EXPECT_LT(accessory.right(), cell.bounds().width);
    }
}

TEST_F(TableTest, ARowIsTappedButNotThroughItsSwitchNorByAFingerThatScrolls) {
    const Point start = centerOf(switchOf({0, 1}));
    stroke({start, start - Point{0, 16}, start - Point{0, 48}});
    EXPECT_FALSE(switchOf({0, 1}).isOn());
    EXPECT_GT(table.contentOffset().y, 20);
    table.setContentOffset({});
    tap(centerOf(switchOf({0, 1})));
    EXPECT_TRUE(switchOf({0, 1}).isOn());
    tap({30, 5});  // a title is no row
    EXPECT_TRUE(tapped.empty());
    tap(centerOf(table.cellForRow({0, 1})->titleLabel()));
    EXPECT_EQ(tapped, (std::vector<RowPath>{{0, 1}})) << "though that reloads the table";
}

TEST_F(TableTest, LaysOutInOrderInTheFrameAlsoWhenReloadedByASwitch) {
    switchOf({0, 0}).addTarget(this, "reload", ControlEvent::ValueChanged, [&](Control&) {
        rows[0].emplace_back("Third");
        table.reloadData();
    });
    tap(centerOf(switchOf({0, 0})));
    window.layoutIfNeeded();
    EXPECT_TRUE(window.needsPaint()) << "nothing to measure with until then";
    frame();
    EXPECT_FALSE(window.needsPaint());
    double bottom = 0;
    std::string order;
    for (const View* const view : table.contentView().subviews()) {
        if (view->frame().isEmpty()) continue;  // titles and footers that are empty
        EXPECT_GE(view->frame().y, bottom);
        bottom = view->frame().bottom();
        const auto* const label = dynamic_cast<const Label*>(view);
        order += label ? label->text() : " row ";
    }
    EXPECT_EQ(order, "TITLE row  row  row Footer row  row ");
    EXPECT_GE(table.contentSize().height, bottom);
}

}  // namespace
}  // namespace vorpel::ui
