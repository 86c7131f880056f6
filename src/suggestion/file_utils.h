// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <json/value.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel {

class LongIntArray;

/// JSON loading and directory listing for the geometry files; not the engine's class of the same name.
class FileUtils {
public:
    /// Trouble with a file's content.
    class ReadingFailure : public std::runtime_error {
    public:
        /// `message` is what the error says of itself; `reason` alone is for those who name the file.
        ReadingFailure(const std::string& message, const std::string& path, const std::string& reason)
            : std::runtime_error(message), fault_(path + ": " + reason) {}

        /// "PATH: REASON", one line.
        [[nodiscard]] const std::string& fault() const { return fault_; }

    private:
        std::string fault_;
    };

    FileUtils() = delete;

    /// The parsed file. Raises std::runtime_error that names the file if it cannot be read or parsed, is
    /// larger than 1 MiB, or is no plain file.
    /// `longArray`, if there is one, is taken out of the file where it can be.
    static Json::Value loadJson(const std::string& path, LongIntArray* longArray = nullptr);

    /// "reading file : PATH has failed : REASON".
    static ReadingFailure readingFailure(const std::string& path, const std::string& reason);

    /// Names of the entries that are no directories, in the directory's own order; with `filter` set only
    /// those that contain `text`. Empty if there is no such directory.
    static std::vector<std::string> getFiles(const std::string& directory, bool filter,
                                             const std::string& text);

    /// Names of the sub-directories without a dot in their name.
    static std::vector<std::string> getDirs(const std::string& directory);
};

}  // namespace vorpel
