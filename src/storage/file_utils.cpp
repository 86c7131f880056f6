// SPDX-License-Identifier: Apache-2.0
#include "storage/file_utils.h"

#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace wordengine {

int FileUtils::getFileSize(const char* filePath) {
    // Without O_NONBLOCK a pipe would be waited for.
    const int fileDescriptor = open(filePath, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fileDescriptor < 0) return -1;
    struct stat status;
    const bool isKnown = fstat(fileDescriptor, &status) == 0;
    close(fileDescriptor);
    if (!isKnown || status.st_size > std::numeric_limits<int>::max()) return -1;
    return static_cast<int>(status.st_size);
}

bool FileUtils::existsDir(const char* dirPath) {
    DIR* const folder = opendir(dirPath);
    if (!folder) return false;
    closedir(folder);
    return true;
}

}  // namespace wordengine
