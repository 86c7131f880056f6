// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/file_operations.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace wordengine::test {

/// Works on the real file system, but lets one step fail, or stops at it for good as a crash does. It
/// remembers what no sync has made last, so that a loss of power can take that away again. Syncs go
/// no further than this memory, which makes them quick.
class FaultyFileOperations final : public FileOperations {
public:
    enum class Fault { NONE, FAILURE, CRASH };

    FaultyFileOperations() = default;
    FaultyFileOperations(Fault fault, int step, bool hasExchange)
        : fault_(fault), faultyStep_(step), hasExchange_(hasExchange) {}
    ~FaultyFileOperations() override {
        for (const auto& [path, descriptor] : directories_) ::close(descriptor);
        for (const auto& [stream, file] : openFiles_) ::close(file.descriptor);
        for (const int descriptor : unsyncedFiles_) ::close(descriptor);
    }

    [[nodiscard]] bool wasReached() const { return step_ >= faultyStep_; }

    /// The process ended, and another one goes on from what the system still remembers.
    void restart(int step) {
        step_ = 0;
        faultyStep_ = step;
        isDead_ = false;
    }

    /// The disk as it may be when the power comes back: unsynced files are half there, unsynced entries
    /// of new directories are not, and the last `lostRenames` of the unsynced renames did not happen.
    void losePower(int lostRenames) {
        for (; lostRenames > 0 && !undoRenames_.empty(); --lostRenames) {
            undoRenames_.back()();
            undoRenames_.pop_back();
        }
        for (const int descriptor : unsyncedFiles_) cutInHalf(descriptor);
        for (const auto& [directory, name] : unsyncedEntries_) {
            ::unlinkat(directories_.at(directory), name.c_str(), 0);
        }
    }

    int findKind(const std::string& path, Kind* outKind) override {
        const int error = nextStep();
        return error != 0 ? error : real_.findKind(path, outKind);
    }

    int makeDirectory(const std::string& path) override {
        if (const int error = nextStep(); error != 0) return error;
        const int error = real_.makeDirectory(path);
        if (error == 0) directories_[path] = ::open(path.c_str(), O_PATH | O_CLOEXEC);
        return error;
    }

    int listDirectory(const std::string& path, std::vector<std::string>* outNames) override {
        const int error = nextStep();
        return error != 0 ? error : real_.listDirectory(path, outNames);
    }

    int syncDirectory(const std::string& path) override {
        if (const int error = nextStep(); error != 0) return error;
        if (directories_.count(path) == 0) undoRenames_.clear();
        std::erase_if(unsyncedEntries_, [&](const auto& entry) { return entry.first == path; });
        return 0;
    }

    int removeDirectory(const std::string& path) override {
        const int error = nextStep();
        return error != 0 ? error : real_.removeDirectory(path);
    }

    std::FILE* createFile(const std::string& path) override {
        errno = nextStep();
        std::FILE* const file = errno == 0 ? real_.createFile(path) : nullptr;
        if (!file) return nullptr;
        std::setvbuf(file, nullptr, _IONBF, 0);
        const size_t slash = path.rfind('/');
        unsyncedEntries_.emplace(path.substr(0, slash), path.substr(slash + 1));
        const cookie_io_functions_t functions = {nullptr, &writeThrough, nullptr, &closeThrough};
        std::FILE* const stream = ::fopencookie(new Stream{this, file}, "w", functions);
        openFiles_[stream] = {::dup(::fileno(file)), false};
        return stream;
    }

    int syncFile(std::FILE* file) override {
        if (std::fflush(file) != 0) return errno;
        if (const int error = nextStep(); error != 0) return error;
        openFiles_.at(file).isSynced = true;
        return 0;
    }

    /// A stream is gone after it, also when that fails.
    int closeFile(std::FILE* file) override {
        const int error = nextStep();
        const OpenFile known = openFiles_.extract(file).mapped();
        const bool isClosed = std::fclose(file) == 0;
        if (known.isSynced) {
            ::close(known.descriptor);
        } else {
            unsyncedFiles_.push_back(known.descriptor);
        }
        return error != 0 ? error : isClosed ? 0 : EIO;
    }

    int removeFile(const std::string& path) override {
        const int error = nextStep();
        return error != 0 ? error : real_.removeFile(path);
    }

    int rename(const std::string& from, const std::string& to) override {
        if (const int error = nextStep(); error != 0) return error;
        const int error = real_.rename(from, to);
        if (error == 0) undoRenames_.emplace_back([=, this] { real_.rename(to, from); });
        return error;
    }

    int exchange(const std::string& left, const std::string& right) override {
        if (!hasExchange_) return ENOSYS;
        if (const int error = nextStep(); error != 0) return error;
        const int error = real_.exchange(left, right);
        if (error == 0) undoRenames_.emplace_back([=, this] { real_.exchange(left, right); });
        return error;
    }

    int lockFile(const std::string& path, int* outDescriptor) override {
        const int error = nextStep();
        return error != 0 ? error : real_.lockFile(path, outDescriptor);
    }

    /// A crash ends the process, and its locks with it.
    void unlockFile(int descriptor) override { real_.unlockFile(descriptor); }

private:
    struct OpenFile {
        int descriptor;
        bool isSynced;
    };

    struct Stream {
        FaultyFileOperations* operations;
        std::FILE* file;
    };

    static ssize_t writeThrough(void* cookie, const char* bytes, size_t size) {
        const Stream& stream = *static_cast<Stream*>(cookie);
        const bool wasDead = stream.operations->isDead_;
        const int error = stream.operations->nextStep();
        // A step that fails in the middle has written something.
        if (!wasDead) std::fwrite(bytes, 1, error == 0 ? size : size / 2, stream.file);
        errno = error;
        return error == 0 ? static_cast<ssize_t>(size) : 0;
    }

    static int closeThrough(void* cookie) {
        const Stream* const stream = static_cast<Stream*>(cookie);
        const int result = std::fclose(stream->file);
        delete stream;
        return result;
    }

    static void cutInHalf(int descriptor) {
        struct stat status;
        if (::fstat(descriptor, &status) != 0 || ::ftruncate(descriptor, status.st_size / 2) != 0)
            ::_exit(70);
    }

    int nextStep() {
        if (isDead_) return EIO;
        if (++step_ != faultyStep_ || fault_ == Fault::NONE) return 0;
        isDead_ = fault_ == Fault::CRASH;
        return ENOSPC;
    }

    FileOperations& real_ = FileOperations::posix();
    Fault fault_ = Fault::NONE;
    int faultyStep_ = 0;
    bool hasExchange_ = true;
    int step_ = 0;
    bool isDead_ = false;

    // Descriptors find their files under whatever name.
    std::map<std::string, int> directories_;
    std::map<std::FILE*, OpenFile> openFiles_;
    std::vector<int> unsyncedFiles_;
    std::set<std::pair<std::string, std::string>> unsyncedEntries_;
    std::vector<std::function<void()>> undoRenames_;
};

}  // namespace wordengine::test
