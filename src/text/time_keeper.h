// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// The clock of the engine, in seconds since 1970: every operation on a dictionary takes the time once
/// at its start, and sees that one value throughout. Each thread has a clock, and a test mode, of its own.
class TimeKeeper {
public:
    TimeKeeper() = delete;

    /// Takes the system's time, unless the test mode holds it.
    static void setCurrentTime();
    [[nodiscard]] static int peekCurrentTime();

    static void startTestModeWithForceCurrentTime(int currentTime);
    /// Lets the next setCurrentTime take the system's time again; the present value stays.
    static void stopTestMode();

private:
    static thread_local int sCurrentTime;
    static thread_local bool sSetForTesting;
};

}  // namespace wordengine
