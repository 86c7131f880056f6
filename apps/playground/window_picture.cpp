// SPDX-License-Identifier: Apache-2.0
#include "window_picture.h"

#include "sdl_session.h"
#include "ui/cairo/paint_window.h"
#include "ui/window.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

namespace vorpel::playground {

namespace {

void reportFault(const std::string& fault) {
    std::fprintf(stderr, "vorpel-playground: %s\n", fault.c_str());
}

/// SDL's own drawing starts sooner than the graphics card's, but takes a unit of window coordinates for a
/// pixel, which on Wayland it need not be.
Uint32 rendererFlags() {
    const char* const driver = SDL_GetCurrentVideoDriver();
    return driver && std::string_view(driver) == "wayland" ? 0 : SDL_RENDERER_SOFTWARE;
}

}  // namespace

WindowPicture::WindowPicture(SDL_Window& window) {
    constexpr int ANY_DRIVER = -1;
    renderer_.reset(SDL_CreateRenderer(&window, ANY_DRIVER, rendererFlags()));
    if (!renderer_) throw SdlError("the window takes no pictures");
}

void WindowPicture::resize(int width, int height, double scale) {
    // Fonts and pictures that are ready at this scale stay so.
    if (!resources_ || resources_->scale() != scale) resources_.emplace(scale, reportFault);
    bitmap_.emplace(width, height);
    texture_.reset(SDL_CreateTexture(renderer_.get(), SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STATIC,
                                     bitmap_->width(), bitmap_->height()));
    if (!texture_) throw SdlError("no picture of the window's size");
    SDL_SetTextureBlendMode(texture_.get(), SDL_BLENDMODE_NONE);
}

bool WindowPicture::show(ui::Window& content) {
    const ui::Rect painted = paintWindow(content, *bitmap_, *resources_);
    if (painted.isEmpty() && !uncovered_) return false;
    if (!painted.isEmpty()) handOver(painted);
    // What the display held before is not to be relied on.
    SDL_RenderCopy(renderer_.get(), texture_.get(), nullptr, nullptr);
    SDL_RenderPresent(renderer_.get());
    uncovered_ = false;
    return true;
}

void WindowPicture::handOver(const ui::Rect& painted) {
    const int left = static_cast<int>(std::floor(painted.x));
    const int top = static_cast<int>(std::floor(painted.y));
    const SDL_Rect part{left, top, static_cast<int>(std::ceil(painted.right())) - left,
                        static_cast<int>(std::ceil(painted.bottom())) - top};
    if (SDL_UpdateTexture(texture_.get(), &part, bitmap_->row(top) + left, bitmap_->stride()) != 0) {
        throw SdlError("the window takes no pictures");
    }
}

}  // namespace vorpel::playground
