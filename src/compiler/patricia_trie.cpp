// SPDX-License-Identifier: Apache-2.0
#include "compiler/patricia_trie.h"

#include <algorithm>
#include <utility>

namespace vorpel::compiler {
namespace {

/// Words side by side that share their first `depth` code points.
struct WordRange {
    int begin;
    int end;
    int depth;
};

class TrieBuilder {
public:
    explicit TrieBuilder(const std::vector<std::u32string_view>& words) : words_(words) {}

    /// As deep as the longest word has nodes, so at most 48 calls.
    int buildArray(WordRange range) {
        const int array = static_cast<int>(trie.arrays.size());
        const int firstNode = static_cast<int>(trie.nodes.size());
        trie.arrays.emplace_back();
        std::vector<WordRange> below;
        for (int begin = range.begin; begin < range.end; begin = below.back().end) {
            below.push_back(addNode({begin, endOfGroup(begin, range), range.depth}));
        }
        trie.arrays[array] = {firstNode, static_cast<int>(below.size())};
        for (size_t i = 0; i < below.size(); ++i) {
            if (below[i].begin == below[i].end) continue;
            const int children = buildArray(below[i]);
            trie.nodes[firstNode + i].childArray = children;
        }
        return array;
    }

    PatriciaTrie trie;

private:
    int endOfGroup(int begin, WordRange range) const {
        const char32_t first = words_[begin][range.depth];
        int end = begin + 1;
        while (end < range.end && words_[end][range.depth] == first) ++end;
        return end;
    }

    /// Returns the words that go on below the node.
    WordRange addNode(WordRange group) {
        const std::u32string_view shortest = words_[group.begin];
        // In a sorted group the first and the last word share what all share.
        const std::u32string_view last = words_[group.end - 1];
        int labelEnd = group.depth + 1;
        while (labelEnd < static_cast<int>(std::min(shortest.size(), last.size())) &&
               shortest[labelEnd] == last[labelEnd]) {
            ++labelEnd;
        }
        const bool isTerminal = labelEnd == static_cast<int>(shortest.size());
        trie.nodes.push_back({group.begin, group.depth, labelEnd,
                              isTerminal ? group.begin : PatriciaTrie::NONE, PatriciaTrie::NONE});
        return {group.begin + (isTerminal ? 1 : 0), group.end, labelEnd};
    }

    const std::vector<std::u32string_view>& words_;
};

}  // namespace

PatriciaTrie PatriciaTrie::build(const std::vector<std::u32string_view>& words) {
    TrieBuilder builder(words);
    builder.buildArray({0, static_cast<int>(words.size()), 0});
    return std::move(builder.trie);
}

}  // namespace vorpel::compiler
