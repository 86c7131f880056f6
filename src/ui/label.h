// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/font.h"
#include "ui/view.h"

#include <string>

namespace vorpel::ui {

/// Text that is only looked at: touches fall through to what lies under it. One line on the middle of the
/// height, or, wrapping, a paragraph from the top.
class Label : public View {
public:
    Label() : Label(Rect{}) {}
    explicit Label(const Rect& frame);

    // Setting what is set already paints nothing.

    [[nodiscard]] const std::string& text() const { return text_; }
    void setText(std::string text);  ///< UTF-8
    [[nodiscard]] const Font& font() const { return font_; }
    void setFont(const Font& font);
    [[nodiscard]] const Color& textColor() const { return textColor_; }
    void setTextColor(const Color& color);
    [[nodiscard]] TextAlignment textAlignment() const { return alignment_; }
    void setTextAlignment(TextAlignment alignment);

    /// A line wider than the label is set smaller, down to `minimumScaleFactor` of the font's size.
    [[nodiscard]] bool adjustsFontSizeToFitWidth() const { return shrinks_; }
    void setAdjustsFontSizeToFitWidth(bool adjusts);
    [[nodiscard]] double minimumScaleFactor() const { return minimumScale_; }
    void setMinimumScaleFactor(double factor);

    [[nodiscard]] bool wraps() const { return wraps_; }
    void setWraps(bool wraps);

    [[nodiscard]] EdgeInsets drawingOutsets() const override;
    void draw(Painter& painter) override;

private:
    template <typename Value>
    void change(Value& field, Value value);

    std::string text_;
    Font font_;
    Color textColor_ = Color::black();
    TextAlignment alignment_ = TextAlignment::Left;
    double minimumScale_ = 0.5;
    bool shrinks_ = false;
    bool wraps_ = false;
};

}  // namespace vorpel::ui
