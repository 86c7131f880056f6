// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <csignal>
#include <pthread.h>
#include <thread>
#include <utility>

namespace vorpel::platform {

/// Starts a thread on which no signal is handled: a host's handlers, and what it waits for with signalfd,
/// stay with the threads that it made itself.
template <typename Work>
std::thread startQuietThread(Work work) {
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    // Should no thread be had, the caller's signals come back all the same.
    struct Restore {
        const sigset_t& mask;
        ~Restore() { ::pthread_sigmask(SIG_SETMASK, &mask, nullptr); }
    };
    const Restore restore{before};
    return std::thread(std::move(work));
}

}  // namespace vorpel::platform
