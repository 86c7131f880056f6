// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace wordengine::test {

using Bytes = std::vector<uint8_t>;

/// One node as a test writes it down. A probability of 0 or more makes it the end of a word.
struct TrieNode {
    struct Link {
        std::u32string target;
        int probability;
    };

    std::u32string letters;
    int probability = -1;
    std::vector<TrieNode> children = {};
    std::vector<Link> bigrams = {};
    std::vector<Link> shortcuts = {};
    /// Not a word (2), blacklisted (1).
    int extraFlags = 0;
};

/// Bytes of a read-only trie body with the position of each node that ends a word. Written without any of
/// the product's code, so that the two check each other. Field sizes are those asked for, not the smallest.
class TrieAssembler {
public:
    explicit TrieAssembler(int childrenFieldSize = 2, int bigramFieldSize = 2, bool usesTwoByteCounts = false)
        : childrenFieldSize_(childrenFieldSize),
          bigramFieldSize_(bigramFieldSize),
          usesTwoByteCounts_(usesTwoByteCounts) {}

    const Bytes& assemble(const std::vector<TrieNode>& root) {
        writeArray(root, U"");
        for (const auto& [fieldPos, target] : bigramFields_) resolveBigram(fieldPos, target);
        return bytes;
    }

    Bytes bytes;
    std::map<std::u32string, int> wordPositions;

    /// A dictionary file around the bytes of a body.
    static Bytes fileOf(const Bytes& body,
                        const std::vector<std::pair<std::string, std::string>>& attributes = {}) {
        Bytes file{0x9B, 0xC1, 0x3A, 0xFE, 0, 2, 0, 0, 0, 0, 0, 0};
        for (const auto& [key, value] : attributes) {
            for (const std::string& text : {key, value}) {
                file.insert(file.end(), text.begin(), text.end());
                file.push_back(0x1F);
            }
        }
        for (int i = 0; i < 4; ++i) file[8 + i] = static_cast<uint8_t>(file.size() >> (24 - 8 * i));
        file.insert(file.end(), body.begin(), body.end());
        return file;
    }

    static void appendCodePoint(Bytes* out, char32_t codePoint) {
        if (codePoint >= 0x20 && codePoint <= 0xFF) {
            out->push_back(static_cast<uint8_t>(codePoint));
        } else {
            for (int shift = 16; shift >= 0; shift -= 8) {
                out->push_back(static_cast<uint8_t>(codePoint >> shift));
            }
        }
    }

    static void appendString(Bytes* out, const std::u32string& text) {
        for (const char32_t codePoint : text) appendCodePoint(out, codePoint);
        out->push_back(0x1F);
    }

private:
    void writeArray(const std::vector<TrieNode>& nodes, const std::u32string& prefix) {
        const size_t count = nodes.size();
        if (count > 0x7F || usesTwoByteCounts_) {
            bytes.push_back(static_cast<uint8_t>(0x80 | (count >> 8)));
        }
        bytes.push_back(static_cast<uint8_t>(count));
        std::vector<size_t> childrenFields;
        for (const TrieNode& node : nodes) childrenFields.push_back(writeNode(node, prefix));
        // Depth first: the walk from a position to its word relies on it.
        for (size_t i = 0; i < nodes.size(); ++i) {
            if (nodes[i].children.empty()) continue;
            patch(childrenFields[i], childrenFieldSize_, bytes.size() - childrenFields[i]);
            writeArray(nodes[i].children, prefix + nodes[i].letters);
        }
    }

    /// Returns where its children field is.
    size_t writeNode(const TrieNode& node, const std::u32string& prefix) {
        const bool isTerminal = node.probability >= 0;
        if (isTerminal) wordPositions[prefix + node.letters] = static_cast<int>(bytes.size());
        bytes.push_back(static_cast<uint8_t>((node.children.empty() ? 0 : childrenFieldSize_ << 6) |
                                             (node.letters.size() > 1 ? 0x20 : 0) | (isTerminal ? 0x10 : 0) |
                                             (node.shortcuts.empty() ? 0 : 0x08) |
                                             (node.bigrams.empty() ? 0 : 0x04) | node.extraFlags));
        if (node.letters.size() > 1) {
            appendString(&bytes, node.letters);
        } else {
            appendCodePoint(&bytes, node.letters[0]);
        }
        if (isTerminal) bytes.push_back(static_cast<uint8_t>(node.probability));
        const size_t childrenField = bytes.size();
        if (!node.children.empty()) bytes.insert(bytes.end(), childrenFieldSize_, 0);
        writeShortcuts(node.shortcuts);
        writeBigrams(node.bigrams);
        return childrenField;
    }

    void writeShortcuts(const std::vector<TrieNode::Link>& shortcuts) {
        if (shortcuts.empty()) return;
        const size_t start = bytes.size();
        bytes.insert(bytes.end(), 2, 0);
        for (const TrieNode::Link& shortcut : shortcuts) {
            bytes.push_back(
                static_cast<uint8_t>(shortcut.probability | (&shortcut == &shortcuts.back() ? 0 : 0x80)));
            appendString(&bytes, shortcut.target);
        }
        patch(start, 2, bytes.size() - start);
    }

    void writeBigrams(const std::vector<TrieNode::Link>& bigrams) {
        for (const TrieNode::Link& bigram : bigrams) {
            bytes.push_back(static_cast<uint8_t>(bigram.probability | (bigramFieldSize_ << 4) |
                                                 (&bigram == &bigrams.back() ? 0 : 0x80)));
            bigramFields_.emplace_back(bytes.size(), bigram.target);
            bytes.insert(bytes.end(), bigramFieldSize_, 0);
        }
    }

    void resolveBigram(size_t fieldPos, const std::u32string& target) {
        const int offset = wordPositions.at(target) - static_cast<int>(fieldPos);
        if (offset < 0) bytes[fieldPos - 1] |= 0x40;
        patch(fieldPos, bigramFieldSize_, static_cast<size_t>(std::abs(offset)));
    }

    void patch(size_t pos, int size, size_t value) {
        if (value >> (8 * size)) throw std::range_error("the offset does not fit its field");
        for (int i = size - 1; i >= 0; --i, value >>= 8) bytes[pos + i] = static_cast<uint8_t>(value);
    }

    int childrenFieldSize_;
    int bigramFieldSize_;
    bool usesTwoByteCounts_;
    std::vector<std::pair<size_t, std::u32string>> bigramFields_;
};

/// The merged trie of a set of words with their probabilities.
inline std::vector<TrieNode> trieOf(const std::map<std::u32string, int>& words, size_t depth = 0) {
    std::vector<TrieNode> nodes;
    for (auto begin = words.begin(); begin != words.end();) {
        auto end = begin;
        std::map<std::u32string, int> group;
        while (end != words.end() && end->first[depth] == begin->first[depth]) group.insert(*end++);
        const std::u32string& first = group.begin()->first;
        const std::u32string& last = group.rbegin()->first;
        size_t common = depth;
        while (common < std::min(first.size(), last.size()) && first[common] == last[common]) ++common;
        TrieNode node{first.substr(depth, common - depth)};
        if (first.size() == common) {
            node.probability = group.begin()->second;
            group.erase(group.begin());
        }
        node.children = trieOf(group, common);
        nodes.push_back(std::move(node));
        begin = end;
    }
    return nodes;
}

}  // namespace wordengine::test
