// SPDX-License-Identifier: Apache-2.0
#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"

#include "dictionary/format_utils.h"
#include "dictionary/v2/patricia_trie_policy.h"
#include "storage/file_utils.h"
#include "storage/mmapped_buffer.h"

#include <memory>
#include <utility>

namespace wordengine {

using StructurePolicyPtr = DictionaryStructureWithBufferPolicy::StructurePolicyPtr;

StructurePolicyPtr DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile(
    const char* path, int bufOffset, int size, bool isUpdatable) {
    // Directories hold the formats that can be updated, none of which is read yet.
    if (FileUtils::existsDir(path)) return nullptr;
    if (isUpdatable) return nullptr;
    return newPolicyForFileDict(path, bufOffset, size);
}

StructurePolicyPtr DictionaryStructureWithBufferPolicyFactory::newPolicyForFileDict(const char* path,
                                                                                    int bufOffset, int size) {
    MmappedBuffer::MmappedBufferPtr mmappedBuffer =
        MmappedBuffer::openBuffer(path, bufOffset, size, /* isUpdatable */ false);
    if (!mmappedBuffer) return nullptr;
    const ReadOnlyByteArrayView bytes = mmappedBuffer->getReadOnlyByteArrayView();
    switch (FormatUtils::detectFormatVersion(bytes.data(), static_cast<int>(bytes.size()))) {
        case FormatUtils::VERSION_2:
            return std::make_unique<PatriciaTriePolicy>(std::move(mmappedBuffer));
        case FormatUtils::VERSION_399:
        case FormatUtils::VERSION_402:
        case FormatUtils::VERSION_403:
            // Headers of directories; a single file of theirs is not a dictionary.
        case FormatUtils::UNKNOWN_VERSION:
            return nullptr;
    }
    return nullptr;
}

}  // namespace wordengine
