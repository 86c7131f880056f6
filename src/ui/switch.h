// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/animation.h"
#include "ui/control.h"

namespace vorpel::ui {

/// On or off: a knob in a rounded track. A tap turns it over and sends ValueChanged, a change by the program
/// does not. Drawn at its own size in the middle of the bounds.
class Switch : public Control {
public:
    static constexpr Size SIZE{51, 31};

    Switch() : Switch(Point{}) {}
    explicit Switch(Point origin) : Control({origin.x, origin.y, SIZE.width, SIZE.height}) {}

    [[nodiscard]] bool isOn() const { return on_; }

    /// The knob slides when that is asked for and the switch is in a window.
    void setOn(bool on, Animated animated = Animated::No);

    /// The track's colour when on.
    void setOnTintColor(const Color& color);

    /// The track's colour when off; at first a light grey, for light surroundings.
    void setOffTintColor(const Color& color);

    /// Where the knob is on its way, from 0 (off) to 1.
    [[nodiscard]] double knobPosition() const { return position_; }

    [[nodiscard]] EdgeInsets drawingOutsets() const override;
    void draw(Painter& painter) override;

protected:
    void tapped() override;

private:
    void drawTrackAndKnob(Painter& painter) const;
    void setPosition(double position);

    bool on_ = false;
    double position_ = 0;
    Color onTint_ = Color::rgb(0.30, 0.69, 0.42);
    Color offTint_ = Color::rgb(0.89, 0.89, 0.91);
    Animation slide_;
};

}  // namespace vorpel::ui
