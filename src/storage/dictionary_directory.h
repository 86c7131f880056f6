// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "storage/file_operations.h"
#include "storage/file_result.h"
#include "storage/file_set.h"

#include <memory>
#include <string>
#include <vector>

namespace wordengine {

/// A dictionary of several files in a directory, PATH, that is saved as a whole or not at all. The files
/// bear the directory's name with a suffix each. While the object lives, no other one, in this process or
/// another, can be opened for the same path. One thread at a time.
///
/// Beside PATH there may be, and their names alone say what they are worth after a crash:
///
///     PATH.tmp        being written or being removed: perhaps half a dictionary, never needed
///     PATH.replaced   the dictionary while the new one takes its place: whole
///     PATH.lock       an empty file that stays. It is not inside, since the inside changes with each
///                     save, and two savers would each hold the lock of a directory of their own
///
/// The names PATH and PATH.replaced cannot lie: a directory gets one of them only by being renamed, and only
/// after all of it was synced. So no mark inside is needed. PATH is always right; without a PATH,
/// PATH.replaced is; without both there never was a dictionary. What was replaced is removed only under the
/// name PATH.tmp, and only after the folder with the new PATH was synced.
class DictionaryDirectory {
public:
    enum class SaveMode { CREATE, REPLACE };

    /// Locks the path and mends what a crash has left. There need be no dictionary yet, but the folder
    /// that it is to lie in.
    ///
    /// @param path slashes at the end do not count; a symbolic link there is refused
    /// @param suffixes of all files that the dictionary may have, in any of its formats
    /// @param operations must outlive the object
    static FileResult open(const std::string& path, const std::vector<std::string>& suffixes,
                           std::unique_ptr<DictionaryDirectory>* outDirectory,
                           FileOperations& operations = FileOperations::posix());

    ~DictionaryDirectory();
    DictionaryDirectory(const DictionaryDirectory&) = delete;
    DictionaryDirectory& operator=(const DictionaryDirectory&) = delete;

    /// Writes all files anew in place of those that are there. A failure leaves the old dictionary,
    /// or none if there was none; only if the last sync fails the new one is there already. CREATE refuses to
    /// replace anything.
    FileResult save(const std::vector<FileSet::File>& files, SaveMode mode);

    [[nodiscard]] bool exists() const;
    /// Without a slash at its end.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// "PATH/NAME": with a suffix, the path of a file.
    [[nodiscard]] std::string basePath() const { return files_.basePathIn(path_); }

    /// What kept the last open or save from clearing away remains. They do no harm to the dictionary,
    /// but the next save will fail for the same reason.
    [[nodiscard]] const FileResult& clearing() const { return clearing_; }

private:
    DictionaryDirectory(std::string path, std::string name, const std::vector<std::string>& suffixes,
                        FileOperations* operations);

    FileResult lock();
    FileResult bringBack();
    FileResult clearRemains();
    FileResult discardReplaced();
    FileResult refuseToReplace(SaveMode mode) const;
    FileResult putInPlace();
    FileResult putInPlaceByTwoRenames();
    FileResult rename(const std::string& from, const std::string& to);
    FileResult syncFolder();

    const std::string path_;
    const std::string temporaryPath_;
    const std::string replacedPath_;
    const FileSet files_;
    FileOperations* const operations_;
    int lockDescriptor_;
    FileResult clearing_;
};

}  // namespace wordengine
