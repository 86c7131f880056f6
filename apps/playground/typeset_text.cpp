// SPDX-License-Identifier: Apache-2.0
#include "typeset_text.h"

#include "ui/cairo/text_layouts.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace vorpel::playground {

namespace {

// Takes no room, but gives a line feed at the end a line behind it, on which the cursor can stand.
constexpr std::string_view END = "\u200b";

// The layout has line separators, of three bytes, for the text's line feeds.
constexpr int SEPARATOR_GROWTH = 2;

struct IteratorDeleter {
    void operator()(PangoLayoutIter* lines) const { pango_layout_iter_free(lines); }
};
using LineIterator = std::unique_ptr<PangoLayoutIter, IteratorDeleter>;

PangoRectangle extentsOf(PangoLayoutIter* lines) {
    PangoRectangle logical{};
    pango_layout_iter_get_line_extents(lines, nullptr, &logical);
    return logical;
}

ui::ObjectHandle<PangoLayout> share(PangoLayout* layout) {
    return ui::ObjectHandle<PangoLayout>(static_cast<PangoLayout*>(g_object_ref(layout)));
}

}  // namespace

TypesetText::TypesetText(const std::string& text, const ui::Font& font, double width,
                         ui::TextLayouts& layouts)
    : drawn_(text + std::string(END)), width_(width) {
    const ui::TextParagraph& paragraph = layouts.paragraph(drawn_, font, width);
    layout_ = share(paragraph.layout.get());
    height_ = paragraph.height;
    PangoLayoutLine* const first = pango_layout_get_line_readonly(layout_.get(), 0);
    rightToLeft_ = pango_layout_line_get_resolved_direction(first) == PANGO_DIRECTION_RTL;
}

ui::TextAlignment TypesetText::alignment() const {
    return rightToLeft_ ? ui::TextAlignment::Right : ui::TextAlignment::Left;
}

ui::Rect TypesetText::cursorAt(std::size_t offset) const {
    int number = 0;
    int x = 0;
    pango_layout_index_to_line_x(layout_.get(), layoutIndex(offset), FALSE, &number, &x);
    const LineIterator lines(pango_layout_get_iter(layout_.get()));
    while (number-- > 0) pango_layout_iter_next_line(lines.get());
    const PangoRectangle line = extentsOf(lines.get());
    return {leftEdge(line) + pango_units_to_double(x), pango_units_to_double(line.y), 0,
            pango_units_to_double(line.height)};
}

std::size_t TypesetText::offsetAt(ui::Point point) const {
    const LineIterator lines(pango_layout_get_iter(layout_.get()));
    const auto isAbove = [&] {
        const PangoRectangle line = extentsOf(lines.get());
        return pango_units_to_double(line.y + line.height) <= point.y;
    };
    while (isAbove() && pango_layout_iter_next_line(lines.get())) continue;
    PangoLayoutLine* const line = pango_layout_iter_get_line_readonly(lines.get());
    int index = 0;
    int trailing = 0;
    const int x = pango_units_from_double(point.x - leftEdge(extentsOf(lines.get())));
    pango_layout_line_x_to_index(line, x, &index, &trailing);
    const char* const layoutText = pango_layout_get_text(layout_.get());
    const char* place = layoutText + index;
    while (trailing-- > 0) place = g_utf8_next_char(place);
    // What follows the line's last character is on the next line already.
    const char* const lineEnd = layoutText + line->start_index + line->length;
    if (place >= lineEnd && pango_layout_iter_next_line(lines.get()) && line->length > 0) {
        place = g_utf8_prev_char(lineEnd);
    }
    return offsetOfIndex(static_cast<int>(place - layoutText));
}

/// The painter sets each line at the edge that the alignment names.
double TypesetText::leftEdge(const PangoRectangle& line) const {
    return rightToLeft_ ? width_ - pango_units_to_double(line.width) : 0;
}

int TypesetText::layoutIndex(std::size_t offset) const {
    const std::string_view before = std::string_view(drawn_).substr(0, offset);
    const auto lineFeeds = static_cast<int>(std::ranges::count(before, '\n'));
    return static_cast<int>(before.size()) + SEPARATOR_GROWTH * lineFeeds;
}

std::size_t TypesetText::offsetOfIndex(int index) const {
    const std::size_t length = drawn_.size() - END.size();
    std::size_t offset = 0;
    for (; index > 0 && offset < length; ++offset) index -= drawn_[offset] == '\n' ? 1 + SEPARATOR_GROWTH : 1;
    return offset;
}

}  // namespace vorpel::playground
