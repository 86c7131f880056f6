// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/clock.h"
#include "platform/run_loop.h"

namespace vorpel::platform {

/// Lets the time of a clock that is moved by hand pass, stopping at every deadline of the loop on the way to
/// run what is due then. Throws std::runtime_error when the loop always has something to do at once.
void advance(ManualClock& clock, RunLoop& runLoop, double seconds);

}  // namespace vorpel::platform
