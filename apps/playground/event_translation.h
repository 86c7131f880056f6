// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing_key.h"
#include "ui/geometry.h"

#include <SDL.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace vorpel::playground {

/// A finger, or the mouse with its first button held, at a place in points.
struct Touched {
    enum class Phase { Down, Moved, Up };
    Phase phase = Phase::Down;
    int finger = 0;
    ui::Point point;
};

struct Typed {
    std::string text;
};

/// What is held now will not be heard of again.
struct TouchesLost {};

/// The window's picture has to be handed over anew.
struct Uncovered {};

struct CloseAsked {};

using InputEvent = std::variant<Touched, Typed, EditingStroke, TouchesLost, Uncovered, CloseAsked>;

/// Makes of SDL's events what the playground understands. A touch that SDL, or the system below it, also
/// reports as a mouse is one touch.
class EventTranslation {
public:
    /// Asked of each touch. A finger on a touchpad does not touch what is on the screen: it moves the
    /// pointer.
    explicit EventTranslation(std::function<bool(SDL_TouchID)> isTouchscreen)
        : isTouchscreen_(std::move(isTouchscreen)) {}

    /// The window's size in points, and SDL's units of window coordinates in a point.
    void setMeasures(ui::Size size, double unitsPerPoint);

    /// Nothing for what does not concern the playground.
    [[nodiscard]] std::optional<InputEvent> translate(const SDL_Event& event);

private:
    static constexpr int MOUSE = 0;
    using Finger = std::pair<SDL_TouchID, SDL_FingerID>;

    [[nodiscard]] std::optional<InputEvent> mouse(Touched::Phase phase, Uint32 source, int x, int y);
    [[nodiscard]] std::optional<InputEvent> finger(Touched::Phase phase, const SDL_TouchFingerEvent& event);
    [[nodiscard]] std::optional<InputEvent> windowEvent(Uint8 event);

    std::function<bool(SDL_TouchID)> isTouchscreen_;
    ui::Size size_;
    double unitsPerPoint_ = 1;
    bool mouseHeld_ = false;
    std::map<Finger, int> fingers_;
    int lastFinger_ = MOUSE;
};

}  // namespace vorpel::playground
