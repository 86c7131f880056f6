// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// What the dictionary formats ask of files and folders. Stateless. Paths are NUL-terminated.
class FileUtils {
public:
    FileUtils() = delete;

    /// The size in bytes; -1 on any failure, and for a size that an int cannot hold.
    [[nodiscard]] static int getFileSize(const char* filePath);

    [[nodiscard]] static bool existsDir(const char* dirPath);
};

}  // namespace wordengine
