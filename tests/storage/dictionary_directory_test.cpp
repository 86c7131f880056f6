// SPDX-License-Identifier: Apache-2.0
#include "storage/dictionary_directory.h"

#include "faulty_file_operations.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wordengine::test {
namespace {

using Fault = FaultyFileOperations::Fault;
using SaveMode = DictionaryDirectory::SaveMode;
using DirectoryPtr = std::unique_ptr<DictionaryDirectory>;

const std::vector<std::string> SUFFIXES = {".header", ".body", ".trie"};

/// More than a stream holds back, and different for each generation also in its length.
std::string contentOf(int generation, const std::string& suffix) {
    std::string content = suffix + " of " + std::to_string(generation) + ":";
    for (int i = 0; i < 1500 + generation; ++i) content += std::to_string(i * generation) + " ";
    return content;
}

std::vector<FileSet::File> filesOf(int generation) {
    std::vector<FileSet::File> files;
    for (const std::string& suffix : {std::string(".header"), std::string(".body")}) {
        files.push_back({suffix, [=](std::FILE* file) {
                             const std::string content = contentOf(generation, suffix);
                             return std::fwrite(content.data(), 1, content.size(), file) == content.size();
                         }});
    }
    return files;
}

class DictionaryDirectoryTest : public ::testing::Test {
protected:
    static constexpr int NOTHING = 0;
    static constexpr int DAMAGED = -1;

    static std::string read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    /// Which generation lies whole in the directory.
    static int generationIn(const std::string& path, const std::string& name = "D") {
        if (!std::filesystem::exists(path)) return NOTHING;
        const std::string base = path + "/" + name;
        const std::string header = read(base + ".header");
        for (int generation = 1; generation < 4; ++generation) {
            if (header != contentOf(generation, ".header")) continue;
            return read(base + ".body") == contentOf(generation, ".body") ? generation : DAMAGED;
        }
        return DAMAGED;
    }

    /// @param outIsCleared whether nothing was in the way of clearing remains away
    static FileResult saveTo(const std::string& path, int generation, SaveMode mode,
                             FileOperations& operations, bool* outIsCleared = nullptr) {
        DirectoryPtr directory;
        FileResult result = DictionaryDirectory::open(path, SUFFIXES, &directory, operations);
        if (!result.isOk()) return result;
        const bool wasCleared = directory->clearing().isOk();
        result = directory->save(filesOf(generation), mode);
        if (outIsCleared != nullptr) *outIsCleared = wasCleared && directory->clearing().isOk();
        return result;
    }

    /// Opens it as the next run of the program would, and tells what it finds.
    static int recoverAndRead(const std::string& path) {
        FaultyFileOperations operations;
        DirectoryPtr directory;
        const FileResult result = DictionaryDirectory::open(path, SUFFIXES, &directory, operations);
        EXPECT_TRUE(result.isOk()) << result.message();
        if (!result.isOk()) return DAMAGED;
        EXPECT_TRUE(directory->clearing().isOk()) << directory->clearing().message();
        EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));
        EXPECT_FALSE(std::filesystem::exists(path + ".replaced"));
        return generationIn(path);
    }

    /// A path for a dictionary with this generation, or without a dictionary.
    std::string pathHolding(int generation) {
        const std::string folder = folder_.path(std::to_string(++folderCount_));
        std::filesystem::create_directory(folder);
        FaultyFileOperations operations;
        if (generation != NOTHING) {
            EXPECT_TRUE(saveTo(folder + "/D", generation, SaveMode::CREATE, operations).isOk());
        }
        return folder + "/D";
    }

    vorpel::testing::TemporaryFolder folder_;
    int folderCount_ = 0;
};

struct Scene {
    int before;
    bool hasExchange;
};
const Scene SCENES[] = {{0, true}, {1, true}, {1, false}};

TEST_F(DictionaryDirectoryTest, AnyStepMayFail) {
    for (const Scene& scene : SCENES) {
        int steps = 0;
        for (bool isReached = true; isReached; ++steps) {
            const std::string path = pathHolding(scene.before);
            FaultyFileOperations operations(Fault::FAILURE, steps + 1, scene.hasExchange);
            bool isCleared = false;
            const FileResult result = saveTo(path, 2, SaveMode::REPLACE, operations, &isCleared);
            isReached = operations.wasReached();
            SCOPED_TRACE("step " + std::to_string(steps + 1) + " before " + std::to_string(scene.before) +
                         " exchange " + std::to_string(scene.hasExchange) + " " + result.message());
            // Whoever goes on without a new start must find it too.
            const int found = generationIn(path);
            const int recovered = recoverAndRead(path);
            EXPECT_TRUE(found == recovered || found == NOTHING);
            EXPECT_TRUE(recovered == 2 || (recovered == scene.before && !result.isOk())) << recovered;
            EXPECT_TRUE(result.isOk() || result.message().starts_with(path.substr(0, path.size() - 1)));
            EXPECT_EQ(!isReached, result.isOk() && isCleared)
                << "a failure is told, and nothing but a failure";
            FaultyFileOperations healthy;
            EXPECT_TRUE(saveTo(path, 3, SaveMode::REPLACE, healthy).isOk())
                << "nothing may block later saves";
            EXPECT_EQ(3, generationIn(path));
        }
        EXPECT_GT(steps, 15);
    }
}

