// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/system_sound.h"

#include <SDL.h>

#include <mutex>

namespace vorpel::playground {

/// One short click, whatever the number. The loudspeaker is asked for at the first one; without any it is
/// silent. Must be gone before SDL is.
class KeyClick final : public platform::SystemSound {
public:
    KeyClick() = default;
    ~KeyClick() override;
    KeyClick(const KeyClick&) = delete;
    KeyClick& operator=(const KeyClick&) = delete;

    void play(int number) override;

private:
    std::mutex mutex_;  // guards what follows
    SDL_AudioDeviceID device_ = 0;
    bool tried_ = false;
};

}  // namespace vorpel::playground
