// SPDX-License-Identifier: Apache-2.0
#include "event_translation.h"

namespace vorpel::playground {

namespace {

using Phase = Touched::Phase;

std::optional<EditingKey> editingKey(const SDL_Keysym& key) {
    switch (key.sym) {
        case SDLK_a:
            if ((key.mod & KMOD_CTRL) != 0) return EditingKey::SelectAll;
            return std::nullopt;
        case SDLK_LEFT:
            return EditingKey::Left;
        case SDLK_RIGHT:
            return EditingKey::Right;
        case SDLK_UP:
            return EditingKey::Up;
        case SDLK_DOWN:
            return EditingKey::Down;
        case SDLK_HOME:
            return EditingKey::Home;
        case SDLK_END:
            return EditingKey::End;
        case SDLK_BACKSPACE:
            return EditingKey::Backspace;
        case SDLK_DELETE:
            return EditingKey::Delete;
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
            return EditingKey::Return;
        default:
            return std::nullopt;
    }
}

std::optional<InputEvent> editingStroke(const SDL_Keysym& pressed) {
    const auto key = editingKey(pressed);
    if (!key) return std::nullopt;
    return EditingStroke{*key, (pressed.mod & KMOD_SHIFT) != 0};
}

}  // namespace

void EventTranslation::setMeasures(ui::Size size, double unitsPerPoint) {
    size_ = size;
    unitsPerPoint_ = unitsPerPoint;
}

std::optional<InputEvent> EventTranslation::translate(const SDL_Event& event) {
    switch (event.type) {
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP:
            if (event.button.button != SDL_BUTTON_LEFT) return std::nullopt;
            return mouse(event.type == SDL_MOUSEBUTTONDOWN ? Phase::Down : Phase::Up, event.button.which,
                         event.button.x, event.button.y);
        case SDL_MOUSEMOTION:
            return mouse(Phase::Moved, event.motion.which, event.motion.x, event.motion.y);
        case SDL_FINGERDOWN:
            return finger(Phase::Down, event.tfinger);
        case SDL_FINGERMOTION:
            return finger(Phase::Moved, event.tfinger);
        case SDL_FINGERUP:
            return finger(Phase::Up, event.tfinger);
        case SDL_TEXTINPUT:
            return Typed{event.text.text};
        case SDL_KEYDOWN:
            return editingStroke(event.key.keysym);
        case SDL_WINDOWEVENT:
            return windowEvent(event.window.event);
        case SDL_QUIT:
            return CloseAsked{};
        default:
            return std::nullopt;
    }
}

std::optional<InputEvent> EventTranslation::mouse(Phase phase, Uint32 source, int x, int y) {
    if (source == SDL_TOUCH_MOUSEID) return std::nullopt;
    if (phase == Phase::Down) {
        mouseHeld_ = true;
    } else if (!mouseHeld_) {
        return std::nullopt;
    }
    if (phase == Phase::Up) mouseHeld_ = false;
    return Touched{phase, MOUSE, {x / unitsPerPoint_, y / unitsPerPoint_}};
}

std::optional<InputEvent> EventTranslation::finger(Phase phase, const SDL_TouchFingerEvent& event) {
    if (event.touchId == SDL_MOUSE_TOUCHID || !isTouchscreen_(event.touchId)) return std::nullopt;
    const Finger finger{event.touchId, event.fingerId};
    if (phase == Phase::Down) fingers_.insert_or_assign(finger, ++lastFinger_);
    const auto found = fingers_.find(finger);
    if (found == fingers_.end()) return std::nullopt;
    const int number = found->second;
    if (phase == Phase::Up) fingers_.erase(found);
    // Shares of the window, which may lie outside of it.
    return Touched{phase, number, {event.x * size_.width, event.y * size_.height}};
}

std::optional<InputEvent> EventTranslation::windowEvent(Uint8 event) {
    switch (event) {
        case SDL_WINDOWEVENT_EXPOSED:
            return Uncovered{};
        case SDL_WINDOWEVENT_FOCUS_LOST:
        case SDL_WINDOWEVENT_HIDDEN:
        case SDL_WINDOWEVENT_MINIMIZED:
            mouseHeld_ = false;
            fingers_.clear();
            return TouchesLost{};
        default:
            return std::nullopt;
    }
}

}  // namespace vorpel::playground
