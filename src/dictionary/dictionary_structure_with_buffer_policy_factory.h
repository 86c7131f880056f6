// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_structure_with_buffer_policy.h"

namespace wordengine {

/// Opens dictionaries. Every failure is a null pointer and nothing else.
class DictionaryStructureWithBufferPolicyFactory {
public:
    DictionaryStructureWithBufferPolicyFactory() = delete;

    /// Opens `size` bytes from `bufOffset` of the file at `path`. An updatable dictionary would have to be
    /// a directory; directories of dictionary files are not read yet and give null.
    static DictionaryStructureWithBufferPolicy::StructurePolicyPtr newPolicyForExistingDictFile(
        const char* path, int bufOffset, int size, bool isUpdatable);

    /// The same for a path that is known to be a file.
    static DictionaryStructureWithBufferPolicy::StructurePolicyPtr newPolicyForFileDict(const char* path,
                                                                                        int bufOffset,
                                                                                        int size);
};

}  // namespace wordengine