TEST_F(DictionaryDirectoryTest, AnyStepMayBeTheLastBeforeTheProcessEndsOrThePowerFails) {
    for (const Scene& scene : SCENES) {
        for (const int lostRenames : {-1, 0, 1, 2}) {
            int steps = 0;
            int newCount = 0;
            for (bool isReached = true; isReached; ++steps) {
                const std::string path = pathHolding(scene.before);
                FaultyFileOperations operations(Fault::CRASH, steps + 1, scene.hasExchange);
                const FileResult result = saveTo(path, 2, SaveMode::REPLACE, operations);
                isReached = operations.wasReached();
                if (lostRenames >= 0) operations.losePower(lostRenames);
                SCOPED_TRACE("step " + std::to_string(steps + 1) + " before " + std::to_string(scene.before) +
                             " exchange " + std::to_string(scene.hasExchange) + " lost renames " +
                             std::to_string(lostRenames));
                const int recovered = recoverAndRead(path);
                EXPECT_TRUE(recovered == 2 || recovered == scene.before) << recovered;
                EXPECT_TRUE(!result.isOk() || recovered == 2) << "what was reported as saved must last";
                newCount += recovered == 2 ? 1 : 0;
            }
            EXPECT_GT(newCount, 0);
            EXPECT_GT(steps - newCount, 10);
        }
    }
}

TEST_F(DictionaryDirectoryTest, RecoveryMayCrashToo) {
    for (const bool hasExchange : {true, false}) {
        bool isSaveReached = true;
        for (int saveStep = 1; isSaveReached; ++saveStep) {
            bool isRecoveryReached = true;
            for (int recoveryStep = 1; isRecoveryReached; ++recoveryStep) {
                const std::string path = pathHolding(1);
                FaultyFileOperations operations(Fault::CRASH, saveStep, hasExchange);
                static_cast<void>(saveTo(path, 2, SaveMode::REPLACE, operations));
                isSaveReached = operations.wasReached();
                operations.restart(recoveryStep);
                DirectoryPtr directory;
                static_cast<void>(DictionaryDirectory::open(path, SUFFIXES, &directory, operations));
                directory.reset();
                isRecoveryReached = operations.wasReached();
                operations.losePower(recoveryStep % 3);
                ASSERT_GT(recoverAndRead(path), 0) << saveStep << " " << recoveryStep;
                std::filesystem::remove_all(std::filesystem::path(path).parent_path());
            }
        }
    }
}

/// Saves over and over, after it has told that it holds the lock.
[[noreturn]] void saveUntilKilled(const std::string& path, int readyPipe) {
    DirectoryPtr directory;
    if (!DictionaryDirectory::open(path, SUFFIXES, &directory).isOk()) ::_exit(1);
    if (::write(readyPipe, "r", 1) != 1) ::_exit(1);
    for (int round = 0;; ++round) {
        if (!directory->save(filesOf(1 + round % 3), SaveMode::REPLACE).isOk()) ::_exit(1);
    }
}

