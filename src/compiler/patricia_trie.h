// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace vorpel::compiler {

/// A trie with merged nodes over a sorted list of words. Nodes of one array lie side by side, and the
/// arrays stand in depth-first order: an array, then for each of its nodes in turn all that is below it.
/// That is also their order in a file.
struct PatriciaTrie {
    static constexpr int NONE = -1;

    struct Node {
        /// The code points of the node are those from labelBegin to labelEnd of this word.
        int labelWord = NONE;
        int labelBegin = 0;
        int labelEnd = 0;
        /// The word that ends here, and the array of the children.
        int terminalWord = NONE;
        int childArray = NONE;
    };

    struct NodeArray {
        int firstNode = 0;
        int nodeCount = 0;
    };

    std::vector<Node> nodes;
    /// The first is the root; it is there, and empty, in a trie without words.
    std::vector<NodeArray> arrays;

    /// @param words sorted by code points, different, none empty
    static PatriciaTrie build(const std::vector<std::u32string_view>& words);
};

}  // namespace vorpel::compiler
