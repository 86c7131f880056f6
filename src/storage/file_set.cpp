// SPDX-License-Identifier: Apache-2.0
#include "storage/file_set.h"

#include <algorithm>
#include <cerrno>

namespace wordengine {

FileResult FileSet::findDirectory(const std::string& path, bool* outExists) const {
    FileOperations::Kind kind;
    const int error = operations_->findKind(path, &kind);
    if (error != 0) return FileResult::failure(path, "look at it", error);
    *outExists = kind == FileOperations::Kind::DIRECTORY;
    if (kind != FileOperations::Kind::OTHER) return {};
    return FileResult::failure(path, "is not a directory (symbolic links are not followed)");
}

FileResult FileSet::writeNewDirectory(const std::string& directory, const std::vector<File>& files) const {
    if (const int error = operations_->makeDirectory(directory); error != 0) {
        return FileResult::failure(directory, "make the directory", error);
    }
    for (const File& file : files) {
        FileResult result = writeFile(basePathIn(directory) + file.suffix, file);
        if (!result.isOk()) return result;
    }
    return FileResult::ofStep(directory, "sync", operations_->syncDirectory(directory));
}

FileResult FileSet::writeFile(const std::string& path, const File& file) const {
    // A file that could not be removed again would stand in the way of every later save.
    if (!isKnown(baseName_ + file.suffix))
        return FileResult::failure(path, "no file of this set is so called");
    std::FILE* const stream = operations_->createFile(path);
    if (!stream) return FileResult::failure(path, "create", errno);
    FileResult result = fillAndSync(path, file, stream);
    const int error = operations_->closeFile(stream);
    return result.isOk() ? FileResult::ofStep(path, "close", error) : result;
}

FileResult FileSet::fillAndSync(const std::string& path, const File& file, std::FILE* stream) const {
    errno = 0;
    const bool isWritten = file.write(stream) && std::ferror(stream) == 0;
    if (!isWritten) return FileResult::failure(path, "write", errno);
    return FileResult::ofStep(path, "sync", operations_->syncFile(stream));
}

FileResult FileSet::refuseStrangers(const std::string& directory) const {
    std::vector<std::string> names;
    return listWithoutStrangers(directory, &names);
}

FileResult FileSet::removeDirectory(const std::string& directory) const {
    bool exists = false;
    FileResult result = findDirectory(directory, &exists);
    if (!result.isOk() || !exists) return result;
    std::vector<std::string> names;
    result = listWithoutStrangers(directory, &names);
    if (!result.isOk()) return result;
    for (const std::string& name : names) {
        const std::string path = directory + "/" + name;
        if (const int error = operations_->removeFile(path); error != 0) {
            return FileResult::failure(path, "remove", error);
        }
    }
    return FileResult::ofStep(directory, "remove the directory", operations_->removeDirectory(directory));
}

FileResult FileSet::listWithoutStrangers(const std::string& directory,
                                         std::vector<std::string>* outNames) const {
    if (const int error = operations_->listDirectory(directory, outNames); error != 0) {
        return FileResult::failure(directory, "list", error);
    }
    const auto stranger = std::find_if_not(outNames->begin(), outNames->end(),
                                           [this](const std::string& name) { return isKnown(name); });
    if (stranger == outNames->end()) return {};
    return FileResult::failure(
        directory + "/" + *stranger,
        "does not belong to the dictionary; move it away, and the rest can be replaced");
}

bool FileSet::isKnown(const std::string& fileName) const {
    return std::any_of(suffixes_.begin(), suffixes_.end(),
                       [&](const std::string& suffix) { return fileName == baseName_ + suffix; });
}

}  // namespace wordengine
