// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/private_folder.h"

#include <cerrno>
#include <sys/stat.h>

namespace vorpel::platform {
namespace {

bool isFolder(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

int makePrivateFolderFor(const std::string& filePath) {
    const std::size_t end = filePath.rfind('/');
    if (end == std::string::npos) return 0;
    const std::string folder = filePath.substr(0, end);
    if (folder.empty() || isFolder(folder)) return 0;
    if (const int error = makePrivateFolderFor(folder); error != 0) return error;
    if (::mkdir(folder.c_str(), 0700) == 0) return 0;
    const int error = errno;
    if (error != EEXIST) return error;
    // Another process may have been quicker, or something else bears the name.
    return isFolder(folder) ? 0 : ENOTDIR;
}

}  // namespace vorpel::platform
