// SPDX-License-Identifier: Apache-2.0
#include "storage/buffer_with_extendable_buffer.h"
#include "storage/dict_file_writing_utils.h"
#include "storage/file_utils.h"
#include "storage/mmapped_buffer.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace wordengine {
namespace {

class FilesTest : public testing::Test {
protected:
    static std::vector<uint8_t> numberedBytes(size_t size) {
        std::vector<uint8_t> bytes(size);
        for (size_t i = 0; i < size; ++i) bytes[i] = static_cast<uint8_t>(i * 7 + i / 251);
        return bytes;
    }

    static std::vector<uint8_t> contentOf(const MmappedBuffer& buffer) {
        const ReadOnlyByteArrayView view = buffer.getReadOnlyByteArrayView();
        return {view.data(), view.data() + view.size()};
    }

    static size_t openFileCount() {
        const std::filesystem::directory_iterator files("/proc/self/fd");
        return static_cast<size_t>(std::distance(begin(files), end(files)));
    }

    std::string write(const std::string& name, const std::vector<uint8_t>& bytes) const {
        return folder_.write(name, std::string(bytes.begin(), bytes.end()));
    }

    [[nodiscard]] std::vector<uint8_t> read(const std::string& name) const {
        std::ifstream file(folder_.path(name), std::ios::binary);
        const std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        return {content.begin(), content.end()};
    }

    vorpel::testing::TemporaryFolder folder_;
};

TEST_F(FilesTest, MapsAnyRangeOfTheFileAndNoneBeyond) {
    const int pageSize = static_cast<int>(sysconf(_SC_PAGESIZE));
    const int fileSize = 3 * pageSize + 123;
    const std::vector<uint8_t> bytes = numberedBytes(static_cast<size_t>(fileSize));
    const std::string path = write("f", bytes);
    for (const int offset : {0, 1, pageSize - 1, pageSize, pageSize + 1, 2 * pageSize + 77, fileSize - 1}) {
        for (const int size : {1, 2, pageSize, fileSize - offset}) {
            const auto buffer = MmappedBuffer::openBuffer(path.c_str(), offset, size, false);
            ASSERT_EQ(offset + size <= fileSize, buffer != nullptr) << offset << " " << size;
            if (!buffer) continue;
            EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + offset, bytes.begin() + offset + size),
                      contentOf(*buffer));
        }
        EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), offset, fileSize - offset + 1, false));
        EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), offset, INT_MAX, false));
        EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), offset, -1, false));
    }
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), -1, 1, false));
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), INT_MIN, 1, false));
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), INT_MAX, INT_MAX, false));
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), fileSize, 1, false));
}

TEST_F(FilesTest, MapsWholeFilesByPathAndSuffix) {
    const std::vector<uint8_t> bytes = numberedBytes(5000);
    const std::string path = write("dict.body", bytes);
    const auto whole = MmappedBuffer::openBuffer(path.c_str(), false);
    ASSERT_TRUE(whole);
    EXPECT_EQ(bytes, contentOf(*whole));
    const auto joined = MmappedBuffer::openBuffer(folder_.path("dict").c_str(), ".body", false);
    ASSERT_TRUE(joined);
    EXPECT_EQ(bytes, contentOf(*joined));
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(folder_.path("dict").c_str(), ".none", false));
    const auto empty = MmappedBuffer::openBuffer(write("empty", {}).c_str(), true);
    ASSERT_TRUE(empty);
    EXPECT_EQ(0u, empty->getReadOnlyByteArrayView().size());
    // The same file by a path with so many slashes that it just does not fit any more.
    const std::string base = folder_.path("");
    const std::string slashes(1024 - base.size() - std::string("dict.body").size(), '/');
    EXPECT_NE(nullptr, MmappedBuffer::openBuffer((base + slashes).c_str(), "dict.body", false));
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer((base + slashes + "/").c_str(), "dict.body", false));
}

TEST_F(FilesTest, OnlyPlainFilesAreMapped) {
    ASSERT_EQ(0, mkfifo(folder_.path("pipe").c_str(), 0600));
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(folder_.path("pipe").c_str(), 0, 1, false));
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(folder_.path("").c_str(), 0, 1, false));
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer("/dev/zero", 0, 16, false));
    EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(folder_.path("missing").c_str(), false));
}

TEST_F(FilesTest, WritesIntoUpdatableBufferNeverReachTheFile) {
    const std::vector<uint8_t> bytes = numberedBytes(100);
    const std::string path = write("f", bytes);
    const auto buffer = MmappedBuffer::openBuffer(path.c_str(), 10, 50, true);
    ASSERT_TRUE(buffer);
    buffer->getReadWriteByteArrayView().subView(5, 1).data()[0] = 0xEE;
    EXPECT_EQ(0xEE, buffer->getReadOnlyByteArrayView().data()[5]);
    EXPECT_EQ(bytes, read("f"));
}

TEST_F(FilesTest, NothingStaysOpen) {
    const std::string path = write("f", numberedBytes(100));
    const size_t before = openFileCount();
    {
        const auto buffer = MmappedBuffer::openBuffer(path.c_str(), false);
        ASSERT_TRUE(buffer);
        EXPECT_EQ(before + 1, openFileCount());
        EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), 0, 101, false));
        EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), 0, 0, false));
    }
    BufferWithExtendableBuffer store(10);
    EXPECT_FALSE(DictFileWritingUtils::flushBufferToFile(path.c_str(), &store));
    EXPECT_TRUE(DictFileWritingUtils::flushBufferToFile(folder_.path("g").c_str(), &store));
    EXPECT_TRUE(FileUtils::existsDir(folder_.path("").c_str()));
    EXPECT_EQ(before, openFileCount());
}

