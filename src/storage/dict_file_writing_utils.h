// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

namespace wordengine {

class BufferWithExtendableBuffer;

/// Brings stores of bytes into files. Stateless.
class DictFileWritingUtils {
public:
    static constexpr const char* TEMP_FILE_SUFFIX_FOR_WRITING_DICT_FILE = ".tmp";
    static constexpr int SIZE_OF_BUFFER_SIZE_FIELD = 4;

    DictFileWritingUtils() = delete;

    /// flushBufferToFile with the path `basePath` followed by `suffix`.
    static bool flushBufferToFileWithSuffix(const char* basePath, const char* suffix,
                                            const BufferWithExtendableBuffer* buffer);

    /// Writes a new file, readable by its owner only. False, with nothing changed, if the path exists:
    /// callers clear the way first. False, with the file removed, if it cannot be written completely.
    static bool flushBufferToFile(const char* filePath, const BufferWithExtendableBuffer* buffer);

    /// The size of the whole store as four big-endian bytes, then the store.
    static bool writeBufferToFileTail(std::FILE* file, const BufferWithExtendableBuffer* buffer);

    static bool writeBufferToFile(std::FILE* file, const BufferWithExtendableBuffer* buffer);
};

}  // namespace wordengine
