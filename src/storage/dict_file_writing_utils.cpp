// SPDX-License-Identifier: Apache-2.0
#include "storage/dict_file_writing_utils.h"

#include "storage/buffer_with_extendable_buffer.h"
#include "storage/byte_array_utils.h"
#include "storage/file_operations.h"

#include <string>

namespace wordengine {

namespace {

bool writeRegion(std::FILE* file, ReadOnlyByteArrayView bytes) {
    return bytes.size() == 0 || std::fwrite(bytes.data(), bytes.size(), 1, file) == 1;
}

}  // namespace

bool DictFileWritingUtils::flushBufferToFileWithSuffix(const char* basePath, const char* suffix,
                                                       const BufferWithExtendableBuffer* buffer) {
    return flushBufferToFile((std::string(basePath) + suffix).c_str(), buffer);
}

bool DictFileWritingUtils::flushBufferToFile(const char* filePath, const BufferWithExtendableBuffer* buffer) {
    FileOperations& operations = FileOperations::posix();
    std::FILE* const file = operations.createFile(filePath);
    if (!file) return false;
    bool isWritten = writeBufferToFile(file, buffer);
    // The stream holds bytes back, so a full disk may show only here.
    if (operations.closeFile(file) != 0) isWritten = false;
    if (!isWritten) operations.removeFile(filePath);
    return isWritten;
}

bool DictFileWritingUtils::writeBufferToFileTail(std::FILE* file, const BufferWithExtendableBuffer* buffer) {
    uint8_t sizeField[SIZE_OF_BUFFER_SIZE_FIELD];
    int pos = 0;
    ByteArrayUtils::writeUintAndAdvancePosition(sizeField, static_cast<uint32_t>(buffer->getTailPosition()),
                                                SIZE_OF_BUFFER_SIZE_FIELD, &pos);
    return writeRegion(file, {sizeField, sizeof(sizeField)}) && writeBufferToFile(file, buffer);
}

bool DictFileWritingUtils::writeBufferToFile(std::FILE* file, const BufferWithExtendableBuffer* buffer) {
    return writeRegion(file, buffer->getBuffer(false)) && writeRegion(file, buffer->getBuffer(true));
}

}  // namespace wordengine
