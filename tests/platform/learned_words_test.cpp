// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/learned_words.h"

#include "platform/posix/thread_pool.h"
#include "support/queued_work.h"
#include "support/temporary_folder.h"
#include "support/without_privileges.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>

namespace vorpel::platform {
namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct LearnedWordsTest : ::testing::Test {
    testing::TemporaryFolder folder;
    std::string path = folder.path("data/words.txt");
    testing::QueuedWork queue;
    std::vector<std::string> faults;

    std::unique_ptr<LearnedWords> open() {
        return std::make_unique<LearnedWords>(path, queue,
                                              [this](const std::string& line) { faults.push_back(line); });
    }
};

TEST_F(LearnedWordsTest, WordsLastAndEachStandsInTheFileOnce) {
    {
        const auto words = open();
        for (const char* word : {"vorpel", "مرحبا", "vorpel", "ice cream"}) words->learnWord(word);
        EXPECT_TRUE(words->hasLearnedWord("vorpel"));
        EXPECT_FALSE(words->hasLearnedWord("Vorpel"));
        EXPECT_EQ(queue.count(), 1U);
        EXPECT_FALSE(std::filesystem::exists(path)) << "learning does not wait for the disk";
        queue.runAll();
        EXPECT_EQ(contentOf(path), "vorpel\nمرحبا\nice cream\n");
        words->learnWord("last");
    }
    queue.runAll();
    const auto words = open();
    for (const char* word : {"vorpel", "مرحبا", "ice cream", "last"})
        EXPECT_TRUE(words->hasLearnedWord(word));
    words->learnWord("last");
    words->synchronize();
    EXPECT_EQ(contentOf(path), "vorpel\nمرحبا\nice cream\nlast\n");
    EXPECT_EQ(faults, std::vector<std::string>());
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(LearnedWordsTest, WhatIsNoWordIsNotLearnt) {
    {
        const auto words = open();
        for (const std::string& text :
             std::vector<std::string>{"", "a\nb", "a\r", std::string(1, '\0'), "\xff"}) {
            words->learnWord(text);
            EXPECT_FALSE(words->hasLearnedWord(text));
        }
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(LearnedWordsTest, DamagedLinesAreToldAndLeftAlone) {
    const std::string content = "good\n\xff\xfe\nnext\r\n\n" + std::string(8, '\0') + "\nopen end";
    path = folder.write("words.txt", content);
    {
        const auto words = open();
        ASSERT_EQ(faults.size(), 1U);
        EXPECT_EQ(faults[0], path + ": lines that are not words are left alone: 2, the first is line 2");
        for (const char* word : {"good", "next", "open end"})
            EXPECT_TRUE(words->hasLearnedWord(word)) << word;
    }
    EXPECT_EQ(contentOf(path), content);
    open()->learnWord("new");
    EXPECT_EQ(contentOf(path), content + "\nnew\n");
}

TEST_F(LearnedWordsTest, WhatCannotBeReadIsToldAndLeftAlone) {
    path = folder.write("words.txt", "kept\n");
    ASSERT_EQ(::chmod(path.c_str(), 0222), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    {
        const testing::WithoutPrivileges ordinary;
        const auto words = open();
        words->learnWord("new");
        EXPECT_TRUE(words->hasLearnedWord("new"));
    }
    ASSERT_EQ(::chmod(path.c_str(), 0644), 0);
    EXPECT_EQ(contentOf(path), "kept\n");
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0], path + ": learnt words cannot be read and will not be saved: Permission denied");
}

TEST_F(LearnedWordsTest, AFailedSaveIsToldAndTriedAgainWithTheNextWord) {
    const auto words = open();
    const std::string inTheWay = folder.write("data", "");
    words->learnWord("first");
    queue.runAll();
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0], path + ": learnt words cannot be saved: Not a directory");
    std::filesystem::remove(inTheWay);
    words->learnWord("second");
    queue.runAll();
    EXPECT_EQ(contentOf(path), "first\nsecond\n");
}

TEST_F(LearnedWordsTest, AppendingOnThreadsKeepsTheOrder) {
    std::string expected;
    {
        ThreadPool pool(2);
        LearnedWords words(path, pool, [this](const std::string& line) { faults.push_back(line); });
        for (int number = 0; number < 100; ++number) {
            const std::string word = "word" + std::to_string(number);
            words.learnWord(word);
            expected += word + "\n";
        }
    }
    EXPECT_EQ(contentOf(path), expected);
}

}  // namespace
}  // namespace vorpel::platform
