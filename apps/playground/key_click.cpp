// SPDX-License-Identifier: Apache-2.0
#include "key_click.h"

#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace vorpel::playground {

namespace {

constexpr int SAMPLES_A_SECOND = 48000;

// A knock of two tones that dies away within some milliseconds.
std::vector<std::int16_t> click() {
    constexpr double SECONDS = 0.02;
    constexpr double DECAY = 0.0025;
    constexpr double LOW_TONE = 950;
    constexpr double HIGH_TONE = 2300;
    constexpr double LOUDNESS = 0.25 * INT16_MAX;
    std::vector<std::int16_t> samples(static_cast<std::size_t>(SECONDS * SAMPLES_A_SECOND));
    double time = 0;
    for (std::int16_t& sample : samples) {
        const double turn = 2 * std::numbers::pi * time;
        const double tone = 0.6 * std::sin(turn * LOW_TONE) + 0.4 * std::sin(turn * HIGH_TONE);
        sample = static_cast<std::int16_t>(LOUDNESS * std::exp(-time / DECAY) * tone);
        time += 1.0 / SAMPLES_A_SECOND;
    }
    return samples;
}

SDL_AudioDeviceID openLoudspeaker() {
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return 0;
    SDL_AudioSpec wanted{};
    wanted.freq = SAMPLES_A_SECOND;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 1;
    wanted.samples = 256;
    const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device != 0) SDL_PauseAudioDevice(device, 0);
    return device;
}

}  // namespace

KeyClick::~KeyClick() {
    if (device_ != 0) SDL_CloseAudioDevice(device_);
}

void KeyClick::play(int /*number*/) {
    static const std::vector<std::int16_t> CLICK = click();
    const std::lock_guard lock(mutex_);
    if (!tried_) device_ = openLoudspeaker();
    tried_ = true;
    if (device_ == 0) return;
    // A fast typist's clicks do not pile up.
    SDL_ClearQueuedAudio(device_);
    SDL_QueueAudio(device_, CLICK.data(), static_cast<Uint32>(CLICK.size() * sizeof CLICK[0]));
}

}  // namespace vorpel::playground
