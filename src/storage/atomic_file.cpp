// SPDX-License-Identifier: Apache-2.0
#include "storage/atomic_file.h"

#include "storage/file_operations.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wordengine {
namespace {

int writeAll(int descriptor, std::span<const uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        bytes = bytes.subspan(static_cast<size_t>(written));
    }
    return 0;
}

/// mkstemp makes files that only their owner may read; this one is to be like any other new file.
int grantUsualMode(int descriptor) {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return ::fchmod(descriptor, 0666 & ~mask) == 0 ? 0 : errno;
}

int fillAndClose(int descriptor, std::span<const uint8_t> bytes) {
    int error = writeAll(descriptor, bytes);
    if (error == 0) error = grantUsualMode(descriptor);
    if (error == 0 && ::fsync(descriptor) != 0) error = errno;
    if (::close(descriptor) != 0 && error == 0) error = errno;
    return error;
}

}  // namespace

int writeFileAtomically(const std::string& path, std::span<const uint8_t> bytes) {
    std::string temporaryPath = path + ".XXXXXX";
    const int descriptor = ::mkstemp(temporaryPath.data());
    if (descriptor < 0) return errno;
    int error = fillAndClose(descriptor, bytes);
    if (error == 0 && std::rename(temporaryPath.c_str(), path.c_str()) != 0) error = errno;
    if (error != 0) {
        ::unlink(temporaryPath.c_str());
        return error;
    }
    // Makes the rename itself last. The new content is in place, so a folder that will not sync is no
    // failure.
    static_cast<void>(FileOperations::posix().syncDirectory(folderOf(path)));
    return 0;
}

}  // namespace wordengine
