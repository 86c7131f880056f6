// SPDX-License-Identifier: Apache-2.0
#include "compiler/version2_writer.h"

#include "compiler/input_error.h"
#include "compiler/version2_format.h"
#include "compiler/version2_layout.h"
#include "storage/atomic_file.h"
#include "text/utf.h"

#include <cstring>
#include <optional>
#include <utility>

namespace vorpel::compiler {
namespace {

/// Bytes at the end of a growing file.
class ByteSink {
public:
    explicit ByteSink(size_t expectedSize = 0) { bytes.reserve(expectedSize); }

    void number(int64_t value, int size) {
        for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) {
            bytes.push_back(static_cast<uint8_t>(value >> shift));
        }
    }

    void text(std::u32string_view codePoints) {
        for (const char32_t c : codePoints) number(c, encodedSize({&c, 1}));
    }

    void terminatedText(std::u32string_view codePoints) {
        text(codePoints);
        number(version2::STRING_TERMINATOR, 1);
    }

    std::vector<uint8_t> bytes;
};

std::u32string attributeText(const std::string& key, const std::string& text, const char* what) {
    const std::optional<std::u32string> codePoints = wordengine::utf8ToUtf32(text);
    const char* fault = nullptr;
    if (!codePoints) {
        fault = " is not UTF-8";
    } else if (codePoints->empty()) {
        fault = " is empty";
    } else if (codePoints->size() > static_cast<size_t>(version2::MAX_ATTRIBUTE_LENGTH)) {
        fault = " has more than 256 code points";
    } else if (codePoints->find(static_cast<char32_t>(version2::STRING_TERMINATOR)) != std::u32string::npos) {
        fault = " has the code point U+001F, which ends strings";
    }
    if (fault) throw CompileError("the header attribute \"" + key + "\": its " + what + fault);
    return *codePoints;
}

std::vector<uint8_t> headerBytes(const DictionaryModel& model) {
    ByteSink attributes;
    for (size_t i = 0; i < model.attributes.size(); ++i) {
        const auto& [key, value] = model.attributes[i];
        for (size_t j = 0; j < i; ++j) {
            if (model.attributes[j].first == key) {
                throw CompileError("the header attribute \"" + key + "\" stands twice");
            }
        }
        attributes.terminatedText(attributeText(key, key, "key"));
        attributes.terminatedText(attributeText(key, value, "value"));
    }
    ByteSink header;
    header.number(version2::MAGIC_NUMBER, 4);
    header.number(version2::VERSION, 2);
    header.number(0, 2);
    header.number(version2::FIXED_HEADER_SIZE + static_cast<int64_t>(attributes.bytes.size()), 4);
    header.bytes.insert(header.bytes.end(), attributes.bytes.begin(), attributes.bytes.end());
    return std::move(header.bytes);
}

class BodyWriter {
public:
    BodyWriter(const PreparedModel& model, const PatriciaTrie& trie, const Version2Layout& layout)
        : model_(model), trie_(trie), layout_(layout), out_(layout.bodySize()) {}

    std::vector<uint8_t> write() {
        for (const PatriciaTrie::NodeArray& array : trie_.arrays) {
            writeCount(array);
            for (int n = 0; n < array.nodeCount; ++n) writeNode(array.firstNode + n);
        }
        return std::move(out_.bytes);
    }

private:
    void writeCount(const PatriciaTrie::NodeArray& array) {
        if (array.nodeCount <= version2::LARGEST_ONE_BYTE_COUNT) {
            out_.number(array.nodeCount, 1);
            return;
        }
        if (array.nodeCount > version2::LARGEST_COUNT) {
            throw CompileError("one letter has " + std::to_string(array.nodeCount) +
                               " different successors, of which the format holds 32767, as in \"" +
                               model_.entry(trie_.nodes[array.firstNode].labelWord).word + "\"");
        }
        out_.number(array.nodeCount | 0x8000, 2);
    }

