// SPDX-License-Identifier: Apache-2.0
#include "sdl_session.h"

#include <SDL.h>

#include <cstdlib>

namespace vorpel::playground {

SdlError::SdlError(const std::string& what) : std::runtime_error(what + ": " + SDL_GetError()) {}

SdlSession::SdlSession() {
    // Where both are there, X11 is a layer over Wayland that blurs what it scales.
    SDL_SetHint(SDL_HINT_VIDEODRIVER, std::getenv("WAYLAND_DISPLAY") ? "wayland,x11" : "x11");
    // Each touch comes once, as what it is.
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "0");
    // The click that brings the window to the front is a key press too.
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    // SDL is made for games: screens may go dark here, and compositors go on composing.
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    // On X11 the picture is shared memory; drawn by the graphics card, the first frame would wait for its
    // driver.
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    if (SDL_Init(SDL_INIT_VIDEO) != 0) throw SdlError("no display");
}

SdlSession::~SdlSession() {
    SDL_Quit();
}

void SdlSession::wake(platform::RunLoop& runLoop) const {
    const Uint32 type = SDL_RegisterEvents(1);
    runLoop.setWakeUp([type] {
        SDL_Event event{};
        event.type = type;
        SDL_PushEvent(&event);
    });
}

}  // namespace vorpel::playground
