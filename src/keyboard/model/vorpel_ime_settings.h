// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel {

/// What a host may set for its user.
enum class VorpelIMESettings {
    AUTO_CAPITALIZATION = 0,
    AUTO_CORRECTION = 1,
    WORD_SUGGESTION = 2,
    KEYPAD_CLICK_SOUND = 3,
    LOWERCASE_KEY_CAPS = 4
};

}  // namespace vorpel
