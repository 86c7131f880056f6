// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/clock.h"

#include <chrono>

namespace vorpel::platform {

/// The machine's own clock, from some start. It stands while the machine sleeps.
class SteadyClock final : public Clock {
public:
    [[nodiscard]] double now() const override {
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }
};

}  // namespace vorpel::platform
