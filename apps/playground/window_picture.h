// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/bitmap.h"
#include "ui/cairo/drawing_resources.h"
#include "ui/geometry.h"

#include <SDL.h>

#include <memory>
#include <optional>

namespace vorpel::ui {
class Window;
}

namespace vorpel::playground {

/// What an SDL window shows: painted into a picture in memory, of which the parts that change are handed
/// over. The window must outlive it. Main thread only.
class WindowPicture {
public:
    /// Throws SdlError when the window takes no pictures.
    explicit WindowPicture(SDL_Window& window);

    /// The window has so many pixels, and so many of them make a point. All is to be painted anew.
    void resize(int width, int height, double scale);

    /// Paints what is damaged and shows it; without damage, nothing.
    ///
    /// @return whether anything was shown; throws SdlError when the window takes no picture
    bool show(ui::Window& content);

    /// The next time the picture is shown, damaged or not.
    void setUncovered() { uncovered_ = true; }

private:
    struct Deleter {
        void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
        void operator()(SDL_Texture* texture) const { SDL_DestroyTexture(texture); }
    };

    void handOver(const ui::Rect& painted);

    std::unique_ptr<SDL_Renderer, Deleter> renderer_;
    std::unique_ptr<SDL_Texture, Deleter> texture_;  // the bitmap where the display has it
    std::optional<ui::DrawingResources> resources_;
    std::optional<ui::Bitmap> bitmap_;
    bool uncovered_ = false;
};

}  // namespace vorpel::playground
