// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel {

enum class ShiftState { Disabled = 0, Enabled = 1, Locked = 2 };

/// Whether letters come out as capitals.
constexpr bool uppercase(ShiftState state) {
    return state != ShiftState::Disabled;
}

}  // namespace vorpel
