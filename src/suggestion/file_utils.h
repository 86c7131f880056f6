// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <json/value.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel {

/// JSON loading and directory listing for the geometry files; not the engine's class of the same name.
class FileUtils {
public:
    FileUtils() = delete;

    /// The parsed file. Raises std::runtime_error that names the file if it cannot be read or parsed, or is
    /// larger than 1 MiB.
    static Json::Value loadJson(const std::string& path);

    /// The error that any trouble with a file's content is reported by.
    static std::runtime_error readingFailure(const std::string& path, const std::string& reason);

    /// Names of the entries that are no directories, in the directory's own order; with `filter` set only
    /// those that contain `text`. Empty if there is no such directory.
    static std::vector<std::string> getFiles(const std::string& directory, bool filter,
                                             const std::string& text);

    /// Names of the sub-directories without a dot in their name.
    static std::vector<std::string> getDirs(const std::string& directory);
};

}  // namespace vorpel
