// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "look.h"
#include "platform/plain_text_field.h"
#include "platform/run_loop.h"
#include "typeset_text.h"
#include "ui/cairo/text_layouts.h"
#include "ui/scroll_view.h"
#include "ui/tap_gesture.h"
#include "ui/view.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vorpel::playground {

/// Shows a field's text in lines, with a cursor that blinks; a finger scrolls it. Field and run loop must
/// outlive it. Main thread only.
class TextArea final : public ui::View {
public:
    TextArea(platform::PlainTextField& field, platform::RunLoop& runLoop);

    /// Called with the character before which a tap means the cursor to stand, and how many taps came there
    /// in a row. It is for the handler to move it there.
    void setTapHandler(std::function<void(std::size_t character, int taps)> handler) {
        tapHandler_ = std::move(handler);
    }

    /// The field may have changed: shows what it holds, and its cursor.
    void refresh();

    void setLook(const Look& look);

    /// Where the cursor would stand so many lines further down; negative is up.
    [[nodiscard]] std::size_t characterLinesOff(int lines) const;

    /// In the area's own points.
    [[nodiscard]] ui::Rect cursorRect() const;

    void layoutSubviews() override;
    void draw(ui::Painter& painter) override;

private:
    /// All of the text, as high as it is.
    class Page : public ui::View {
    public:
        void draw(ui::Painter& painter) override;
        void setCursor(const ui::Rect& rect, bool shown);

        const TypesetText* text = nullptr;
        bool isEmpty = true;
        Look look = LIGHT_LOOK;
        std::vector<ui::Rect> selection;
        ui::Rect cursor;
        bool cursorShown = false;
    };

    void typeset();
    void placeCursor();
    [[nodiscard]] std::vector<ui::Rect> selectionRects() const;
    void scrollToCursor();
    void startBlinking();
    [[nodiscard]] std::size_t characterAt(ui::Point pointOfPage) const;

    platform::PlainTextField& field_;
    platform::RunLoop& runLoop_;
    ui::TextLayouts layouts_{1};  // measures are the same at every scale
    std::string text_;            // as shown
    std::size_t cursor_ = 0;      // as shown, in bytes, as is the next
    std::size_t anchor_ = 0;      // where the selection begins or ends
    std::optional<TypesetText> typeset_;
    double typesetWidth_ = 0;
    ui::ScrollView scroll_;
    Page page_;
    platform::Timer blinking_;
    std::function<void(std::size_t, int)> tapHandler_;
    ui::TapGesture tap_;
};

}  // namespace vorpel::playground
