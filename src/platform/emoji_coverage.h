// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel::platform {

/// Which emoji can be seen where the keyboard is shown: fonts are older or newer than the emoji of the day.
/// Main thread only.
class EmojiCoverage {
public:
    virtual ~EmojiCoverage() = default;

    /// Whether the one emoji, UTF-8, of any number of code points, is drawn as one picture.
    [[nodiscard]] virtual bool canDraw(const std::string& emoji) const = 0;
};

}  // namespace vorpel::platform
