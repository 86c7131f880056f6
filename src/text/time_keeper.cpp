// SPDX-License-Identifier: Apache-2.0
#include "text/time_keeper.h"

#include <ctime>

namespace wordengine {

thread_local int TimeKeeper::sCurrentTime = 0;
thread_local bool TimeKeeper::sSetForTesting = false;

int TimeKeeper::peekCurrentTime() {
    return sCurrentTime;
}

void TimeKeeper::setCurrentTime() {
    if (!sSetForTesting) sCurrentTime = static_cast<int>(std::time(nullptr));
}

void TimeKeeper::startTestModeWithForceCurrentTime(int currentTime) {
    sCurrentTime = currentTime;
    sSetForTesting = true;
}

void TimeKeeper::stopTestMode() {
    sSetForTesting = false;
}

}  // namespace wordengine
