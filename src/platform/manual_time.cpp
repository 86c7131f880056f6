// SPDX-License-Identifier: Apache-2.0
#include "platform/manual_time.h"

#include <stdexcept>

namespace vorpel::platform {

void advance(ManualClock& clock, RunLoop& runLoop, double seconds) {
    // Sums of seconds that should be equal may differ in their last digits.
    constexpr double SLACK = 1e-9;
    constexpr int MOST_TURNS_AT_ONCE = 10000;
    const double end = clock.now() + seconds;
    int turnsAtOnce = 0;
    for (auto next = runLoop.nextDeadline(); next && *next <= end + SLACK; next = runLoop.nextDeadline()) {
        turnsAtOnce = *next > clock.now() ? 0 : turnsAtOnce + 1;
        if (turnsAtOnce > MOST_TURNS_AT_ONCE) throw std::runtime_error("the run loop never comes to rest");
        clock.advanceTo(*next);
        runLoop.runDue();
    }
    clock.advanceTo(end);
}

}  // namespace vorpel::platform