TEST_F(FilesTest, FlushWritesBothRegionsAndLeavesExistingFilesAlone) {
    std::vector<uint8_t> original = {1, 2, 3};
    BufferWithExtendableBuffer buffer({original.data(), original.size()}, 1000);
    ASSERT_TRUE(buffer.writeUint(0x0405, 2, 3));
    const std::string base = folder_.path("dict");
    EXPECT_TRUE(DictFileWritingUtils::flushBufferToFileWithSuffix(base.c_str(), ".body", &buffer));
    EXPECT_EQ((std::vector<uint8_t>{1, 2, 3, 4, 5}), read("dict.body"));
    struct stat status;
    ASSERT_EQ(0, stat((base + ".body").c_str(), &status));
    EXPECT_EQ(0600u, status.st_mode & 0777u);

    original[0] = 99;
    EXPECT_FALSE(DictFileWritingUtils::flushBufferToFileWithSuffix(base.c_str(), ".body", &buffer));
    EXPECT_EQ((std::vector<uint8_t>{1, 2, 3, 4, 5}), read("dict.body"));
    EXPECT_FALSE(DictFileWritingUtils::flushBufferToFile(folder_.path("no/such").c_str(), &buffer));

    std::FILE* const tail = std::fopen(folder_.path("tail").c_str(), "wb");
    ASSERT_TRUE(tail);
    EXPECT_TRUE(DictFileWritingUtils::writeBufferToFileTail(tail, &buffer));
    std::fclose(tail);
    EXPECT_EQ((std::vector<uint8_t>{0, 0, 0, 5, 99, 2, 3, 4, 5}), read("tail")) << "its size, then itself";
}

TEST_F(FilesTest, FullDiskIsReported) {
    std::FILE* const full = std::fopen("/dev/full", "wb");
    if (!full) GTEST_SKIP() << "no /dev/full here";
    std::setvbuf(full, nullptr, _IONBF, 0);
    BufferWithExtendableBuffer buffer(1000);
    ASSERT_TRUE(buffer.extend(300));
    EXPECT_FALSE(DictFileWritingUtils::writeBufferToFile(full, &buffer));
    EXPECT_FALSE(DictFileWritingUtils::writeBufferToFileTail(full, &buffer));
    std::fclose(full);
}

TEST_F(FilesTest, FileSizes) {
    EXPECT_EQ(1234, FileUtils::getFileSize(write("f", numberedBytes(1234)).c_str()));
    EXPECT_EQ(0, FileUtils::getFileSize(write("e", {}).c_str()));
    EXPECT_EQ(-1, FileUtils::getFileSize(folder_.path("missing").c_str()));
    write("huge", {});
    std::filesystem::resize_file(folder_.path("huge"), uintmax_t{1} << 31);
    EXPECT_EQ(-1, FileUtils::getFileSize(folder_.path("huge").c_str())) << "an int cannot hold it";
    std::filesystem::resize_file(folder_.path("huge"), (uintmax_t{1} << 31) - 1);
    EXPECT_EQ(INT_MAX, FileUtils::getFileSize(folder_.path("huge").c_str()));
}

TEST_F(FilesTest, RemovesFilesButNoFoldersBelow) {
    const std::filesystem::path dir = folder_.path("dict");
    std::filesystem::create_directory(dir);
    write("dict/a", {1});
    write("dict/.hidden", {1});
    std::filesystem::create_symlink(folder_.path("elsewhere"), dir / "link");
    write("elsewhere", {1});
    EXPECT_TRUE(FileUtils::removeDirAndFiles(dir.c_str()));
    EXPECT_FALSE(FileUtils::existsDir(dir.c_str()));
    EXPECT_TRUE(std::filesystem::exists(folder_.path("elsewhere"))) << "a link goes, not what it names";
    EXPECT_TRUE(FileUtils::removeDirAndFiles(dir.c_str())) << "nothing to remove";

    std::filesystem::create_directories(dir / "below");
    write("dict/a", {1});
    write("dict/below/b", {1});
    EXPECT_FALSE(FileUtils::removeDirAndFiles(dir.c_str(), 2));
    EXPECT_FALSE(std::filesystem::exists(dir / "a"));
    EXPECT_TRUE(std::filesystem::exists(dir / "below" / "b"));
}

/// What an operation leaves in a buffer of `size` bytes that held "#".
template <class Operation>
std::string resultOf(int size, Operation operation) {
    std::vector<char> out(static_cast<size_t>(size) + 1, '\0');
    out[0] = '#';
    operation(size, out.data());
    return out.data();
}

TEST(Paths, SuffixIsTakenOffOnlyIfItIsThere) {
    const struct {
        const char* path;
        const char* suffix;
        int size;
        bool isExpected;
    } samples[] = {
        {"d/d.header", ".header", 4, true}, {"d/d.header", ".header", 3, false},
        {".header", ".header", 9, false},   {"d/d.body", ".header", 20, false},
        {"header", ".header", 20, false},   {"d/d.header", "", 11, true},
    };
    for (const auto& sample : samples) {
        bool result = false;
        const std::string stem = resultOf(sample.size, [&](int size, char* out) {
            result = FileUtils::getFilePathWithoutSuffix(sample.path, sample.suffix, size, out);
        });
        EXPECT_EQ(sample.isExpected, result) << sample.path << " " << sample.size;
        EXPECT_EQ(sample.isExpected ? std::string(sample.path) : "#",
                  sample.isExpected ? stem + sample.suffix : stem);
    }
}

}  // namespace
}  // namespace wordengine
