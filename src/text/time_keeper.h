// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// The clock of the engine, in seconds since 1970: every operation on a dictionary takes the time once
/// at its start, and sees that one value throughout. Unsynchronised.
class TimeKeeper {
public:
    TimeKeeper() = delete;

    /// Takes the system's time, unless the test mode holds it.
    static void setCurrentTime();
    [[nodiscard]] static int peekCurrentTime() { return sCurrentTime; }

    static void startTestModeWithForceCurrentTime(int currentTime);
    /// Lets the next setCurrentTime take the system's time again; the present value stays.
    static void stopTestMode();

private:
    static int sCurrentTime;
    static bool sSetForTesting;
};

}  // namespace wordengine
