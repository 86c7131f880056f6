// SPDX-License-Identifier: Apache-2.0
#include "storage/file_utils.h"
#include "storage/mmapped_buffer.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
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
        for (const int size : {fileSize - offset + 1, INT_MAX, -1}) {
            EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), offset, size, false));
        }
    }
    for (const int offset : {-1, INT_MIN, INT_MAX, fileSize}) {
        EXPECT_EQ(nullptr, MmappedBuffer::openBuffer(path.c_str(), offset, 1, false));
    }
}

TEST_F(FilesTest, OnlyPlainFilesAreMapped) {
    EXPECT_NE(nullptr, MmappedBuffer::openBuffer(write("empty", {}).c_str(), false));
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
    EXPECT_EQ(bytes, contentOf(*MmappedBuffer::openBuffer(path.c_str(), false)));
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
    EXPECT_TRUE(FileUtils::existsDir(folder_.path("").c_str()));
    EXPECT_EQ(before, openFileCount());
}

TEST_F(FilesTest, SizesBeyondAnIntAreRefused) {
    const std::string path = write("huge", {});
    std::filesystem::resize_file(path, uintmax_t{1} << 31);
    EXPECT_EQ(-1, FileUtils::getFileSize(path.c_str()));
    std::filesystem::resize_file(path, (uintmax_t{1} << 31) - 1);
    EXPECT_EQ(INT_MAX, FileUtils::getFileSize(path.c_str()));
}

}  // namespace
}  // namespace wordengine
