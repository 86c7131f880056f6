// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/file_operations.h"
#include "storage/file_result.h"

#include <functional>
#include <string>
#include <vector>

namespace wordengine {

/// The files that a directory of one kind may hold: a common base name, each with one of some suffixes.
/// Whatever else lies in such a directory is somebody else's, and is neither removed nor moved.
class FileSet {
public:
    struct File {
        std::string suffix;
        /// Writes the whole content; false if it could not, with the reason in errno if there is one.
        /// Need not flush, must not close.
        std::function<bool(std::FILE*)> write;
    };

    /// Keeps the pointer.
    FileSet(std::string baseName, std::vector<std::string> suffixes, FileOperations* operations)
        : baseName_(std::move(baseName)), suffixes_(std::move(suffixes)), operations_(operations) {}

    /// Fails if the path names something that is not a directory. Knows nothing of the set.
    FileResult findDirectory(const std::string& path, bool* outExists) const;

    /// Writes a new directory and syncs it whole: each file, then the directory. A failure leaves it half
    /// written.
    FileResult writeNewDirectory(const std::string& directory, const std::vector<File>& files) const;

    /// Fails, naming the first one, if the directory holds anything but files of the set.
    FileResult refuseStrangers(const std::string& directory) const;

    /// Removes the files and the directory, if there are any; removes nothing if there are strangers.
    FileResult removeDirectory(const std::string& directory) const;

    /// "directory/baseName": with a suffix, the path of a file.
    [[nodiscard]] std::string basePathIn(const std::string& directory) const {
        return directory + "/" + baseName_;
    }

private:
    [[nodiscard]] bool isKnown(const std::string& fileName) const;
    FileResult writeFile(const std::string& path, const File& file) const;
    FileResult fillAndSync(const std::string& path, const File& file, std::FILE* stream) const;
    FileResult listWithoutStrangers(const std::string& directory, std::vector<std::string>* outNames) const;

    std::string baseName_;
    std::vector<std::string> suffixes_;
    FileOperations* operations_;
};

}  // namespace wordengine
