// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// Paths and folders, as the dictionary formats use them. Stateless. All strings are NUL-terminated;
/// every `out` buffer has the stated size in bytes and receives a terminated string or nothing.
class FileUtils {
public:
    FileUtils() = delete;

    /// The size in bytes; -1 on any failure, and for a size that an int cannot hold.
    [[nodiscard]] static int getFileSize(const char* filePath);

    [[nodiscard]] static bool existsDir(const char* dirPath);

    /// Removes a folder and the files in it, but no folder below it. True also when there is no such
    /// folder. A folder that will not go is tried again up to `maxTries` times more (5 by default).
    static bool removeDirAndFiles(const char* dirPath);
    static bool removeDirAndFiles(const char* dirPath, int maxTries);

    /// "dirPath/fileName", and the bytes that it needs with its terminator.
    [[nodiscard]] static int getFilePathBufSize(const char* dirPath, const char* fileName);
    static void getFilePath(const char* dirPath, const char* fileName, int filePathBufSize,
                            char* outFilePath);

    /// "filePath" followed by "suffix", and the bytes that it needs with its terminator.
    [[nodiscard]] static int getFilePathWithSuffixBufSize(const char* filePath, const char* suffix);
    static void getFilePathWithSuffix(const char* filePath, const char* suffix, int filePathBufSize,
                                      char* outFilePath);

    /// False if the path is not longer than the suffix, does not end in it, or the rest does not fit.
    static bool getFilePathWithoutSuffix(const char* filePath, const char* suffix, int outDirPathBufSize,
                                         char* outFilePath);

    /// What stands before the last slash; leaves `outDirPath` alone without one or when it does not fit.
    static void getDirPath(const char* filePath, int outDirPathBufSize, char* outDirPath);

    /// The last part of a path, as the platform's basename() sees it; leaves `outFileName` alone when
    /// it does not fit.
    static void getBasename(const char* filePath, int outFileNameBufSize, char* outFileName);
};

}  // namespace wordengine