TEST_F(DictionaryDirectoryTest, SurvivesBeingKilledAtAnyMoment) {
    const std::string path = pathHolding(1);
    std::mt19937 random(7);
    for (int round = 0; round < 100; ++round) {
        int ready[2];
        ASSERT_EQ(0, ::pipe(ready));
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) saveUntilKilled(path, ready[1]);
        char answer = 0;
        ::close(ready[1]);
        EXPECT_EQ(1, ::read(ready[0], &answer, 1)) << "the child could not open what the last one left";
        ::close(ready[0]);
        DirectoryPtr directory;
        EXPECT_FALSE(DictionaryDirectory::open(path, SUFFIXES, &directory).isOk()) << "the child has it";
        ::usleep(static_cast<useconds_t>(random() % 8000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "a save failed";
        ASSERT_GT(recoverAndRead(path), 0) << round;
    }
}

TEST_F(DictionaryDirectoryTest, OneAtATimeHasIt) {
    const std::string path = pathHolding(NOTHING);
    DirectoryPtr first;
    DirectoryPtr second;
    ASSERT_TRUE(DictionaryDirectory::open(path + "//", SUFFIXES, &first).isOk());
    EXPECT_EQ(path, first->path());
    EXPECT_EQ(path + "/D", first->basePath());
    EXPECT_FALSE(first->exists());
    ASSERT_TRUE(first->save(filesOf(1), SaveMode::CREATE).isOk()) << "a save must not lose the lock";
    const FileResult refused = DictionaryDirectory::open(path, SUFFIXES, &second);
    EXPECT_EQ(path + ": is in use by another program, or elsewhere in this one", refused.message());
    first.reset();
    ASSERT_TRUE(DictionaryDirectory::open(path, SUFFIXES, &second).isOk());
    EXPECT_TRUE(second->exists());
    EXPECT_FALSE(second->save(filesOf(2), SaveMode::CREATE).isOk());
    EXPECT_EQ(1, generationIn(path));
    ASSERT_TRUE(second->save(filesOf(2), SaveMode::REPLACE).isOk());
    EXPECT_EQ(2, generationIn(path));
}

TEST_F(DictionaryDirectoryTest, IsForItsOwnerOnlyWhateverTheMask) {
    for (const mode_t mask : {0000, 0777, 0022}) {
        const std::string path = pathHolding(NOTHING);
        const mode_t before = ::umask(mask);
        const FileResult result = saveTo(path, 1, SaveMode::CREATE, FileOperations::posix());
        EXPECT_EQ(mask, ::umask(before));
        ASSERT_TRUE(result.isOk()) << result.message();
        struct stat status;
        ASSERT_EQ(0, ::stat(path.c_str(), &status));
        EXPECT_EQ(0700u, status.st_mode & 07777u);
        for (const char* const file : {"/D.body", ".lock"}) {
            ASSERT_EQ(0, ::stat((path + file).c_str(), &status));
            EXPECT_EQ(0600u, status.st_mode & 07777u) << file;
        }
    }
}

TEST_F(DictionaryDirectoryTest, StrangersStayAndAreNamed) {
    for (const char* const place : {"", ".tmp", ".replaced"}) {
        const std::string path = pathHolding(1);
        std::filesystem::create_directory(path + place);
        const std::string stranger = path + place + "/notes.txt";
        std::ofstream(stranger) << "mine";
        DirectoryPtr directory;
        ASSERT_TRUE(DictionaryDirectory::open(path, SUFFIXES, &directory).isOk()) << "it can be read";
        EXPECT_EQ(*place == '\0', directory->clearing().isOk());
        const FileResult result = directory->save(filesOf(2), SaveMode::REPLACE);
        EXPECT_TRUE(result.message().starts_with(stranger + ": ")) << result.message();
        EXPECT_EQ("mine", read(stranger));
        EXPECT_EQ(1, generationIn(path));
        std::filesystem::remove(stranger);
        EXPECT_TRUE(directory->save(filesOf(2), SaveMode::REPLACE).isOk());
        EXPECT_EQ(2, generationIn(path));
    }
    // A directory under a file's name is no file.
    const std::string path = pathHolding(1);
    std::filesystem::create_directories(path + ".tmp/D.body/below");
    FaultyFileOperations operations;
    EXPECT_FALSE(saveTo(path, 2, SaveMode::REPLACE, operations).isOk());
    EXPECT_TRUE(std::filesystem::exists(path + ".tmp/D.body/below"));
}

TEST_F(DictionaryDirectoryTest, RefusesWhatIsNoDirectoryOfItsOwn) {
    const std::string path = pathHolding(1);
    std::filesystem::create_directory_symlink(path, folder_.path("link"));
    folder_.write("plain", "text");
    DirectoryPtr directory;
    for (const std::string& wrong :
         {std::string(), std::string("/"), std::string("."), path + "/..", folder_.path("link"),
          folder_.path("link/"), folder_.path("plain"), folder_.path("none/D")}) {
        const FileResult result = DictionaryDirectory::open(wrong, SUFFIXES, &directory);
        EXPECT_FALSE(result.isOk()) << wrong;
        EXPECT_FALSE(directory) << wrong;
    }
    EXPECT_FALSE(std::filesystem::exists(folder_.path("plain.lock")));
    // Where the new files are to be written, a link would lead them, and then the removal, elsewhere.
    std::filesystem::create_directory_symlink(folder_.path(), path + ".tmp");
    EXPECT_FALSE(saveTo(path, 2, SaveMode::REPLACE, FileOperations::posix()).isOk());
    EXPECT_TRUE(std::filesystem::is_symlink(path + ".tmp"));
    EXPECT_EQ(1, generationIn(path));
}

TEST_F(DictionaryDirectoryTest, AWriterThatFailsOrNamesTheWrongFileChangesNothing) {
    const std::string path = pathHolding(1);
    DirectoryPtr directory;
    ASSERT_TRUE(DictionaryDirectory::open(path, SUFFIXES, &directory).isOk());
    std::vector<FileSet::File> files = filesOf(2);
    files[1].write = [](std::FILE*) { return false; };
    EXPECT_EQ(path + ".tmp/D.body: cannot write", directory->save(files, SaveMode::REPLACE).message());
    files = filesOf(2);
    files.push_back({".unheard", files[0].write});
    EXPECT_FALSE(directory->save(files, SaveMode::REPLACE).isOk());
    EXPECT_TRUE(directory->clearing().isOk());
    EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));
    EXPECT_EQ(1, generationIn(path));
}

}  // namespace
}  // namespace wordengine::test
