// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/dictionary_model.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wordengine {
class PatriciaTriePolicy;
}

namespace vorpel::compiler {

/// What `dict info` tells.
struct DictionaryInfo {
    int formatVersion = 0;
    int headerSize = 0;
    int fileSize = 0;
    /// In the order of their keys.
    std::vector<std::pair<std::string, std::string>> attributes;
    int words = 0;
    int notWords = 0;
    int zeroProbabilityWords = 0;
    int bigrams = 0;
    int shortcuts = 0;
    int whitelistShortcuts = 0;
};

/// An opened dictionary, read through the same code that the search reads it with. Not for several
/// threads at once.
class DictionaryListing {
public:
    /// Throws CompileError when the file cannot be opened or is no dictionary that can be listed.
    static DictionaryListing open(const std::string& path);

    DictionaryListing(DictionaryListing&&) noexcept;
    ~DictionaryListing();

    /// Every entry in the order of the file's walk. Throws CompileError when the file turns out damaged.
    void forEachWord(const std::function<void(const WordEntry&)>& visit);

    /// The entry of exactly this word, not-a-word entries included.
    [[nodiscard]] std::optional<WordEntry> lookup(std::string_view word) const;

    /// Walks the whole dictionary for its counts.
    [[nodiscard]] DictionaryInfo info();

private:
    DictionaryListing(std::string path, int fileSize, std::unique_ptr<wordengine::PatriciaTriePolicy> policy);

    std::string path_;
    int fileSize_;
    std::unique_ptr<wordengine::PatriciaTriePolicy> policy_;
};

}  // namespace vorpel::compiler
