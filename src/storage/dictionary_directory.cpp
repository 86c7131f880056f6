// SPDX-License-Identifier: Apache-2.0
#include "storage/dictionary_directory.h"

#include "storage/dict_file_writing_utils.h"

#include <cerrno>

namespace wordengine {

namespace {

constexpr int NO_DESCRIPTOR = -1;
constexpr const char* SUFFIX_OF_REPLACED = ".replaced";
constexpr const char* SUFFIX_OF_LOCK = ".lock";

std::string withoutSlashesAtEnd(const std::string& path) {
    return path.substr(0, path.find_last_not_of('/') + 1);
}

}  // namespace

FileResult DictionaryDirectory::open(const std::string& path, const std::vector<std::string>& suffixes,
                                     std::unique_ptr<DictionaryDirectory>* outDirectory,
                                     FileOperations& operations) {
    const std::string plainPath = withoutSlashesAtEnd(path);
    const std::string name = plainPath.substr(plainPath.rfind('/') + 1);
    if (name.empty() || name == "." || name == "..") {
        return FileResult::failure(path, "does not name a directory of its own");
    }
    std::unique_ptr<DictionaryDirectory> directory(
        new DictionaryDirectory(plainPath, name, suffixes, &operations));
    // Asked before the lock too, which would leave its file beside whatever else bears the name.
    bool exists = false;
    FileResult result = directory->files_.findDirectory(plainPath, &exists);
    if (result.isOk()) result = directory->lock();
    if (result.isOk()) result = directory->bringBack();
    if (!result.isOk()) return result;
    directory->clearing_ = directory->clearRemains();
    *outDirectory = std::move(directory);
    return {};
}

DictionaryDirectory::DictionaryDirectory(std::string path, std::string name,
                                         const std::vector<std::string>& suffixes, FileOperations* operations)
    : path_(std::move(path)),
      temporaryPath_(path_ + DictFileWritingUtils::TEMP_FILE_SUFFIX_FOR_WRITING_DICT_FILE),
      replacedPath_(path_ + SUFFIX_OF_REPLACED),
      files_(std::move(name), suffixes, operations),
      operations_(operations),
      lockDescriptor_(NO_DESCRIPTOR) {}

DictionaryDirectory::~DictionaryDirectory() {
    if (lockDescriptor_ != NO_DESCRIPTOR) operations_->unlockFile(lockDescriptor_);
}

FileResult DictionaryDirectory::save(const std::vector<FileSet::File>& files, SaveMode mode) {
    FileResult result = bringBack();
    if (result.isOk()) result = clearing_ = clearRemains();
    if (result.isOk()) result = refuseToReplace(mode);
    if (!result.isOk()) return result;
    result = files_.writeNewDirectory(temporaryPath_, files);
    if (result.isOk()) result = putInPlace();
    if (!result.isOk()) {
        clearing_ = bringBack();
        if (clearing_.isOk()) clearing_ = clearRemains();
        return result;
    }
    result = syncFolder();
    if (result.isOk()) clearing_ = discardReplaced();
    return result;
}

bool DictionaryDirectory::exists() const {
    bool exists = false;
    return files_.findDirectory(path_, &exists).isOk() && exists;
}

FileResult DictionaryDirectory::lock() {
    const std::string lockPath = path_ + SUFFIX_OF_LOCK;
    const int error = operations_->lockFile(lockPath, &lockDescriptor_);
    if (error == EWOULDBLOCK) {
        return FileResult::failure(path_, "is in use by another program, or elsewhere in this one");
    }
    return FileResult::ofStep(lockPath, "lock", error);
}

/// After a crash between the two renames of a save the old dictionary goes on. The new one is whole too,
/// but nobody was told that it was saved, and its name PATH.tmp proves nothing.
FileResult DictionaryDirectory::bringBack() {
    bool exists = false;
    FileResult result = files_.findDirectory(path_, &exists);
    if (!result.isOk() || exists) return result;
    result = files_.findDirectory(replacedPath_, &exists);
    if (!result.isOk() || !exists) return result;
    // Somebody else may use the name for a directory of his own.
    result = files_.refuseStrangers(replacedPath_);
    if (result.isOk()) result = rename(replacedPath_, path_);
    return result.isOk() ? syncFolder() : result;
}

FileResult DictionaryDirectory::clearRemains() {
    bool isTemporaryThere = false;
    bool isReplacedThere = false;
    FileResult result = files_.findDirectory(temporaryPath_, &isTemporaryThere);
    if (result.isOk()) result = files_.findDirectory(replacedPath_, &isReplacedThere);
    if (!result.isOk() || (!isTemporaryThere && !isReplacedThere)) return result;
    // The crash may have come before this sync, so that the remains are all that the disk knows of.
    result = syncFolder();
    return result.isOk() ? discardReplaced() : result;
}

/// For when PATH, if there is one, is on the disk under its name.
FileResult DictionaryDirectory::discardReplaced() {
    FileResult result = files_.removeDirectory(temporaryPath_);
    if (!result.isOk()) return result;
    bool exists = false;
    result = files_.findDirectory(replacedPath_, &exists);
    if (!result.isOk() || !exists) return result;
    result = files_.refuseStrangers(replacedPath_);
    if (result.isOk()) result = rename(replacedPath_, temporaryPath_);
    return result.isOk() ? files_.removeDirectory(temporaryPath_) : result;
}

FileResult DictionaryDirectory::refuseToReplace(SaveMode mode) const {
    bool exists = false;
    FileResult result = files_.findDirectory(path_, &exists);
    if (!result.isOk() || !exists) return result;
    if (mode == SaveMode::CREATE) return FileResult::failure(path_, "exists already");
    return files_.refuseStrangers(path_);
}

FileResult DictionaryDirectory::putInPlace() {
    bool exists = false;
    FileResult result = files_.findDirectory(path_, &exists);
    if (!result.isOk()) return result;
    if (!exists) return rename(temporaryPath_, path_);
    const int error = operations_->exchange(temporaryPath_, path_);
    const bool isUnknown = error == ENOSYS || error == EINVAL || error == ENOTSUP;
    return isUnknown ? putInPlaceByTwoRenames() : FileResult::ofStep(path_, "replace", error);
}

FileResult DictionaryDirectory::putInPlaceByTwoRenames() {
    FileResult result = rename(path_, replacedPath_);
    return result.isOk() ? rename(temporaryPath_, path_) : result;
}

FileResult DictionaryDirectory::rename(const std::string& from, const std::string& to) {
    return FileResult::ofStep(from, "rename to " + to, operations_->rename(from, to));
}

FileResult DictionaryDirectory::syncFolder() {
    const std::string folder = folderOf(path_);
    return FileResult::ofStep(folder, "sync", operations_->syncDirectory(folder));
}

}  // namespace wordengine
