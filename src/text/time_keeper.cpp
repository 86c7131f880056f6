// SPDX-License-Identifier: Apache-2.0
#include "text/time_keeper.h"

#include <ctime>

namespace wordengine {

int TimeKeeper::sCurrentTime = 0;
bool TimeKeeper::sSetForTesting = false;

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
