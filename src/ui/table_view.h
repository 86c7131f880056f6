// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/scroll_view.h"
#include "ui/table_cell.h"
#include "ui/tap_gesture.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::ui {

/// Which row of which section, both counted from 0.
struct RowPath {
    std::size_t section = 0;
    std::size_t row = 0;

    friend bool operator==(const RowPath&, const RowPath&) = default;
};

/// What a table shows.
class TableDataSource {
public:
    virtual ~TableDataSource() = default;
    [[nodiscard]] virtual std::size_t sectionCount() const = 0;
    [[nodiscard]] virtual std::size_t rowCount(std::size_t section) const = 0;

    /// The line over a section; an empty one takes no room.
    [[nodiscard]] virtual std::string sectionTitle(std::size_t) const { return {}; }

    /// The wrapped text under a section; an empty one takes no room.
    [[nodiscard]] virtual std::string sectionFooter(std::size_t) const { return {}; }

    /// Called for a row when the table needs it; the table keeps the cell as long as it does.
    virtual std::unique_ptr<TableCell> makeCell(const RowPath& path) = 0;

    /// The row was tapped, and not a control in it. May reload or destroy the table.
    virtual void rowTapped(const RowPath&) {}
};

struct TableColors {
    Color cell = Color::white();
    Color separator = Color::rgb(0.78, 0.78, 0.80);
    Color sectionText = Color::rgb(0.43, 0.43, 0.45);

    friend bool operator==(const TableColors&, const TableColors&) = default;
};

/// Rows under section titles, scrolling. For tables of a screen or a few: all cells are made at once. Who
/// changes a cell's note or accessory calls `setNeedsLayout`, for the rows below have to move.
class TableView : public ScrollView {
public:
    TableView() : TableView(Rect{}) {}
    explicit TableView(const Rect& frame);

    /// Not owned; null empties the table.
    void setDataSource(TableDataSource* source);

    /// Asks for everything anew.
    void reloadData();
    void setColors(const TableColors& colors);

    /// What is left free at both sides of the rows, in points; a finger scrolls there too.
    void setSideInset(double inset);

    /// Null when there is no such row.
    [[nodiscard]] TableCell* cellForRow(const RowPath& path) const;

    /// Needs a painter to measure with, and so is done while a frame is painted.
    void layoutSubviews() override;

private:
    struct Section {
        std::unique_ptr<Label> title;
        std::unique_ptr<Label> footer;
        std::vector<std::unique_ptr<TableCell>> cells;
    };

    std::unique_ptr<Label> makeSectionLabel(std::string text);
    void applyColors();
    double layoutSection(Section& section, double top, Painter& painter);
    void tapped(const Touch& touch);

    TableDataSource* source_ = nullptr;
    TableColors colors_;
    double sideInset_ = 0;
    std::vector<Section> sections_;
    TapGesture tap_;
};

}  // namespace vorpel::ui
