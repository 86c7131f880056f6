// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/file_user_defaults.h"
#include "support/queued_work.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

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

[[noreturn]] void saveForEver(const std::string& path) {
    testing::QueuedWork queue;
    FileUserDefaults defaults(path, queue, [](const std::string&) { ::_exit(1); });
    for (std::int64_t version = defaults.integerForKey("first") + 1;; ++version) {
        setVersion(defaults, version);
        defaults.synchronize();
    }
}

/// @return whether it was killed while it was saving
bool killWhileSaving(const std::string& path, std::chrono::microseconds after) {
    const pid_t child = ::fork();
    if (child == 0) saveForEver(path);
    ::usleep(static_cast<useconds_t>(after.count()));
    ::kill(child, SIGKILL);
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFSIGNALED(status);
}

TEST(KilledSave, TheFileIsAlwaysOneCompleteVersion) {
    const testing::TemporaryFolder folder;
    const std::string path = folder.path("preferences.json");
    testing::QueuedWork queue;
    std::mt19937 random(3);
    std::int64_t before = 0;
    int grown = 0;
    for (int round = 0; round < 150; ++round) {
        ASSERT_TRUE(killWhileSaving(path, std::chrono::microseconds(1000 + random() % 12000)));
        const FileUserDefaults defaults(path, queue, [](const std::string& line) { ADD_FAILURE() << line; });
        const std::int64_t version = defaults.integerForKey("first");
        ASSERT_GE(version, before) << "an older version came back";
        grown += version > before ? 1 : 0;
        before = version;
        if (version == 0) continue;
        ASSERT_EQ(defaults.integerForKey("zlast"), version);
        const std::vector<std::string> list(2000, std::to_string(version));
        ASSERT_EQ(defaults.stringArrayForKey("list"), list);
    }
    // Only then did the kills meet saves at all.
    EXPECT_GT(grown, 10);
    int unfinished = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        unfinished += entry.path() != path ? 1 : 0;
    }
    EXPECT_GT(unfinished, 0) << "no kill came between the first byte and the rename";
}

}  // namespace
}  // namespace vorpel::platform
