// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/dictionary_model.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vorpel::compiler {

/// Turns a model into the bytes of dictionary format version 2 (docs/formats/dictionary-v2.md). Equal
/// models give equal bytes, whatever the order of their words. Whatever the format cannot hold throws a
/// CompileError that names the word; nothing is cut. May be called from any thread.
class Version2Writer {
public:
    Version2Writer() = delete;

    static std::vector<uint8_t> write(const DictionaryModel& model);

    /// Writes to a temporary name beside the path, syncs and renames, so that a reader never sees half a
    /// dictionary. Throws CompileError when the file cannot be written.
    static void writeFile(const DictionaryModel& model, const std::string& path);
};

}  // namespace vorpel::compiler
