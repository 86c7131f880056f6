// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/label.h"

#include <memory>

namespace vorpel::ui {

/// One row of a table: a title with a note under it, and at the right a further view such as a switch. The
/// note is wrapped; the row is as high as it needs.
class TableCell : public View {
public:
    TableCell();

    [[nodiscard]] Label& titleLabel() { return title_; }
    [[nodiscard]] Label& noteLabel() { return note_; }
    [[nodiscard]] const Label& noteLabel() const { return note_; }

    /// Keeps its own size, on the middle of the row.
    void setAccessory(std::unique_ptr<View> accessory);
    [[nodiscard]] View* accessory() const { return accessory_.get(); }

    /// Of the line at the lower edge; clear for none.
    void setSeparatorColor(const Color& color);

    /// How high the row must be at that width; the painter measures the text.
    [[nodiscard]] virtual double heightForWidth(double width, Painter& painter) const;

    void layoutSubviews() override;
    void draw(Painter& painter) override;

private:
    [[nodiscard]] double textWidth(double width) const;
    [[nodiscard]] double titleHeight() const;

    Label title_;
    Label note_;
    std::unique_ptr<View> accessory_;
    Color separatorColor_;
};

}  // namespace vorpel::ui
