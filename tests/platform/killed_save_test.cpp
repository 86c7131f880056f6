// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/file_user_defaults.h"
#include "support/queued_work.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace vorpel::platform {
namespace {

/// Some pages long, so that a save takes several steps; the same number all over.
void setVersion(UserDefaults& defaults, std::int64_t version) {
    defaults.setInteger("first", version);
    defaults.setStringArray("list", std::vector<std::string>(2000, std::to_string(version)));
    defaults.setInteger("zlast", version);
}

[[noreturn]] void saveForEver(const std::string& path, int started) {
    testing::QueuedWork queue;
    FileUserDefaults defaults(path, queue, [](const std::string&) { ::_exit(1); });
    for (std::int64_t version = defaults.integerForKey("first") + 1;; ++version) {
        setVersion(defaults, version);
        defaults.synchronize();
        if (::write(started, "", 1) != 1) ::_exit(2);
    }
}

/// Counted from the first save, so that a busy machine does not have its child killed before it began.
/// @return whether it was killed, rather than failed
bool killWhileSaving(const std::string& path, unsigned microseconds) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) return false;
    const pid_t child = ::fork();
    if (child == 0) saveForEver(path, pipe[1]);
    ::close(pipe[1]);  // else a child that ends by itself would be waited for without end
    char byte = 0;
    const bool saved = ::read(pipe[0], &byte, 1) == 1;
    ::usleep(microseconds);
    ::kill(child, SIGKILL);
    int status = 0;
    const bool killed = ::waitpid(child, &status, 0) == child && WIFSIGNALED(status);
    ::close(pipe[0]);
    return saved && killed;
}

TEST(KilledSave, TheFileIsAlwaysOneCompleteVersion) {
    const testing::TemporaryFolder folder;
    const std::string path = folder.path("preferences.json");
    testing::QueuedWork queue;
    std::mt19937 random(3);
    std::int64_t before = 0;
    for (int round = 0; round < 150; ++round) {
        ASSERT_TRUE(killWhileSaving(path, random() % 10000));
        const FileUserDefaults defaults(path, queue, [](const std::string& line) { ADD_FAILURE() << line; });
        const std::int64_t version = defaults.integerForKey("first");
        ASSERT_GT(version, before) << "a save that was done is lost";
        before = version;
        ASSERT_EQ(defaults.integerForKey("zlast"), version);
        const std::vector<std::string> list(2000, std::to_string(version));
        ASSERT_EQ(defaults.stringArrayForKey("list"), list);
    }
    int unfinished = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        unfinished += entry.path() != path ? 1 : 0;
    }
    EXPECT_GT(unfinished, 0) << "no kill came between the first byte and the rename";
}

}  // namespace
}  // namespace vorpel::platform
