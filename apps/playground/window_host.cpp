// SPDX-License-Identifier: Apache-2.0
#include "window_host.h"

#include "sdl_session.h"

#include <algorithm>
#include <cmath>
#include <variant>

namespace vorpel::playground {

namespace {

// From this width on the window opens wider than high.
constexpr double LEAST_SIDEWAYS_WIDTH = 500;
constexpr double UPRIGHT_SHAPE = 1.75;
constexpr double SIDEWAYS_SHAPE = 0.6;
constexpr double LOWEST_HEIGHT = 400;

// Where there is no more than a density to go by, dots an inch for each pixel of a point.
constexpr float DENSITY = 96;

double heightFor(double width) {
    return std::max(LOWEST_HEIGHT,
                    std::round(width * (width < LEAST_SIDEWAYS_WIDTH ? UPRIGHT_SHAPE : SIDEWAYS_SHAPE)));
}

double scaleOfDensity(SDL_Window& window) {
    float density = 0;
    const int display = std::max(0, SDL_GetWindowDisplayIndex(&window));
    if (SDL_GetDisplayDPI(display, &density, nullptr, nullptr) != 0) return 1;
    // Whole pixels only: displays tell their density for better or worse.
    return std::clamp(std::floor(density / DENSITY), 1.0F, 4.0F);
}

bool isTouchscreen(SDL_TouchID device) {
    const SDL_TouchDeviceType type = SDL_GetTouchDeviceType(device);
    return type != SDL_TOUCH_DEVICE_INDIRECT_ABSOLUTE && type != SDL_TOUCH_DEVICE_INDIRECT_RELATIVE;
}

SDL_Window* openWindow(double width) {
    SDL_Window* const window =
        SDL_CreateWindow("Vorpel playground", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                         static_cast<int>(width), static_cast<int>(heightFor(width)),
                         SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI | SDL_WINDOW_HIDDEN);
    if (!window) throw SdlError("no window");
    return window;
}

}  // namespace

WindowHost::WindowHost(const WindowShape& shape, Playground& playground, platform::RunLoop& runLoop,
                       Stopwatch& stopwatch)
    : playground_(playground),
      runLoop_(runLoop),
      stopwatch_(stopwatch),
      wantedScale_(shape.scale),
      window_(openWindow(shape.width)),
      picture_(*window_),
      translation_(isTouchscreen) {
    const double units = measure().unitsPerPoint();
    const ui::Size least = Playground::LEAST_SIZE;
    SDL_SetWindowMinimumSize(window_.get(), static_cast<int>(std::ceil(least.width * units)),
                             static_cast<int>(std::ceil(least.height * units)));
    resizeWindow({shape.width, heightFor(shape.width)});
    playground_.setSizeHandler([this](ui::Size size) { resizeWindow(size); });
    SDL_ShowWindow(window_.get());
    SDL_StartTextInput();
}

void WindowHost::run() {
    while (!closed_) {
        followWindow();
        runLoop_.runDue();
        playground_.refresh();
        showFrame();
        waitAndDispatch();
    }
}

WindowHost::Measures WindowHost::measure() const {
    Measures found;
    SDL_GetWindowSize(window_.get(), &found.width, &found.height);
    SDL_GetWindowSizeInPixels(window_.get(), &found.pixelWidth, &found.pixelHeight);
    found.width = std::max(found.width, 1);
    found.height = std::max(found.height, 1);
    found.pixelWidth = std::max(found.pixelWidth, 1);
    found.pixelHeight = std::max(found.pixelHeight, 1);
    if (wantedScale_ > 0) {
        found.scale = wantedScale_;
    } else if (found.pixelWidth != found.width) {
        found.scale = static_cast<double>(found.pixelWidth) / found.width;
    } else {
        found.scale = scaleOfDensity(*window_);
    }
    return found;
}

/// Compared rather than told: not every change of scale comes with an event.
void WindowHost::followWindow() {
    const Measures found = measure();
    if (found == measures_) return;
    measures_ = found;
    const ui::Size size{found.pixelWidth / found.scale, found.pixelHeight / found.scale};
    translation_.setMeasures(size, found.unitsPerPoint());
    picture_.resize(found.pixelWidth, found.pixelHeight, found.scale);
    playground_.resize(size, found.scale);
    // The new picture is empty.
    playground_.window().damageAll();
}

/// As large as the display lets it be.
void WindowHost::resizeWindow(ui::Size size) {
    const double units = measure().unitsPerPoint();
    SDL_Rect room{};
    if (SDL_GetDisplayUsableBounds(std::max(0, SDL_GetWindowDisplayIndex(window_.get())), &room) != 0) {
        room = {0, 0, static_cast<int>(size.width * units), static_cast<int>(size.height * units)};
    }
    SDL_SetWindowSize(window_.get(), std::min(room.w, static_cast<int>(std::lround(size.width * units))),
                      std::min(room.h, static_cast<int>(std::lround(size.height * units))));
}

void WindowHost::showFrame() {
    if (picture_.show(playground_.window())) stopwatch_.frameShown();
}

void WindowHost::waitAndDispatch() {
    SDL_Event event;
    if (SDL_WaitEventTimeout(&event, millisecondsToWait()) == 0) return;
    // All that has come up belongs to one frame.
    do {
        handle(event);
    } while (!closed_ && SDL_PollEvent(&event) != 0);
}

int WindowHost::millisecondsToWait() const {
    constexpr int FOR_EVER = -1;
    // A timer years away needs no more than to be looked at again some time.
    constexpr double LONGEST = 3600;
    const std::optional<double> deadline = runLoop_.nextDeadline();
    if (!deadline) return FOR_EVER;
    // Upwards, or the last part of a millisecond would be spent turning round and round.
    return static_cast<int>(std::ceil(std::clamp(*deadline - runLoop_.now(), 0.0, LONGEST) * 1e3));
}

void WindowHost::handle(const SDL_Event& event) {
    const std::optional<InputEvent> input = translation_.translate(event);
    if (!input) return;
    stopwatch_.inputTaken();
    if (const auto* const touched = std::get_if<Touched>(&*input)) {
        touch(*touched);
        stopwatch_.textStands(playground_.field().text());
    } else if (const auto* const typed = std::get_if<Typed>(&*input)) {
        playground_.typeText(typed->text);
    } else if (const auto* const key = std::get_if<EditingStroke>(&*input)) {
        playground_.press(*key);
    } else if (std::holds_alternative<TouchesLost>(*input)) {
        playground_.window().cancelAllTouches();
    } else if (std::holds_alternative<Uncovered>(*input)) {
        picture_.setUncovered();
    } else {
        close();
    }
}

void WindowHost::touch(const Touched& touched) {
    ui::Window& window = playground_.window();
    switch (touched.phase) {
        case Touched::Phase::Down:
            return window.touchDown(touched.finger, touched.point);
        case Touched::Phase::Moved:
            return window.touchMoved(touched.finger, touched.point);
        case Touched::Phase::Up:
            return window.touchUp(touched.finger, touched.point);
    }
}

}  // namespace vorpel::playground
