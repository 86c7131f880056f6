// SPDX-License-Identifier: Apache-2.0
#include "storage/file_utils.h"

#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <libgen.h>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace wordengine {

namespace {

constexpr int DEFAULT_MAX_TRIES_TO_REMOVE_DIR = 5;

struct DirCloser {
    void operator()(DIR* dir) const { closedir(dir); }
};
using DirPtr = std::unique_ptr<DIR, DirCloser>;

/// Some file systems do not tell the type with the name.
bool isDirectory(const dirent& entry, const std::string& path) {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    struct stat status;
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool removeFilesIn(DIR* dir, const std::string& dirPath) {
    while (const dirent* const entry = readdir(dir)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        const std::string path = dirPath + "/" + entry->d_name;
        if (isDirectory(*entry, path)) continue;
        if (std::remove(path.c_str()) != 0) return false;
    }
    return true;
}

bool copyIfItFits(std::string_view text, int outSize, char* out) {
    if (outSize <= 0 || text.size() >= static_cast<size_t>(outSize)) return false;
    std::memcpy(out, text.data(), text.size());
    out[text.size()] = '\0';
    return true;
}

}  // namespace

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
    return DirPtr(opendir(dirPath)) != nullptr;
}

bool FileUtils::removeDirAndFiles(const char* dirPath) {
    return removeDirAndFiles(dirPath, DEFAULT_MAX_TRIES_TO_REMOVE_DIR);
}

bool FileUtils::removeDirAndFiles(const char* dirPath, int maxTries) {
    for (int triesLeft = maxTries;; --triesLeft) {
        DirPtr dir(opendir(dirPath));
        if (!dir) return true;
        if (!removeFilesIn(dir.get(), dirPath)) return false;
        dir.reset();
        if (std::remove(dirPath) == 0) return true;
        // A file may have come in behind the walk.
        if (triesLeft < 1) return false;
    }
}

int FileUtils::getFilePathBufSize(const char* dirPath, const char* fileName) {
    return static_cast<int>(std::strlen(dirPath) + 1 + std::strlen(fileName) + 1);
}

void FileUtils::getFilePath(const char* dirPath, const char* fileName, int filePathBufSize,
                            char* outFilePath) {
    if (filePathBufSize <= 0) return;
    std::snprintf(outFilePath, static_cast<size_t>(filePathBufSize), "%s/%s", dirPath, fileName);
}

int FileUtils::getFilePathWithSuffixBufSize(const char* filePath, const char* suffix) {
    return static_cast<int>(std::strlen(filePath) + std::strlen(suffix) + 1);
}

void FileUtils::getFilePathWithSuffix(const char* filePath, const char* suffix, int filePathBufSize,
                                      char* outFilePath) {
    if (filePathBufSize <= 0) return;
    std::snprintf(outFilePath, static_cast<size_t>(filePathBufSize), "%s%s", filePath, suffix);
}

bool FileUtils::getFilePathWithoutSuffix(const char* filePath, const char* suffix, int outDirPathBufSize,
                                         char* outFilePath) {
    const std::string_view path = filePath;
    const std::string_view ending = suffix;
    if (path.size() <= ending.size() || !path.ends_with(ending)) return false;
    return copyIfItFits(path.substr(0, path.size() - ending.size()), outDirPathBufSize, outFilePath);
}

void FileUtils::getDirPath(const char* filePath, int outDirPathBufSize, char* outDirPath) {
    const std::string_view path = filePath;
    const size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) return;
    copyIfItFits(path.substr(0, slash), outDirPathBufSize, outDirPath);
}

void FileUtils::getBasename(const char* filePath, int outFileNameBufSize, char* outFileName) {
    // basename() may write into its argument, so it gets a copy.
    std::string path = filePath;
    copyIfItFits(basename(path.data()), outFileNameBufSize, outFileName);
}

}  // namespace wordengine
