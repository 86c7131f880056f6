// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/handles.h"
#include "ui/font.h"
#include "ui/geometry.h"

#include <pango/pango.h>

#include <cstddef>
#include <string>

namespace vorpel::ui {
class TextLayouts;
}

namespace vorpel::playground {

/// A text as `ui::Painter::drawParagraph` sets it into lines of some width, so that a cursor can stand in it.
/// Offsets are bytes of the text; points count from the upper left corner of the lines.
class TypesetText {
public:
    TypesetText(const std::string& text, const ui::Font& font, double width, ui::TextLayouts& layouts);

    /// To be drawn, in a rectangle of the width and `height`, with the alignment.
    [[nodiscard]] const std::string& drawn() const { return drawn_; }
    [[nodiscard]] double height() const { return height_; }
    [[nodiscard]] ui::TextAlignment alignment() const;

    /// A line without width between two characters.
    [[nodiscard]] ui::Rect cursorAt(std::size_t offset) const;

    /// Between which characters a touch means the cursor to stand.
    [[nodiscard]] std::size_t offsetAt(ui::Point point) const;

private:
    [[nodiscard]] double leftEdge(const PangoRectangle& line) const;
    [[nodiscard]] int layoutIndex(std::size_t offset) const;
    [[nodiscard]] std::size_t offsetOfIndex(int index) const;

    std::string drawn_;
    ui::ObjectHandle<PangoLayout> layout_;
    double width_;
    double height_;
    bool rightToLeft_;
};

}  // namespace vorpel::playground
