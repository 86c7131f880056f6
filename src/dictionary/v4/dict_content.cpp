// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/dict_content.h"

#include "storage/dict_file_writing_utils.h"
#include "text/engine_constants.h"

#include <algorithm>

namespace wordengine {

bool DictContent::flushBuffer(std::FILE* file, const BufferWithExtendableBuffer* buffer, Framing framing) {
    return framing == Framing::SIZE_FIRST ? DictFileWritingUtils::writeBufferToFileTail(file, buffer)
                                          : DictFileWritingUtils::writeBufferToFile(file, buffer);
}

SparseTableDictContent::SparseTableDictContent(const BufferViews& buffers, int blockSize, int dataSize)
    : buffers_{{{buffers[LOOKUP_TABLE_BUFFER_INDEX],
                 BufferWithExtendableBuffer::DEFAULT_MAX_ADDITIONAL_BUFFER_SIZE},
                {buffers[ADDRESS_TABLE_BUFFER_INDEX],
                 BufferWithExtendableBuffer::DEFAULT_MAX_ADDITIONAL_BUFFER_SIZE},
                {buffers[CONTENT_BUFFER_INDEX],
                 BufferWithExtendableBuffer::DEFAULT_MAX_ADDITIONAL_BUFFER_SIZE}}},
      addressLookupTable_(&buffers_[LOOKUP_TABLE_BUFFER_INDEX], &buffers_[ADDRESS_TABLE_BUFFER_INDEX],
                          blockSize, dataSize) {}

SparseTableDictContent::SparseTableDictContent(int blockSize, int dataSize)
    : buffers_{{BufferWithExtendableBuffer(BufferWithExtendableBuffer::DEFAULT_MAX_ADDITIONAL_BUFFER_SIZE),
                BufferWithExtendableBuffer(BufferWithExtendableBuffer::DEFAULT_MAX_ADDITIONAL_BUFFER_SIZE),
                BufferWithExtendableBuffer(Ver4DictConstants::MAX_DICTIONARY_SIZE)}},
      addressLookupTable_(&buffers_[LOOKUP_TABLE_BUFFER_INDEX], &buffers_[ADDRESS_TABLE_BUFFER_INDEX],
                          blockSize, dataSize) {}

bool SparseTableDictContent::isNearSizeLimit() const {
    return std::any_of(buffers_.begin(), buffers_.end(),
                       [](const auto& buffer) { return buffer.isNearSizeLimit(); });
}

bool SparseTableDictContent::flushToFile(std::FILE* file) const {
    return std::all_of(buffers_.begin(), buffers_.end(), [file](const auto& buffer) {
        return flushBuffer(file, &buffer, Framing::SIZE_FIRST);
    });
}

bool SparseTableDictContent::flushBufferToFile(std::FILE* file, int bufferIndex) const {
    return flushBuffer(file, &buffers_.at(static_cast<size_t>(bufferIndex)), Framing::BARE);
}

int SparseTableDictContent::getListHeadPos(int terminalId) const {
    const int pos = addressLookupTable_.get(terminalId);
    return pos >= 0 && pos < getContentBuffer()->getTailPosition() ? pos : NO_DICT_POS;
}

}  // namespace wordengine
