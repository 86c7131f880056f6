// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <time.h>

namespace vorpel::bench {

/// Microseconds. `processor` is what this thread computed, whatever else the machine does; `wall` is what
/// somebody waited. On an idle core they are the same.
struct Spent {
    double processor = 0;
    double wall = 0;

    Spent& operator+=(const Spent& other) {
        processor += other.processor;
        wall += other.wall;
        return *this;
    }
};

template <typename Work>
Spent timed(Work&& work) {
    const auto now = [](clockid_t clock) {
        timespec time{};
        clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) * 1e-3;
    };
    const double wall = now(CLOCK_MONOTONIC);
    const double processor = now(CLOCK_THREAD_CPUTIME_ID);
    work();
    return {now(CLOCK_THREAD_CPUTIME_ID) - processor, now(CLOCK_MONOTONIC) - wall};
}

}  // namespace vorpel::bench
