// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/file_user_defaults.h"
#include "platform/posix/learned_words.h"
#include "platform/posix/xdg_folders.h"
#include "support/queued_work.h"
#include "support/temporary_folder.h"
#include "support/without_privileges.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
#include <sys/stat.h>

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
    const std::string target =
        this->folder.write("elsewhere", std::is_same_v<TypeParam, LearnedWords> ? "" : "{}");
    std::filesystem::create_symlink(target, this->path);
    auto store = this->open();
    for (const char* const name : {"one", "two", "three"}) put(*store, name);
    EXPECT_EQ(this->queue.count(), 1U);
    this->queue.runAll();
    put(*store, "three");
    EXPECT_EQ(this->queue.count(), 0U) << "nothing has changed";
    put(*store, "four");
    store.reset();
    this->queue.runAll();
    EXPECT_TRUE(has(*this->open(), "one") && has(*this->open(), "four"));
    EXPECT_EQ(this->faults, Strings());
    EXPECT_TRUE(std::filesystem::is_symlink(this->path)) << "what a link leads to is saved";
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
    EXPECT_TRUE(this->faults[0].ends_with(" cannot be read and will not be saved: Permission denied"));
}

TYPED_TEST(SavedStoreTest, AFailedSaveIsReportedAndTriedAgainAtTheNextChange) {
    this->path = this->folder.path("data/deeper/file");
    auto store = this->open();
    const std::string inTheWay = this->folder.write("data", "");
    put(*store, "first");
    this->queue.runAll();
    ASSERT_EQ(this->faults.size(), 1U);
    EXPECT_TRUE(this->faults[0].ends_with(" cannot be saved: Not a directory")) << this->faults[0];
    std::filesystem::remove(inTheWay);
    put(*store, "second");
    this->queue.runAll();
    EXPECT_TRUE(has(*this->open(), "first") && has(*this->open(), "second"));
}

using LearnedWordsTest = SavedStoreTest<LearnedWords>;

TEST_F(LearnedWordsTest, WordsAndDamagedLinesStandWhereTheyStood) {
    const std::string content = "good\n\xff\xfe\nnext\r\n\n" + std::string(8, '\0') + "\nopen end";
    folder.write("file", content);
    {
        const auto words = open();
        EXPECT_EQ(faults,
                  Strings{path + ": lines that are not words are left alone: 2, the first is line 2"});
        EXPECT_TRUE(words->hasLearnedWord("next") && words->hasLearnedWord("open end"));
        for (const std::string& text : Strings{"", "a\nb", "a\r", std::string(1, '\0'), "\xff"}) {
            words->learnWord(text);
            EXPECT_FALSE(words->hasLearnedWord(text)) << "is no word";
        }
        for (const char* word : {"مرحبا", "next", "مرحبا"}) words->learnWord(word);
    }
    EXPECT_EQ(contentOf(path), content + "\nمرحبا\n");
}

using FileUserDefaultsTest = SavedStoreTest<FileUserDefaults>;

TEST_F(FileUserDefaultsTest, EveryKindOfValueComesBackAsItWas) {
    const std::map<std::string, UserDefaults::Value> values = {
        {"", true},
        {"least", std::numeric_limits<std::int64_t>::min()},
        {"greatest", std::numeric_limits<std::int64_t>::max()},
        {"one as a real", 1.0},
        {"infinite", std::numeric_limits<double>::infinity()},
        {"text", "مرحبا \"👍🏽\" \\ / \n\t\x01\x7f"},
        {"bytes", std::string("a\0\xff\xe2\x82z", 6)},
        {"no list", Strings{}},
        {"list", Strings{"😀", "", "true", "1"}},
        {"key \" 👍 \xff\n", std::int64_t{-7}},
    };
    auto defaults = open();
    for (const auto& [key, value] : values) defaults->setObject(key, value);
    defaults->setObject("nan", std::nan(""));
    defaults->registerDefaults({{"registered", "not saved"}, {"text", "lies under what is stored"}});
    defaults->synchronize();
    defaults = open();
    for (const auto& [key, value] : values) EXPECT_EQ(defaults->objectForKey(key), value) << key;
    EXPECT_TRUE(std::isnan(std::get<double>(*defaults->objectForKey("nan"))));
    EXPECT_EQ(defaults->stringForKey("registered"), std::nullopt);
}

TEST_F(FileUserDefaultsTest, DamagedFilesAreSetAsideAndWhatCanBeReadIsKept) {
    const Strings contents = {
        "",
        "{",
        "{\"kept\": 1} x",
        "{\"kept\": 1, \"kept\": 2}",
        "{/* by hand */ \"kept\": 1}",
        std::string(64, '\0'),
        std::string(5000, '['),
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

void setVariable(const char* name, const char* value) {
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
}

TEST(XdgFolders, FollowTheRules) {
    struct Row {
        const char* xdg;
        const char* home;
        std::optional<std::string> configuration, data;
    };
    const std::vector<Row> rows = {
        {"/etc/x", "/home/a", "/etc/x/vorpel", "/etc/x/vorpel"},
        {nullptr, "/home/a", "/home/a/.config/vorpel", "/home/a/.local/share/vorpel"},
        {"x/y", "/home/a", "/home/a/.config/vorpel", "/home/a/.local/share/vorpel"},
        {"x", "home/a", std::nullopt, std::nullopt},
    };
    for (const Row& row : rows) {
        setVariable("XDG_CONFIG_HOME", row.xdg);
        setVariable("XDG_DATA_HOME", row.xdg);
        setVariable("HOME", row.home);
        EXPECT_EQ(xdgConfigurationFolder("vorpel"), row.configuration);
        EXPECT_EQ(xdgDataFolder("vorpel"), row.data);
    }
}

}  // namespace
}  // namespace vorpel::platform
