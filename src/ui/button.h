// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/control.h"
#include "ui/font.h"

#include <array>
#include <optional>
#include <string>

namespace vorpel::ui {

/// A control with a title or a picture on a rounded ground. Each can be given for a state of its own; a state
/// without one shows that of Normal. Setters paint only when what is on show changes.
class Button : public Control {
public:
    using Control::Control;

    void setTitle(std::string title, ControlState state = ControlState::Normal);  ///< UTF-8
    void setTitleColor(const Color& color, ControlState state = ControlState::Normal);

    /// The ground; where none is given, the view's background colour.
    void setBackgroundColor(const Color& color, ControlState state);
    using Control::setBackgroundColor;

    /// The path of an SVG or PNG file; with a title too, the title lies over it.
    void setImage(std::string path, ControlState state = ControlState::Normal);

    /// What the state shows, Normal's when it has none of its own.
    [[nodiscard]] const std::string& titleForState(ControlState state) const;
    [[nodiscard]] Color titleColorForState(ControlState state) const;
    [[nodiscard]] Color backgroundColorForState(ControlState state) const;
    [[nodiscard]] const std::string& imageForState(ControlState state) const;
    [[nodiscard]] const std::string& currentTitle() const { return titleForState(state()); }

    /// Titles wider than the button are set smaller, down to the minimum scale, and then end in an ellipsis.
    void setFont(const Font& font);
    [[nodiscard]] const Font& font() const { return font_; }
    void setMinimumScaleFactor(double factor);
    void setTitleAlignment(TextAlignment alignment);
    void setTitleInsets(const EdgeInsets& insets);
    void setImageInsets(const EdgeInsets& insets);

    /// The picture's one colour; clear leaves it its own.
    void setImageTint(const Color& color);
    void setCornerRadius(double radius);

    /// What is left free around the ground; it can be pressed there too.
    void setGroundInsets(const EdgeInsets& insets);

    void draw(Painter& painter) override;

protected:
    void stateChanged() override;

private:
    static constexpr std::size_t STATE_COUNT = 4;
    template <typename Value>
    using PerState = std::array<std::optional<Value>, STATE_COUNT>;

    [[nodiscard]] bool looksAlike(ControlState a, ControlState b) const;
    template <typename Value, typename Shown>
    void set(PerState<Value>& values, ControlState state, Value value, Shown shown);
    template <typename Value>
    void change(Value& field, const Value& value);

    PerState<std::string> titles_;
    PerState<std::string> images_;
    PerState<Color> titleColors_;
    PerState<Color> backgrounds_;
    Font font_;
    Color imageTint_;
    TextAlignment alignment_ = TextAlignment::Center;
    EdgeInsets groundInsets_;
    EdgeInsets titleInsets_;
    EdgeInsets imageInsets_;
    double minimumScale_ = 0.5;
    double cornerRadius_ = 0;
    ControlState shownState_ = ControlState::Normal;
};

}  // namespace vorpel::ui
