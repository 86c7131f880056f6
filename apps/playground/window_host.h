// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "event_translation.h"
#include "platform/run_loop.h"
#include "playground.h"
#include "stopwatch.h"
#include "window_picture.h"

#include <SDL.h>

#include <memory>

namespace vorpel::playground {

/// What the window is to be like.
struct WindowShape {
    double width = 375;  ///< points
    double scale = 0;    ///< pixels a point; 0 is what the display says
};

/// A window of the desktop with a playground in it, and the loop that serves both. The playground, its run
/// loop and SDL must outlive it. Main thread only.
class WindowHost {
public:
    /// Throws SdlError when the window cannot be opened.
    WindowHost(const WindowShape& shape, Playground& playground, platform::RunLoop& runLoop,
               Stopwatch& stopwatch);

    /// Returns when the window has been closed.
    void run();

    void close() { closed_ = true; }

private:
    struct WindowDeleter {
        void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
    };

    /// In the units of window coordinates, and in pixels.
    struct Measures {
        int width = 0;
        int height = 0;
        int pixelWidth = 0;
        int pixelHeight = 0;
        double scale = 1;
        friend bool operator==(const Measures&, const Measures&) = default;

        [[nodiscard]] double unitsPerPoint() const { return scale * width / pixelWidth; }
    };

    [[nodiscard]] Measures measure() const;
    void followWindow();
    void resizeWindow(ui::Size size);
    void showFrame();
    void waitAndDispatch();
    void handle(const SDL_Event& event);
    void touch(const Touched& touched);
    [[nodiscard]] int millisecondsToWait() const;

    Playground& playground_;
    platform::RunLoop& runLoop_;
    Stopwatch& stopwatch_;
    double wantedScale_;
    std::unique_ptr<SDL_Window, WindowDeleter> window_;
    WindowPicture picture_;
    EventTranslation translation_;
    Measures measures_;
    bool closed_ = false;
};

}  // namespace vorpel::playground
