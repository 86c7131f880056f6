// SPDX-License-Identifier: Apache-2.0
#include "compiler/version2_layout.h"

#include "compiler/input_error.h"
#include "compiler/version2_format.h"
#include "text/engine_constants.h"
#include "text/utf.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>

namespace vorpel::compiler {
namespace {

[[noreturn]] void refuse(const std::string& word, const std::string& reason) {
    throw CompileError("the word \"" + word + "\" " + reason);
}

void checkRange(const std::string& word, const char* what, int value, int largest) {
    if (value >= 0 && value <= largest) return;
    refuse(word, std::string("has ") + what + " " + std::to_string(value) + ", not 0 to " +
                     std::to_string(largest));
}

std::u32string decodeOrRefuse(const std::string& word, const std::string& text, const char* what) {
    std::optional<std::u32string> codePoints = wordengine::utf8ToUtf32(text);
    if (!codePoints) refuse(word, std::string(what) + " that is not UTF-8");
    if (codePoints->empty()) refuse(word, std::string(what) + " that is empty");
    if (codePoints->size() > static_cast<size_t>(wordengine::WORD_LENGTH_LIMIT)) {
        refuse(word, std::string(what) + " of more than 48 code points");
    }
    if (codePoints->find(static_cast<char32_t>(version2::STRING_TERMINATOR)) != std::u32string::npos) {
        refuse(word, std::string(what) + " with the code point U+001F, which ends strings");
    }
    return *std::move(codePoints);
}

/// Checks the shortcuts on the way.
int measureShortcuts(const WordEntry& entry) {
    if (entry.shortcuts.empty()) return 0;
    int64_t size = version2::SHORTCUT_LIST_SIZE_FIELD_SIZE;
    for (const ShortcutEntry& shortcut : entry.shortcuts) {
        checkRange(entry.word, "a shortcut of strength", shortcut.strength,
                   version2::MASK_ATTRIBUTE_STRENGTH);
        // A flags byte, the target and its terminator.
        size += 2 + encodedSize(decodeOrRefuse(entry.word, shortcut.target, "has a shortcut target"));
    }
    if (size > version2::LARGEST_SHORTCUT_LIST) refuse(entry.word, "has shortcuts of more than 65535 bytes");
    return static_cast<int>(size);
}

}  // namespace

PreparedModel::PreparedModel(const DictionaryModel& model) {
    sortEntries(model);
    decodeWords();
    resolveBigrams();
}

void PreparedModel::sortEntries(const DictionaryModel& model) {
    entries_.reserve(model.words.size());
    for (const WordEntry& entry : model.words) entries_.push_back(&entry);
    // UTF-8 sorts by bytes as its code points do.
    std::ranges::sort(entries_, {}, [](const WordEntry* entry) -> const std::string& { return entry->word; });
    const auto twice = std::ranges::adjacent_find(
        entries_, [](const WordEntry* a, const WordEntry* b) { return a->word == b->word; });
    if (twice != entries_.end()) refuse((*twice)->word, "stands twice in the model");
}

void PreparedModel::decodeWords() {
    std::vector<size_t> begins;
    for (const WordEntry* entry : entries_) {
        checkRange(entry->word, "the probability", entry->probability, 255);
        shortcutListSizes_.push_back(measureShortcuts(*entry));
        const std::u32string word = decodeOrRefuse(entry->word, entry->word, "is a text");
        if (word.find(U' ') != std::u32string::npos) {
            refuse(entry->word, "holds a space; only shortcut targets may");
        }
        begins.push_back(text_.size());
        text_ += word;
    }
    begins.push_back(text_.size());
    for (size_t i = 0; i + 1 < begins.size(); ++i) {
        words_.push_back(std::u32string_view(text_).substr(begins[i], begins[i + 1] - begins[i]));
    }
}

void PreparedModel::resolveBigrams() {
    std::vector<const WordEntry*> lastSource(entries_.size(), nullptr);
    for (const WordEntry* entry : entries_) {
        firstBigram_.push_back(static_cast<int>(targets_.size()));
        for (const BigramEntry& bigram : entry->bigrams) {
            checkRange(entry->word, "a bigram of strength", bigram.strength,
                       version2::MASK_ATTRIBUTE_STRENGTH);
            const int target = findWord(bigram.target);
            if (target < 0)
                refuse(entry->word, "has a bigram to \"" + bigram.target + "\", which is no word");
            if (std::exchange(lastSource[target], entry) == entry) {
                refuse(entry->word, "has two bigrams to \"" + bigram.target + "\"");
            }
            targets_.push_back(target);
        }
    }
}

int PreparedModel::findWord(const std::string& word) const {
    const auto found = std::ranges::lower_bound(
        entries_, word, {}, [](const WordEntry* entry) -> const std::string& { return entry->word; });
    if (found == entries_.end() || (*found)->word != word) return -1;
    return static_cast<int>(found - entries_.begin());
}

Version2Layout::Version2Layout(const PreparedModel& model, const PatriciaTrie& trie)
    : model_(model),
      trie_(trie),
      nodeOfWord_(model.wordCount()),
      bigramOffsetSizes_(model.bigramCount(), 1),
      nodePositions_(trie.nodes.size()),
      arrayPositions_(trie.arrays.size()) {
    measureNodes();
    do {
        place();
    } while (growOffsets());
}

void Version2Layout::measureNodes() {
    for (size_t i = 0; i < trie_.nodes.size(); ++i) {
        const PatriciaTrie::Node& node = trie_.nodes[i];
        const std::u32string_view label =
            model_.words()[node.labelWord].substr(node.labelBegin, node.labelEnd - node.labelBegin);
        const bool isTerminal = node.terminalWord != PatriciaTrie::NONE;
        const int terminatorSize = label.size() > 1 ? 1 : 0;
        headSizes_.push_back(1 + encodedSize(label) + terminatorSize + (isTerminal ? 1 : 0));
        childOffsetSizes_.push_back(node.childArray == PatriciaTrie::NONE ? 0 : 1);
        shortcutSizes_.push_back(isTerminal ? model_.shortcutListSize(node.terminalWord) : 0);
        if (isTerminal) nodeOfWord_[node.terminalWord] = static_cast<int>(i);
    }
}

void Version2Layout::place() {
    int64_t position = 0;
    for (size_t a = 0; a < trie_.arrays.size(); ++a) {
        const PatriciaTrie::NodeArray& array = trie_.arrays[a];
        arrayPositions_[a] = position;
        position += array.nodeCount > version2::LARGEST_ONE_BYTE_COUNT ? 2 : 1;
        for (int n = array.firstNode; n < array.firstNode + array.nodeCount; ++n) {
            nodePositions_[n] = position;
            position += headSizes_[n] + childOffsetSizes_[n] + shortcutSizes_[n];
            const int word = trie_.nodes[n].terminalWord;
            if (word == PatriciaTrie::NONE) continue;
            const int bigrams = static_cast<int>(model_.entry(word).bigrams.size());
            for (int b = 0; b < bigrams; ++b)
                position += 1 + bigramOffsetSizes_[model_.firstBigram(word) + b];
        }
    }
    bodySize_ = position;
    if (position > std::numeric_limits<int>::max()) {
        throw CompileError("the dictionary needs more than 2 GiB; the format holds less");
    }
}

bool Version2Layout::growOffsets() {
    bool grew = false;
    for (size_t i = 0; i < trie_.nodes.size(); ++i) {
        const int node = static_cast<int>(i);
        const int64_t childField = nodePositions_[i] + headSizes_[i];
        if (trie_.nodes[i].childArray != PatriciaTrie::NONE) {
            const int64_t offset = arrayPositions_[trie_.nodes[i].childArray] - childField;
            grew |= fit(offset, &childOffsetSizes_[i], node);
        }
        if (trie_.nodes[i].terminalWord != PatriciaTrie::NONE) {
            grew |= growBigramOffsets(node, childField + childOffsetSizes_[i] + shortcutSizes_[i]);
        }
    }
    return grew;
}

bool Version2Layout::growBigramOffsets(int node, int64_t listPosition) {
    const int word = trie_.nodes[node].terminalWord;
    const int first = model_.firstBigram(word);
    const int count = static_cast<int>(model_.entry(word).bigrams.size());
    bool grew = false;
    int64_t position = listPosition;
    for (int b = 0; b < count; ++b) {
        uint8_t* size = &bigramOffsetSizes_[first + b];
        const int64_t field = position + 1;
        position = field + *size;
        grew |= fit(std::abs(wordPosition(model_.bigramTarget(word, b)) - field), size, node);
    }
    return grew;
}

bool Version2Layout::fit(int64_t offset, uint8_t* size, int node) const {
    if (offset > version2::LARGEST_OFFSET) {
        refuse(model_.entry(trie_.nodes[node].labelWord).word,
               "needs an offset of more than three bytes; the dictionary is too large for its format");
    }
    const uint8_t needed = offset <= 0xFF ? 1 : offset <= 0xFFFF ? 2 : 3;
    if (needed <= *size) return false;
    *size = needed;
    return true;
}

int encodedSize(std::u32string_view text) {
    int size = 0;
    for (const char32_t c : text) {
        const bool isOneByte =
            c >= version2::SMALLEST_ONE_BYTE_CODE_POINT && c <= version2::LARGEST_ONE_BYTE_CODE_POINT;
        size += isOneByte ? 1 : 3;
    }
    return size;
}

}  // namespace vorpel::compiler
