// SPDX-License-Identifier: Apache-2.0
#include "suggestion/live_keys.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vorpel {

namespace {

int firstByteOf(const std::string& text) {
    return text.empty() ? 0 : static_cast<signed char>(text.front());
}

std::string toUpperCase(const std::string& text) {
    std::string upper;
    icu::UnicodeString::fromUTF8(text).toUpper(icu::Locale::getRoot()).toUTF8String(upper);
    return upper;
}

}  // namespace

int truncateToInt(double value) {
    if (std::isnan(value)) return 0;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, lowest, highest));
}

LiveKeys LiveKeys::fromFrames(const std::vector<std::optional<LiveKeyFrame>>& frames,
                              const std::vector<std::string>& caps) {
    LiveKeys keys;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const LiveKeyFrame frame = frames[i].value_or(LiveKeyFrame{});
        const std::string cap = i < caps.size() ? caps[i] : std::string();
        keys.codes.push_back(firstByteOf(cap));
        keys.upperCodes.push_back(firstByteOf(toUpperCase(cap)));
        keys.xs.push_back(truncateToInt(frame.x));
        keys.ys.push_back(truncateToInt(frame.y));
        keys.widths.push_back(truncateToInt(frame.width));
        keys.heights.push_back(truncateToInt(frame.height));
    }
    return keys;
}

}  // namespace vorpel
