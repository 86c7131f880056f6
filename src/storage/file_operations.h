// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace wordengine {

/// All that saving asks of the file system, so that a test can stand between and let any step fail. The
/// operations return 0 or an errno, follow no symbolic link at the end of a path, and hold no state.
class FileOperations {
public:
    enum class Kind { ABSENT, DIRECTORY, OTHER };

    virtual ~FileOperations() = default;

    /// The operations of the system itself; may be used from any thread.
    static FileOperations& posix();

    /// Of a path whose state cannot be found out, ABSENT is not said: that is an error.
    virtual int findKind(const std::string& path, Kind* outKind) = 0;

    /// For its owner only, whatever the process's mask. Fails if there is anything of that name.
    virtual int makeDirectory(const std::string& path) = 0;
    /// Names without "." and "..", in any order.
    virtual int listDirectory(const std::string& path, std::vector<std::string>* outNames) = 0;
    /// Makes what was created, renamed and removed in it last.
    virtual int syncDirectory(const std::string& path) = 0;
    virtual int removeDirectory(const std::string& path) = 0;

    /// A new file for its owner only, open for writing; the stream goes to closeFile. Null, with the
    /// reason in errno, also if there is anything of that name.
    virtual std::FILE* createFile(const std::string& path) = 0;
    /// Brings what the stream holds back to the system, and from there to the disk.
    virtual int syncFile(std::FILE* file) = 0;
    virtual int closeFile(std::FILE* file) = 0;
    virtual int removeFile(const std::string& path) = 0;

    virtual int rename(const std::string& from, const std::string& to) = 0;
    /// Lets two directories swap their names in one step. ENOSYS or EINVAL where that cannot be done.
    virtual int exchange(const std::string& left, const std::string& right) = 0;

    /// Takes a file, made if need be, for oneself without waiting; EWOULDBLOCK if somebody else has it.
    /// The lock goes with the process, and with unlockFile of the descriptor.
    virtual int lockFile(const std::string& path, int* outDescriptor) = 0;
    virtual void unlockFile(int descriptor) = 0;
};

/// The folder that a path without a slash at its end lies in.
[[nodiscard]] std::string folderOf(const std::string& path);

}  // namespace wordengine
