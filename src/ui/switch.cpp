// SPDX-License-Identifier: Apache-2.0
#include "ui/switch.h"

#include "ui/painter.h"
#include "ui/path.h"

namespace vorpel::ui {

namespace {

constexpr double SLIDE_SECONDS = 0.2;
constexpr double KNOB_MARGIN = 2;
constexpr double DISABLED_ALPHA = 0.5;

constexpr Shadow KNOB_SHADOW{Color::black(0.25), {0, 2}, 3};

// What of the knob's shadow lies outside the track.
constexpr double SHADOW_REACH = 4;

double mix(double from, double to, double share) {
    return from + (to - from) * share;
}

Color mix(const Color& from, const Color& to, double share) {
    return {mix(from.red, to.red, share), mix(from.green, to.green, share), mix(from.blue, to.blue, share),
            mix(from.alpha, to.alpha, share)};
}

}  // namespace

void Switch::setOn(bool on, Animated animated) {
    if (on == on_) return;
    on_ = on;
    const double start = position_;
    const double end = on ? 1 : 0;
    slide_.cancel();
    if (animated == Animated::No) {
        setPosition(end);
        return;
    }
    slide_ = animate(window(), SLIDE_SECONDS, AnimationCurve::EaseInOut,
                     [this, start, end](double progress) { setPosition(mix(start, end, progress)); });
}

void Switch::setOnTintColor(const Color& color) {
    if (color == onTint_) return;
    onTint_ = color;
    if (position_ > 0) setNeedsDisplay();
}

void Switch::setOffTintColor(const Color& color) {
    if (color == offTint_) return;
    offTint_ = color;
    if (position_ < 1) setNeedsDisplay();
}

void Switch::setPosition(double position) {
    if (position == position_) return;
    position_ = position;
    setNeedsDisplay();
}

void Switch::tapped() {
    setOn(!on_, Animated::Yes);
    sendActions(ControlEvent::ValueChanged);
}

EdgeInsets Switch::drawingOutsets() const {
    return {SHADOW_REACH, SHADOW_REACH, SHADOW_REACH, SHADOW_REACH};
}

void Switch::draw(Painter& painter) {
    View::draw(painter);
    // How far a painter's blur reaches is its own affair; the damage must be right all the same.
    painter.save();
    painter.clip(bounds().insetBy(-SHADOW_REACH, -SHADOW_REACH));
    if (!isEnabled()) painter.beginLayer();
    drawTrackAndKnob(painter);
    if (!isEnabled()) painter.endLayer(DISABLED_ALPHA);
    painter.restore();
}

void Switch::drawTrackAndKnob(Painter& painter) const {
    const Point center = bounds().center();
    const Rect track{center.x - SIZE.width / 2, center.y - SIZE.height / 2, SIZE.width, SIZE.height};
    const double diameter = SIZE.height - 2 * KNOB_MARGIN;
    const double travel = SIZE.width - 2 * KNOB_MARGIN - diameter;
    const Path knob = Path::ellipse(
        {track.x + KNOB_MARGIN + travel * position_, track.y + KNOB_MARGIN, diameter, diameter});
    painter.fill(Path::roundedRect(track, SIZE.height / 2), mix(offTint_, onTint_, position_));
    painter.drawShadow(knob, KNOB_SHADOW);
    painter.fill(knob, Color::white());
}

}  // namespace vorpel::ui
