// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/manual_time.h"
#include "platform/memory_user_defaults.h"
#include "platform/platform.h"
#include "platform/posix/folder_bundle.h"
#include "support/queued_work.h"
#include "support/recording_host.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel::testing {

/// What a deterministic platform is made like: at first an upright phone without resources.
struct PlatformShape {
    double width = 375;  // points
    double height = 667;
    double scale = 2;
    platform::UserInterfaceIdiom idiom = platform::UserInterfaceIdiom::Phone;
    std::string modelName;
    std::vector<std::string> resourceFolders;
};

/// A platform on which nothing happens unless the test makes it happen: time stands until `advance`, work
/// off the main thread waits until it is told to run and then runs on the test's thread. Only the edge is
/// make-believe; the run loop and the notification centre are those of every host. Must outlive what is
/// created with `platform`.
class DeterministicPlatform {
public:
    explicit DeterministicPlatform(const PlatformShape& shape = {})
        : runLoop(clock),
          bundle(shape.resourceFolders),
          screen(shape.width, shape.height, shape.scale),
          device(shape.idiom, shape.modelName) {}
    DeterministicPlatform(const DeterministicPlatform&) = delete;
    DeterministicPlatform& operator=(const DeterministicPlatform&) = delete;

    platform::ManualClock clock;
    platform::RunLoop runLoop;
    platform::NotificationCenter notificationCenter;
    platform::MemoryUserDefaults userDefaults;
    platform::FolderBundle bundle;
    platform::PlainScreen screen;
    platform::PlainDevice device;
    RecordingHost host;
    QueuedWork globalQueue;
    QueuedWork operations;  ///< of all operation queues together, in the order in which they were added
    MemoryTextChecker textChecker;
    RecordingSound sound;

    platform::Platform platform{.host = host,
                                .runLoop = runLoop,
                                .notificationCenter = notificationCenter,
                                .userDefaults = userDefaults,
                                .bundle = bundle,
                                .screen = screen,
                                .device = device,
                                .globalQueue = globalQueue,
                                .makeOperationQueue = [this] { return operations.makeOperationQueue(); },
                                .textChecker = &textChecker,
                                .systemSound = &sound};

    [[nodiscard]] platform::PlainTextField& field() { return host.field; }

    /// Lets the time pass, stopping at every deadline on the way to run what is due then. The queues stand.
    void advance(double seconds) { platform::advance(clock, runLoop, seconds); }

    /// Runs the queues and the loop, without any time passing, until all have nothing left to do.
    void settle() {
        for (int turn = 0; turn < MOST_TURNS; ++turn) {
            const std::size_t ran = globalQueue.runAll() + operations.runAll();
            const auto next = runLoop.nextDeadline();
            const bool due = next && *next <= clock.now();
            if (due) runLoop.runDue();
            if (ran == 0 && !due) return;
        }
        throw std::runtime_error("the platform never comes to rest");
    }

private:
    static constexpr int MOST_TURNS = 10000;
};

}  // namespace vorpel::testing
