// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/file_user_defaults.h"
#include "platform/posix/learned_words.h"
#include "platform/posix/thread_pool.h"
#include "support/queued_work.h"
#include "support/temporary_folder.h"
#include "support/without_privileges.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <sys/stat.h>
#include <thread>

namespace vorpel::platform {
namespace {

using Strings = std::vector<std::string>;

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void put(FileUserDefaults& store, const std::string& name) {
    store.setBool(name, true);
}
void put(LearnedWords& store, const std::string& name) {
    store.learnWord(name);
}
bool has(const FileUserDefaults& store, const std::string& name) {
    return store.boolForKey(name);
}
bool has(const LearnedWords& store, const std::string& name) {
    return store.hasLearnedWord(name);
}

/// A folder, a queue that saves only when it is told to, and what is told of saves that fail.
template <typename Store>
struct SavedStoreTest : ::testing::Test {
    testing::TemporaryFolder folder;
    std::string path = folder.path("file");
    testing::QueuedWork queue;
    Strings faults;

    std::unique_ptr<Store> open() {
        return std::make_unique<Store>(path, queue,
                                       [this](const std::string& line) { faults.push_back(line); });
    }
};

using Stores = ::testing::Types<FileUserDefaults, LearnedWords>;
TYPED_TEST_SUITE(SavedStoreTest, Stores);

TYPED_TEST(SavedStoreTest, ManyChangesCostOneSaveWhichMayOutliveTheObject) {
    auto store = this->open();
    for (const char* const name : {"one", "two", "three"}) put(*store, name);
    EXPECT_EQ(this->queue.count(), 1U);
    EXPECT_EQ(contentOf(this->path), "") << "nobody waits for the disk";
    this->queue.runAll();
    EXPECT_TRUE(has(*this->open(), "three"));
    put(*store, "three");
    EXPECT_EQ(this->queue.count(), 0U) << "nothing has changed";
    put(*store, "four");
    store.reset();
    store = this->open();
    put(*store, "five");
    store.reset();
    this->queue.runAll();
    store = this->open();
    for (const char* const name : {"one", "two", "three", "four", "five"}) EXPECT_TRUE(has(*store, name));
    EXPECT_EQ(this->faults, Strings());
}

TYPED_TEST(SavedStoreTest, WhatCannotBeReadIsReportedAndLeftAlone) {
    const std::string content = "{\"kept\" : true}";
    this->folder.write("file", content);
    ASSERT_EQ(::chmod(this->path.c_str(), 0222), 0);
    ASSERT_EQ(::chmod(this->folder.path().c_str(), 0777), 0);
    {
        const testing::WithoutPrivileges ordinary;
        const auto store = this->open();
        put(*store, "new");
        EXPECT_TRUE(has(*store, "new"));
    }
    ASSERT_EQ(::chmod(this->path.c_str(), 0644), 0);
    EXPECT_EQ(contentOf(this->path), content);
    ASSERT_GE(this->faults.size(), 1U);
    EXPECT_TRUE(this->faults[0].starts_with(this->path + ": ")) << this->faults[0];
    EXPECT_TRUE(this->faults[0].ends_with(" cannot be read and will not be saved: Permission denied"));
}

TYPED_TEST(SavedStoreTest, AFailedSaveIsReportedAndTriedAgainAtTheNextChange) {
    this->path = this->folder.path("data/deeper/file");
    auto store = this->open();
    const std::string inTheWay = this->folder.write("data", "");
    put(*store, "first");
    this->queue.runAll();
    ASSERT_EQ(this->faults.size(), 1U);
    EXPECT_TRUE(this->faults[0].starts_with(this->path + ": ")) << this->faults[0];
    EXPECT_TRUE(this->faults[0].ends_with(" cannot be saved: Not a directory")) << this->faults[0];
    store->synchronize();
    EXPECT_EQ(this->faults.size(), 2U) << "the first still waits";
    std::filesystem::remove(inTheWay);
    put(*store, "second");
    this->queue.runAll();
    EXPECT_TRUE(has(*this->open(), "first") && has(*this->open(), "second"));
    EXPECT_EQ(std::filesystem::status(inTheWay).permissions(), std::filesystem::perms::owner_all);

    std::filesystem::remove_all(inTheWay);
    this->folder.write("data", "");
    put(*store, "third");
    store.reset();
    EXPECT_EQ(this->faults.size(), 3U);
    EXPECT_EQ(this->queue.runAll(), 1U);
    EXPECT_EQ(this->faults.size(), 3U) << "nobody is there to be told";
}

using LearnedWordsTest = SavedStoreTest<LearnedWords>;

TEST_F(LearnedWordsTest, WordsAndDamagedLinesStandWhereTheyStood) {
    const std::string content = "good\n\xff\xfe\nnext\r\n\n" + std::string(8, '\0') + "\nopen end";
    folder.write("file", content);
    {
        const auto words = open();
        const std::string fault = path + ": lines that are not words are left alone: 2, the first is line 2";
        EXPECT_EQ(faults, Strings{fault});
        for (const char* word : {"good", "next", "open end"})
            EXPECT_TRUE(words->hasLearnedWord(word)) << word;
        for (const std::string& text : Strings{"", "a\nb", "a\r", std::string(1, '\0'), "\xff"}) {
            words->learnWord(text);
            EXPECT_FALSE(words->hasLearnedWord(text)) << "is no word";
        }
        EXPECT_EQ(queue.count(), 0U);
        for (const char* word : {"مرحبا", "ice cream", "next", "مرحبا"}) words->learnWord(word);
    }
    EXPECT_EQ(contentOf(path), content + "\nمرحبا\nice cream\n");
}

TEST_F(LearnedWordsTest, AppendingOnThreadsKeepsTheOrderInAFileOfTheUsersOwn) {
    std::string expected;
    {
        ThreadPool pool(2);
        LearnedWords words(path, pool, {});
        for (int number = 0; number < 100; ++number) {
            words.learnWord(std::to_string(number));
            expected += std::to_string(number) + "\n";
        }
    }
    EXPECT_EQ(contentOf(path), expected);
    using Permissions = std::filesystem::perms;
    EXPECT_EQ(std::filesystem::status(path).permissions(),
              Permissions::owner_read | Permissions::owner_write);
}

using FileUserDefaultsTest = SavedStoreTest<FileUserDefaults>;

TEST_F(FileUserDefaultsTest, EveryKindOfValueComesBackAsItWas) {
    const std::map<std::string, UserDefaults::Value> values = {
        {"true", true},
        {"least", std::numeric_limits<std::int64_t>::min()},
        {"greatest", std::numeric_limits<std::int64_t>::max()},
        {"one as a real", 1.0},
        {"tiny", std::numeric_limits<double>::denorm_min()},
        {"infinite", std::numeric_limits<double>::infinity()},
        {"text", "مرحبا \"👍🏽\" \\ / \n\t\x01\x7f"},
        {"bytes", std::string("a\0\xff\xe2\x82z", 6)},
        {"no list", Strings{}},
        {"list", Strings{"😀", "", "true", "1"}},
        {"", "under no key"},
        {"key \" 👍 \xff\n", std::int64_t{-7}},
    };
    auto defaults = open();
    for (const auto& [key, value] : values) defaults->setObject(key, value);
    defaults->setObject("nan", std::nan(""));
    defaults->registerDefaults({{"registered", "not saved"}, {"text", "lies under what is stored"}});
    defaults->synchronize();
    for (int opening = 0; opening < 2; ++opening) {
        for (const auto& [key, value] : values) EXPECT_EQ(defaults->objectForKey(key), value) << key;
        EXPECT_TRUE(std::isnan(std::get<double>(*defaults->objectForKey("nan"))));
        EXPECT_EQ(defaults->stringForKey("registered").has_value(), opening == 0);
        EXPECT_EQ(defaults->integerForKey("text"), 0) << "of another kind";
        if (opening == 0) defaults = open();
    }
    defaults->registerDefaults({{"text", "registered"}});
    defaults->removeObject("text");
    EXPECT_EQ(defaults->stringForKey("text"), "registered");
}

TEST_F(FileUserDefaultsTest, DamagedFilesAreSetAsideAndWhatCanBeReadIsKept) {
    const Strings contents = {
        "",
        " \n",
        "{",
        "[]",
        "{\"kept\": 1} x",
        "{\"kept\": 1, \"kept\": 2}",
        "{/* by hand */ \"kept\": 1}",
        "{\"kept\": 1 // by hand\n}",
        std::string(64, '\0'),
        std::string(5000, '['),
        "{\"kept\": 1, \"x\": null}",
        "{\"kept\": 1, \"x\": {\"y\": 1}}",
        "{\"kept\": 1, \"x\": [\"a\", 2]}",
        "{\"kept\": 1, \"x\": 9223372036854775808}",
        "\xff\xfe{\"kept\": 1}",
    };
    int number = 0;
    for (const std::string& content : contents) {
        SCOPED_TRACE(content.substr(0, 40));
        folder.write("file", content);
        faults.clear();
        auto defaults = open();
        const std::string aside = path + ".damaged-" + std::to_string(++number);
        ASSERT_EQ(faults.size(), 1U);
        EXPECT_TRUE(faults[0].starts_with(path + ": damaged preferences (")) << faults[0];
        EXPECT_TRUE(faults[0].ends_with("set aside as " + aside)) << faults[0];
        EXPECT_EQ(faults[0].find('\n'), std::string::npos);
        const bool readable = content.find("\"x\"") != std::string::npos;
        EXPECT_EQ(defaults->integerForKey("kept"), readable ? 1 : 0);
        if (!readable) defaults->setInteger("kept", number);
        defaults.reset();
        defaults = open();
        EXPECT_EQ(defaults->integerForKey("kept"), readable ? 1 : number);
        EXPECT_EQ(faults.size(), 1U);
        EXPECT_EQ(contentOf(aside), content);
    }
}

TEST_F(FileUserDefaultsTest, ADamagedFileThatCannotBeSetAsideIsNotOverwritten) {
    folder.write("file", "{");
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

TEST_F(FileUserDefaultsTest, AFolderOrAPipeIsLeftAloneAndALinkIsSavedWhereItLeads) {
    for (const bool pipe : {false, true}) {
        faults.clear();
        ASSERT_EQ(pipe ? ::mkfifo(path.c_str(), 0600) : ::mkdir(path.c_str(), 0700), 0);
        put(*open(), "number");
        EXPECT_EQ(faults.size(), 2U);
        EXPECT_FALSE(std::filesystem::is_regular_file(path));
        std::filesystem::remove(path);
    }
    const std::string target = folder.write("elsewhere.json", "{}");
    std::filesystem::create_symlink(target, path);
    put(*open(), "number");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_NE(contentOf(target).find("number"), std::string::npos);
}

TEST_F(FileUserDefaultsTest, ThreadsMayReadWriteAndSaveAtOnce) {
    const auto use = [](FileUserDefaults& defaults, const std::string& own) {
        for (int round = 1; round <= 50; ++round) {
            defaults.setInteger(own, round);
            defaults.setString("shared", own);
            defaults.registerDefaults({{"registered", round}});
            EXPECT_EQ(defaults.integerForKey(own), round);
            EXPECT_TRUE(defaults.stringForKey("shared"));
            EXPECT_GT(defaults.integerForKey("registered"), 0);
            if (round % 20 == 0) defaults.synchronize();
        }
    };
    const Strings names{"1", "2", "3", "4"};
    {
        ThreadPool pool(2);
        FileUserDefaults defaults(path, pool, [](const std::string& fault) { ADD_FAILURE() << fault; });
        std::vector<std::thread> threads;
        for (const std::string& own : names) threads.emplace_back([&] { use(defaults, own); });
        for (std::thread& thread : threads) thread.join();
    }
    for (const std::string& own : names) EXPECT_EQ(open()->integerForKey(own), 50);
}

}  // namespace
}  // namespace vorpel::platform
