// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/file_content.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vorpel::platform {
namespace {

int readAll(int descriptor, std::string& content) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) return errno;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (!S_ISREG(status.st_mode)) return EINVAL;
    std::array<char, 16384> part;
    for (;;) {
        const ssize_t size = ::read(descriptor, part.data(), part.size());
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) return errno;
        if (size == 0) return 0;
        content.append(part.data(), static_cast<std::size_t>(size));
    }
}

}  // namespace

int readRegularFile(const std::string& path, std::string& content) {
    content.clear();
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return errno;
    const int error = readAll(descriptor, content);
    ::close(descriptor);
    return error;
}

}  // namespace vorpel::platform
