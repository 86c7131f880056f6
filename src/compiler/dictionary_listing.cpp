// SPDX-License-Identifier: Apache-2.0
#include "compiler/dictionary_listing.h"

#include "compiler/input_error.h"
#include "dictionary/format_utils.h"
#include "dictionary/v2/patricia_trie_policy.h"
#include "storage/mmapped_buffer.h"
#include "text/engine_constants.h"
#include "text/utf.h"

#include <algorithm>

namespace vorpel::compiler {
namespace {

using wordengine::FormatUtils;
using wordengine::MmappedBuffer;
using wordengine::PatriciaTriePolicy;

WordEntry entryOf(const wordengine::WordProperty& property) {
    const wordengine::UnigramProperty& unigram = property.getUnigramProperty();
    WordEntry entry;
    entry.word = wordengine::codePointsToUtf8(property.getCodePoints());
    entry.probability = unigram.getProbability();
    entry.isNotAWord = unigram.isNotAWord();
    entry.isBlacklisted = unigram.isBlacklisted();
    for (const auto& shortcut : unigram.getShortcuts()) {
        entry.shortcuts.push_back(
            {wordengine::codePointsToUtf8(shortcut.getTargetCodePoints()), shortcut.getProbability()});
    }
    for (const wordengine::BigramProperty& bigram : property.getBigramProperties()) {
        entry.bigrams.push_back(
            {wordengine::codePointsToUtf8(bigram.getTargetCodePoints()), bigram.getProbability()});
    }
    return entry;
}

void count(const WordEntry& entry, DictionaryInfo* info) {
    ++(entry.isNotAWord ? info->notWords : info->words);
    if (!entry.isNotAWord && entry.probability == 0) ++info->zeroProbabilityWords;
    info->bigrams += static_cast<int>(entry.bigrams.size());
    info->shortcuts += static_cast<int>(entry.shortcuts.size());
    info->whitelistShortcuts += static_cast<int>(
        std::ranges::count(entry.shortcuts, WHITELIST_SHORTCUT_STRENGTH, &ShortcutEntry::strength));
}

}  // namespace

DictionaryListing::DictionaryListing(std::string path, int fileSize,
                                     std::unique_ptr<PatriciaTriePolicy> policy)
    : path_(std::move(path)), fileSize_(fileSize), policy_(std::move(policy)) {}

DictionaryListing::DictionaryListing(DictionaryListing&&) noexcept = default;
DictionaryListing::~DictionaryListing() = default;

DictionaryListing DictionaryListing::open(const std::string& path) {
    MmappedBuffer::MmappedBufferPtr buffer = MmappedBuffer::openBuffer(path.c_str(), false);
    if (!buffer) throw CompileError(path + ": cannot be opened");
    const wordengine::ReadOnlyByteArrayView bytes = buffer->getReadOnlyByteArrayView();
    const int fileSize = static_cast<int>(bytes.size());
    switch (FormatUtils::detectFormatVersion(bytes.data(), fileSize)) {
        case FormatUtils::VERSION_2:
            return {path, fileSize, std::make_unique<PatriciaTriePolicy>(std::move(buffer))};
        case FormatUtils::UNKNOWN_VERSION:
            throw CompileError(path + ": is no dictionary");
        default:
            throw CompileError(path + ": is a dictionary of a format that cannot be listed");
    }
}

void DictionaryListing::forEachWord(const std::function<void(const WordEntry&)>& visit) {
    int codePoints[wordengine::WORD_LENGTH_LIMIT];
    int token = 0;
    do {
        int length = 0;
        token = policy_->getNextWordAndNextToken(token, codePoints, &length);
        if (length > 0) visit(entryOf(policy_->getWordProperty(codePoints, length)));
        if (policy_->isCorrupted()) throw CompileError(path_ + ": is damaged");
    } while (token != 0);
}

std::optional<WordEntry> DictionaryListing::lookup(std::string_view word) const {
    const std::optional<std::vector<int>> codePoints = wordengine::utf8ToCodePoints(word);
    if (!codePoints || codePoints->empty()) return std::nullopt;
    const wordengine::WordProperty property =
        policy_->getWordProperty(codePoints->data(), static_cast<int>(codePoints->size()));
    if (property.getCodePoints().empty()) return std::nullopt;
    return entryOf(property);
}

DictionaryInfo DictionaryListing::info() {
    const wordengine::DictionaryHeaderStructurePolicy* header = policy_->getHeaderStructurePolicy();
    DictionaryInfo info;
    info.formatVersion = header->getFormatVersionNumber();
    info.headerSize = header->getSize();
    info.fileSize = fileSize_;
    for (const auto& [key, value] : *header->getAttributeMap()) {
        info.attributes.emplace_back(wordengine::codePointsToUtf8(key), wordengine::codePointsToUtf8(value));
    }
    forEachWord([&info](const WordEntry& entry) { count(entry, &info); });
    return info;
}

}  // namespace vorpel::compiler