    void writeNode(int index) {
        const PatriciaTrie::Node& node = trie_.nodes[index];
        const std::u32string_view label =
            model_.words()[node.labelWord].substr(node.labelBegin, node.labelEnd - node.labelBegin);
        const WordEntry* entry =
            node.terminalWord == PatriciaTrie::NONE ? nullptr : &model_.entry(node.terminalWord);
        out_.number(nodeFlags(label, entry, layout_.childOffsetSize(index)), 1);
        if (label.size() > 1) {
            out_.terminatedText(label);
        } else {
            out_.text(label);
        }
        if (entry) out_.number(entry->probability, 1);
        if (node.childArray != PatriciaTrie::NONE) {
            out_.number(layout_.arrayPosition(node.childArray) - position(), layout_.childOffsetSize(index));
        }
        if (entry) {
            writeShortcuts(node.terminalWord);
            writeBigrams(node.terminalWord);
        }
    }

    static int nodeFlags(std::u32string_view label, const WordEntry* entry, int childOffsetSize) {
        int flags = childOffsetSize << version2::CHILDREN_OFFSET_SIZE_SHIFT;
        if (label.size() > 1) flags |= version2::FLAG_HAS_MULTIPLE_CHARS;
        if (!entry) return flags;
        flags |= version2::FLAG_IS_TERMINAL;
        if (!entry->shortcuts.empty()) flags |= version2::FLAG_HAS_SHORTCUT_TARGETS;
        if (!entry->bigrams.empty()) flags |= version2::FLAG_HAS_BIGRAMS;
        if (entry->isNotAWord) flags |= version2::FLAG_IS_NOT_A_WORD;
        if (entry->isBlacklisted) flags |= version2::FLAG_IS_BLACKLISTED;
        return flags;
    }

    void writeShortcuts(int word) {
        const std::vector<ShortcutEntry>& shortcuts = model_.entry(word).shortcuts;
        if (shortcuts.empty()) return;
        out_.number(model_.shortcutListSize(word), version2::SHORTCUT_LIST_SIZE_FIELD_SIZE);
        for (const ShortcutEntry& shortcut : shortcuts) {
            const int next = &shortcut == &shortcuts.back() ? 0 : version2::FLAG_ATTRIBUTE_HAS_NEXT;
            out_.number(next | shortcut.strength, 1);
            out_.terminatedText(wordengine::utf8ToUtf32(shortcut.target).value());
        }
    }

    void writeBigrams(int word) {
        const std::vector<BigramEntry>& bigrams = model_.entry(word).bigrams;
        for (size_t b = 0; b < bigrams.size(); ++b) {
            const int size = layout_.bigramOffsetSize(model_.firstBigram(word) + static_cast<int>(b));
            const int64_t offset =
                layout_.wordPosition(model_.bigramTarget(word, static_cast<int>(b))) - (position() + 1);
            int flags = (size << version2::ATTRIBUTE_OFFSET_SIZE_SHIFT) | bigrams[b].strength;
            if (b + 1 < bigrams.size()) flags |= version2::FLAG_ATTRIBUTE_HAS_NEXT;
            if (offset < 0) flags |= version2::FLAG_ATTRIBUTE_OFFSET_NEGATIVE;
            out_.number(flags, 1);
            out_.number(offset < 0 ? -offset : offset, size);
        }
    }

    int64_t position() const { return static_cast<int64_t>(out_.bytes.size()); }

    const PreparedModel& model_;
    const PatriciaTrie& trie_;
    const Version2Layout& layout_;
    ByteSink out_;
};

}  // namespace

std::vector<uint8_t> Version2Writer::write(const DictionaryModel& model) {
    std::vector<uint8_t> file = headerBytes(model);
    const PreparedModel prepared(model);
    const PatriciaTrie trie = PatriciaTrie::build(prepared.words());
    const Version2Layout layout(prepared, trie);
    const std::vector<uint8_t> body = BodyWriter(prepared, trie, layout).write();
    file.insert(file.end(), body.begin(), body.end());
    return file;
}

void Version2Writer::writeFile(const DictionaryModel& model, const std::string& path) {
    const int error = wordengine::writeFileAtomically(path, write(model));
    if (error != 0) throw CompileError(path + ": cannot be written: " + std::strerror(error));
}

}  // namespace vorpel::compiler
