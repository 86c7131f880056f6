// SPDX-License-Identifier: Apache-2.0
#include "ui/button.h"

#include "ui/painter.h"
#include "ui/path.h"

#include <utility>

namespace vorpel::ui {

namespace {

const std::string NOTHING;

std::size_t indexOf(ControlState state) {
    switch (state) {
        case ControlState::Normal:
            return 0;
        case ControlState::Highlighted:
            return 1;
        case ControlState::Disabled:
            return 2;
        case ControlState::Selected:
            return 3;
    }
    return 0;
}

template <typename Values>
const auto& valueFor(const Values& values, ControlState state) {
    const auto& own = values[indexOf(state)];
    return own ? own : values[indexOf(ControlState::Normal)];
}

}  // namespace

template <typename Value, typename Shown>
void Button::set(PerState<Value>& values, ControlState state, Value value, Shown shown) {
    const Value before = (this->*shown)(this->state());
    values[indexOf(state)] = std::move(value);
    if ((this->*shown)(this->state()) != before) setNeedsDisplay();
}

template <typename Value>
void Button::change(Value& field, const Value& value) {
    if (field == value) return;
    field = value;
    setNeedsDisplay();
}

void Button::setTitle(std::string title, ControlState state) {
    set(titles_, state, std::move(title), &Button::titleForState);
}

void Button::setTitleColor(const Color& color, ControlState state) {
    set(titleColors_, state, color, &Button::titleColorForState);
}

void Button::setBackgroundColor(const Color& color, ControlState state) {
    set(backgrounds_, state, color, &Button::backgroundColorForState);
}

void Button::setImage(std::string path, ControlState state) {
    set(images_, state, std::move(path), &Button::imageForState);
}

const std::string& Button::titleForState(ControlState state) const {
    const auto& title = valueFor(titles_, state);
    return title ? *title : NOTHING;
}

Color Button::titleColorForState(ControlState state) const {
    return valueFor(titleColors_, state).value_or(Color::black());
}

Color Button::backgroundColorForState(ControlState state) const {
    return valueFor(backgrounds_, state).value_or(backgroundColor());
}

const std::string& Button::imageForState(ControlState state) const {
    const auto& image = valueFor(images_, state);
    return image ? *image : NOTHING;
}

void Button::setFont(const Font& font) {
    change(font_, font);
}

void Button::setMinimumScaleFactor(double factor) {
    change(minimumScale_, factor);
}

void Button::setTitleAlignment(TextAlignment alignment) {
    change(alignment_, alignment);
}

void Button::setTitleInsets(const EdgeInsets& insets) {
    change(titleInsets_, insets);
}

void Button::setImageInsets(const EdgeInsets& insets) {
    change(imageInsets_, insets);
}

void Button::setImageTint(const Color& color) {
    change(imageTint_, color);
}

void Button::setCornerRadius(double radius) {
    change(cornerRadius_, radius);
}

void Button::setGroundInsets(const EdgeInsets& insets) {
    change(groundInsets_, insets);
}

bool Button::looksAlike(ControlState a, ControlState b) const {
    return titleForState(a) == titleForState(b) && titleColorForState(a) == titleColorForState(b) &&
           backgroundColorForState(a) == backgroundColorForState(b) && imageForState(a) == imageForState(b);
}

void Button::stateChanged() {
    if (!looksAlike(std::exchange(shownState_, state()), state())) setNeedsDisplay();
}

void Button::draw(Painter& painter) {
    const ControlState shown = state();
    const Color ground = backgroundColorForState(shown);
    const Rect groundRect = bounds().insetBy(groundInsets_);
    if (!ground.isClear() && cornerRadius_ > 0) {
        painter.fill(Path::roundedRect(groundRect, cornerRadius_), ground);
    } else if (!ground.isClear()) {
        painter.fill(groundRect, ground);
    }
    const std::string& image = imageForState(shown);
    const Rect imageRect = bounds().insetBy(imageInsets_);
    if (!image.empty() && !imageRect.isEmpty()) painter.drawImage(image, imageRect, imageTint_);

    const std::string& title = titleForState(shown);
    const Rect titleRect = bounds().insetBy(titleInsets_);
    if (title.empty() || titleRect.isEmpty()) return;
    painter.save();
    painter.clip(bounds());
    painter.drawText(title, titleRect, {font_, titleColorForState(shown), alignment_, minimumScale_});
    painter.restore();
}

}  // namespace vorpel::ui
