// SPDX-License-Identifier: Apache-2.0
#include "ui/display_link.h"

#include <utility>

namespace vorpel::ui {

DisplayLink::DisplayLink(platform::RunLoop& runLoop, Callback callback, double framesPerSecond)
    : runLoop_(runLoop),
      callback_(std::make_shared<const Callback>(std::move(callback))),
      interval_(1 / framesPerSecond) {
    setPaused(false);
}

void DisplayLink::setPaused(bool paused) {
    if (paused == isPaused()) return;
    if (paused) {
        timer_.invalidate();
        return;
    }
    timer_ = runLoop_.scheduledTimer(
        interval_, true, [callback = callback_, &runLoop = runLoop_] { (*callback)(runLoop.now()); });
}

}  // namespace vorpel::ui
