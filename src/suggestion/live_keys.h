// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "suggestion/vp_word_suggestions.h"

#include <optional>
#include <string>
#include <vector>

namespace vorpel {

/// Live key frames as the parallel integer arrays that the engine's geometry is made of.
struct LiveKeys {
    std::vector<int> codes;
    std::vector<int> upperCodes;
    std::vector<int> xs;
    std::vector<int> ys;
    std::vector<int> widths;
    std::vector<int> heights;

    /// One entry a frame; a missing frame is an empty rectangle, a missing cap has the code 0. A code
    /// is the first byte of the cap's UTF-8 form, sign-extended: one byte, not a code point, so that
    /// caps beyond ASCII give negative codes that collide by their lead byte.
    static LiveKeys fromFrames(const std::vector<std::optional<LiveKeyFrame>>& frames,
                               const std::vector<std::string>& caps);

    [[nodiscard]] int count() const { return static_cast<int>(codes.size()); }
};

/// Towards zero; a value that no int holds becomes the nearest that does, and no number becomes 0.
int truncateToInt(double value);

}  // namespace vorpel
