// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// A view of the caller's array of option values, which must outlive it. A missing option is off.
class SuggestOptions {
public:
    SuggestOptions(const int* options, int length) : options_(options), length_(length) {}

    bool isGesture() const { return getBoolOption(IS_GESTURE); }
    bool blockOffensiveWords() const { return getBoolOption(BLOCK_OFFENSIVE_WORDS); }

    bool getBoolOption(int key) const { return options_ && key >= 0 && key < length_ && options_[key] != 0; }

private:
    static constexpr int IS_GESTURE = 0;
    static constexpr int BLOCK_OFFENSIVE_WORDS = 2;

    const int* options_;
    int length_;
};

}  // namespace wordengine
