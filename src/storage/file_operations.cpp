// SPDX-License-Identifier: Apache-2.0
#include "storage/file_operations.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wordengine {

namespace {

constexpr mode_t OWNER_ONLY_FILE = S_IRUSR | S_IWUSR;
constexpr mode_t OWNER_ONLY_DIRECTORY = S_IRWXU;

int errnoUnless(bool isDone) {
    return isDone ? 0 : errno;
}

int openDirectory(const std::string& path) {
    return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

int syncDescriptor(int descriptor) {
    while (::fsync(descriptor) != 0) {
        if (errno != EINTR) return errno;
    }
    return 0;
}

struct DirectoryCloser {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

class PosixFileOperations final : public FileOperations {
public:
    int findKind(const std::string& path, Kind* outKind) override {
        struct stat status;
        *outKind = Kind::ABSENT;
        if (::lstat(path.c_str(), &status) != 0) return errno == ENOENT ? 0 : errno;
        *outKind = S_ISDIR(status.st_mode) ? Kind::DIRECTORY : Kind::OTHER;
        return 0;
    }

    int makeDirectory(const std::string& path) override {
        if (::mkdir(path.c_str(), OWNER_ONLY_DIRECTORY) != 0) return errno;
        // The mask belongs to the whole process and its threads, so it is overridden instead of changed.
        return errnoUnless(::chmod(path.c_str(), OWNER_ONLY_DIRECTORY) == 0);
    }

    int listDirectory(const std::string& path, std::vector<std::string>* outNames) override {
        outNames->clear();
        const int descriptor = openDirectory(path);
        if (descriptor < 0) return errno;
        const std::unique_ptr<DIR, DirectoryCloser> directory(::fdopendir(descriptor));
        if (!directory) {
            const int error = errno;
            ::close(descriptor);
            return error;
        }
        // Only errno tells the end of the list from a failure.
        for (errno = 0; const dirent* const entry = ::readdir(directory.get()); errno = 0) {
            const std::string_view name = entry->d_name;
            if (name != "." && name != "..") outNames->emplace_back(name);
        }
        return errno;
    }

    int syncDirectory(const std::string& path) override {
        const int descriptor = openDirectory(path);
        if (descriptor < 0) return errno;
        const int error = syncDescriptor(descriptor);
        ::close(descriptor);
        // Some file systems order their changes by themselves and know no sync of a directory.
        return error == EINVAL || error == ENOTSUP ? 0 : error;
    }

    int removeDirectory(const std::string& path) override { return errnoUnless(::rmdir(path.c_str()) == 0); }

    std::FILE* createFile(const std::string& path) override {
        const int descriptor =
            ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, OWNER_ONLY_FILE);
        if (descriptor < 0) return nullptr;
        std::FILE* const file =
            ::fchmod(descriptor, OWNER_ONLY_FILE) == 0 ? ::fdopen(descriptor, "wb") : nullptr;
        if (!file) {
            const int error = errno;
            ::close(descriptor);
            ::unlink(path.c_str());
            errno = error;
        }
        return file;
    }

    int syncFile(std::FILE* file) override {
        return std::fflush(file) == 0 ? syncDescriptor(::fileno(file)) : errno;
    }

    int closeFile(std::FILE* file) override { return errnoUnless(std::fclose(file) == 0); }

    int removeFile(const std::string& path) override { return errnoUnless(::unlink(path.c_str()) == 0); }

    int rename(const std::string& from, const std::string& to) override {
        return errnoUnless(std::rename(from.c_str(), to.c_str()) == 0);
    }

    int exchange(const std::string& left, const std::string& right) override {
#ifdef RENAME_EXCHANGE
        return errnoUnless(::renameat2(AT_FDCWD, left.c_str(), AT_FDCWD, right.c_str(), RENAME_EXCHANGE) ==
                           0);
#else
        static_cast<void>(left);
        static_cast<void>(right);
        return ENOSYS;
#endif
    }

    int lockFile(const std::string& path, int* outDescriptor) override {
        const int descriptor =
            ::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, OWNER_ONLY_FILE);
        if (descriptor < 0) return errno;
        // So that a strange mask does not lock out its owner next time.
        const bool isUsable = ::fchmod(descriptor, OWNER_ONLY_FILE) == 0;
        if (!isUsable || ::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            ::close(descriptor);
            return error;
        }
        *outDescriptor = descriptor;
        return 0;
    }

    void unlockFile(int descriptor) override {
        ::close(descriptor);
    }
};

}  // namespace

FileOperations& FileOperations::posix() {
    static PosixFileOperations operations;
    return operations;
}

std::string folderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

}  // namespace wordengine
