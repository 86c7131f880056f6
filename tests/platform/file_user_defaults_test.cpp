// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/file_user_defaults.h"

#include "platform/memory_user_defaults.h"
#include "platform/posix/thread_pool.h"
#include "support/queued_work.h"
#include "support/temporary_folder.h"
#include "support/without_privileges.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <map>
#include <sys/stat.h>
#include <thread>

namespace vorpel::platform {
namespace {

using Value = UserDefaults::Value;
using testing::QueuedWork;

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct FileUserDefaultsTest : ::testing::Test {
    testing::TemporaryFolder folder;
    std::string path = folder.path("preferences.json");
    QueuedWork queue;
    std::vector<std::string> faults;

    std::unique_ptr<FileUserDefaults> open() {
        return std::make_unique<FileUserDefaults>(
            path, queue, [this](const std::string& line) { faults.push_back(line); });
    }
};

TEST_F(FileUserDefaultsTest, EveryKindOfValueComesBackAsItWas) {
    const std::map<std::string, Value> values = {
        {"true", true},
        {"false", false},
        {"one", std::int64_t{1}},
        {"least", std::numeric_limits<std::int64_t>::min()},
        {"greatest", std::numeric_limits<std::int64_t>::max()},
        {"one as a real", 1.0},
        {"a tenth", 0.1},
        {"tiny", std::numeric_limits<double>::denorm_min()},
        {"huge", -std::numeric_limits<double>::max()},
        {"infinite", std::numeric_limits<double>::infinity()},
        {"empty text", ""},
        {"text", "مرحبا \"👍🏽\" \\ / \n\t\x01\x7f"},
        {"bytes", std::string("a\0\xff\xe2\x82z", 6)},
        {"no list", std::vector<std::string>{}},
        {"list", std::vector<std::string>{"😀", "", "true", "1"}},
        {"", "under no key"},
        {"key \" 👍 \xff\n", std::int64_t{-7}},
    };
    {
        const auto defaults = open();
        for (const auto& [key, value] : values) defaults->setObject(key, value);
    }
    const auto defaults = open();
    for (const auto& [key, value] : values) EXPECT_EQ(defaults->objectForKey(key), value) << key;
    EXPECT_EQ(faults, std::vector<std::string>());
    EXPECT_TRUE(std::isnan([&] {
        defaults->setObject("nan", std::nan(""));
        defaults->synchronize();
        return std::get<double>(*open()->objectForKey("nan"));
    }()));
}

TEST_F(FileUserDefaultsTest, RegisteredValuesLieUnderStoredOnesAndAreNotSaved) {
    {
        const auto defaults = open();
        defaults->registerDefaults({{"language", "en"}, {"sound", true}});
        defaults->setString("language", "ar");
        EXPECT_EQ(defaults->stringForKey("language"), "ar");
        EXPECT_TRUE(defaults->boolForKey("sound"));
        EXPECT_EQ(defaults->integerForKey("sound"), 0);
        EXPECT_EQ(defaults->stringArrayForKey("language"), std::nullopt);
    }
    const auto defaults = open();
    EXPECT_FALSE(defaults->boolForKey("sound"));
    defaults->registerDefaults({{"language", "en"}});
    EXPECT_EQ(defaults->stringForKey("language"), "ar");
    defaults->removeObject("language");
    EXPECT_EQ(defaults->stringForKey("language"), "en");
    defaults->synchronize();
    EXPECT_EQ(contentOf(path), "{}\n");
}

TEST_F(FileUserDefaultsTest, ManyChangesCostOneSaveAndTheLastWins) {
    const auto defaults = open();
    EXPECT_EQ(queue.count(), 0U);
    for (int number = 1; number <= 100; ++number) defaults->setInteger("number", number);
    EXPECT_EQ(queue.count(), 1U);
    EXPECT_EQ(contentOf(path), "");
    queue.runAll();
    EXPECT_EQ(contentOf(path), "{\n  \"number\" : 100\n}\n");
    defaults->setInteger("number", 100);
    EXPECT_EQ(queue.count(), 0U) << "nothing has changed";
}

TEST_F(FileUserDefaultsTest, WhatIsInTheQueueMayOutliveTheObject) {
    open()->setInteger("number", 1);
    open()->setInteger("number", 2);
    queue.runAll();
    EXPECT_EQ(open()->integerForKey("number"), 2);
    EXPECT_EQ(faults, std::vector<std::string>());
}

TEST_F(FileUserDefaultsTest, DamagedFilesAreSetAsideAndWhatCanBeReadIsKept) {
    const std::string deep(5000, '[');
    const std::vector<std::string> contents = {
        "",
        " \n",
        "{",
        "[]",
        "\"text\"",
        "{\"kept\": 1} x",
        "{\"kept\": 1, \"kept\": 2}",
        "{/* by hand */ \"kept\": 1}",
        "{\"kept\": 1 // by hand\n}",
        std::string(64, '\0'),
        deep,
        "{\"kept\": 1, \"x\": null}",
        "{\"kept\": 1, \"x\": {\"y\": 1}}",
        "{\"kept\": 1, \"x\": [\"a\", 2]}",
        "{\"kept\": 1, \"x\": 9223372036854775808}",
        "\xff\xfe{\"kept\": 1}",
    };
    int number = 0;
    for (const std::string& content : contents) {
        SCOPED_TRACE(content.substr(0, 40));
        folder.write("preferences.json", content);
        faults.clear();
        auto defaults = open();
        const std::string aside = path + ".damaged-" + std::to_string(++number);
        EXPECT_EQ(contentOf(aside), content);
        ASSERT_EQ(faults.size(), 1U);
        EXPECT_TRUE(faults[0].starts_with(path + ": damaged preferences (")) << faults[0];
        EXPECT_TRUE(faults[0].ends_with("set aside as " + aside)) << faults[0];
        EXPECT_EQ(faults[0].find('\n'), std::string::npos);
        const bool readable = content.find("\"x\"") != std::string::npos;
        EXPECT_EQ(defaults->integerForKey("kept"), readable ? 1 : 0);
        defaults->setInteger("new", number);
        defaults.reset();
        defaults = open();
        EXPECT_EQ(defaults->integerForKey("new"), number);
        EXPECT_EQ(defaults->integerForKey("kept"), readable ? 1 : 0);
        EXPECT_EQ(faults.size(), 1U);
        EXPECT_EQ(contentOf(aside), content);
    }
}

TEST_F(FileUserDefaultsTest, WhatCannotBeReadIsReportedAndLeftAlone) {
    folder.write("preferences.json", "{\"kept\" : 1}");
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    {
        const testing::WithoutPrivileges ordinary;
        const auto defaults = open();
        defaults->setInteger("kept", 2);
        defaults->synchronize();
    }
    ASSERT_EQ(faults.size(), 3U);
    EXPECT_EQ(faults[0], path + ": preferences cannot be read and will not be saved: Permission denied");
    ASSERT_EQ(::chmod(path.c_str(), 0644), 0);
    EXPECT_EQ(contentOf(path), "{\"kept\" : 1}");
}

TEST_F(FileUserDefaultsTest, AFolderOrAPipeInItsPlaceIsLeftAlone) {
    for (const bool pipe : {false, true}) {
        faults.clear();
        ASSERT_EQ(pipe ? ::mkfifo(path.c_str(), 0600) : ::mkdir(path.c_str(), 0700), 0);
        const auto defaults = open();
        defaults->setInteger("number", 1);
        defaults->synchronize();
        EXPECT_EQ(faults.size(), 2U);
        EXPECT_FALSE(std::filesystem::is_regular_file(path));
        std::filesystem::remove(path);
    }
}

TEST_F(FileUserDefaultsTest, ADamagedFileThatCannotBeSetAsideIsNotOverwritten) {
    folder.write("preferences.json", "{");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    std::unique_ptr<FileUserDefaults> defaults;
    {
        const testing::WithoutPrivileges ordinary;
        defaults = open();
    }
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    defaults->setInteger("number", 1);
    defaults->synchronize();
    ASSERT_FALSE(faults.empty());
    EXPECT_NE(faults[0].find("it cannot be set aside: Permission denied"), std::string::npos) << faults[0];
    EXPECT_EQ(contentOf(path), "{");
}

TEST_F(FileUserDefaultsTest, AFailedSaveIsReportedAndTriedAgainAtTheNextChange) {
    path = folder.path("settings/deeper/preferences.json");
    const std::string inTheWay = folder.write("settings", "");
    std::filesystem::remove(inTheWay);
    const auto defaults = open();
    folder.write("settings", "");
    defaults->setInteger("first", 1);
    queue.runAll();
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0], path + ": preferences cannot be saved: Not a directory");
    defaults->synchronize();
    EXPECT_EQ(faults.size(), 2U);
    std::filesystem::remove(inTheWay);
    defaults->setInteger("second", 2);
    queue.runAll();
    EXPECT_EQ(faults.size(), 2U);
    const auto again = open();
    EXPECT_EQ(again->integerForKey("first"), 1);
    EXPECT_EQ(again->integerForKey("second"), 2);
    struct stat status {};
    ASSERT_EQ(::stat(folder.path("settings").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700U);
}

TEST_F(FileUserDefaultsTest, NothingIsReportedOnceTheObjectIsGone) {
    path = folder.path("settings/preferences.json");
    auto defaults = open();
    folder.write("settings", "");
    defaults->setInteger("number", 1);
    defaults.reset();
    EXPECT_EQ(faults.size(), 1U);
    EXPECT_EQ(queue.runAll(), 1U);
    EXPECT_EQ(faults.size(), 1U);
}

TEST_F(FileUserDefaultsTest, ALinkIsSavedWhereItLeads) {
    const std::string target = folder.write("elsewhere.json", "{}");
    std::filesystem::create_symlink(target, path);
    open()->setInteger("number", 1);
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_NE(contentOf(target).find("number"), std::string::npos);
}

TEST_F(FileUserDefaultsTest, ThreadsMayReadWriteAndSaveAtOnce) {
    std::atomic<int> reported = 0;
    {
        ThreadPool pool(2);
        FileUserDefaults defaults(path, pool, [&](const std::string&) { ++reported; });
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&defaults, thread] {
                const std::string own = "own " + std::to_string(thread);
                for (int round = 1; round <= 50; ++round) {
                    defaults.setInteger(own, round);
                    defaults.setString("shared", own);
                    defaults.registerDefaults({{"registered", round}});
                    EXPECT_EQ(defaults.integerForKey(own), round);
                    EXPECT_TRUE(defaults.stringForKey("shared"));
                    EXPECT_GT(defaults.integerForKey("registered"), 0);
                    if (round % 20 == 0) defaults.synchronize();
                }
            });
        }
        for (std::thread& thread : threads) thread.join();
    }
    EXPECT_EQ(reported, 0);
    const auto defaults = open();
    for (int thread = 0; thread < 4; ++thread) {
        EXPECT_EQ(defaults->integerForKey("own " + std::to_string(thread)), 50);
    }
}

TEST(MemoryUserDefaults, ThreadsMayReadAndWriteAtOnce) {
    MemoryUserDefaults defaults;
    std::thread writer([&] {
        for (int round = 0; round < 500; ++round) {
            defaults.setStringArray("list", {"a", std::to_string(round)});
            defaults.registerDefaults({{"registered", std::string(40, 'x')}});
            defaults.removeObject("list");
        }
    });
    for (int round = 0; round < 500; ++round) {
        EXPECT_EQ(defaults.stringArrayForKey("list").value_or(std::vector<std::string>(2)).size(), 2U);
        EXPECT_EQ(defaults.stringForKey("registered").value_or(std::string(40, 'x')).size(), 40U);
    }
    writer.join();
}

}  // namespace
}  // namespace vorpel::platform
