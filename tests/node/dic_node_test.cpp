// SPDX-License-Identifier: Apache-2.0
#include "node/dic_node.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace wordengine {
namespace {

// What nodes are for is compared with a plain search, with the search. Here are the limits, which no search
// over words reaches.

DicNode makeRoot() {
    DicNode root;
    root.initAsRoot(0, nullptr);
    return root;
}

/// At the last letter of the node.
DicNode spell(const DicNode& parent, const std::u32string& merged) {
    const std::vector<int> codePoints(merged.begin(), merged.end());
    DicNode node;
    node.initAsChild(&parent, 100, 200, 77, true, true, false, static_cast<int>(codePoints.size()),
                     codePoints.data());
    while (!node.isLeavingNode()) {
        DicNode next;
        next.initAsPassingChild(&node);
        node = next;
    }
    return node;
}

DicNode nextWord(const DicNode& node) {
    DicNode root;
    root.initAsRootWithPreviousWord(&node, 0);
    return root;
}

std::u32string spelledBy(const DicNode& node) {
    int buffer[WORD_LENGTH_LIMIT];
    node.outputResult(buffer);
    return std::u32string(buffer, buffer + std::min(node.getTotalNodeCodePointCount(), WORD_LENGTH_LIMIT));
}

TEST(DicNodeTest, WordCountStopsAtItsLimit) {
    DicNode node = spell(makeRoot(), U"a");
    for (int words = 1; words <= 23; ++words) {
        node = nextWord(node);
        EXPECT_EQ(node.getPrevWordCount(), std::min(words, 18));
        node = spell(node, U"b");
    }
}

TEST(DicNodeTest, BufferIsNeverOverrun) {
    const DicNode fits = spell(makeRoot(), std::u32string(45, U'x'));
    EXPECT_FALSE(fits.isTotalInputSizeExceedingLimit());
    // Too many letters for the buffer: what does not fit is lost, not written.
    const DicNode longer = spell(fits, std::u32string(40, U'y'));
    EXPECT_TRUE(longer.isTotalInputSizeExceedingLimit());
    EXPECT_EQ(spelledBy(longer), std::u32string(45, U'x') + U"yyy");
    EXPECT_EQ(longer.getNodeCodePoint(), NO_CODE_POINT);

    // No room for a space: the words stay as they are.
    const DicNode afterFull = nextWord(spell(makeRoot(), std::u32string(48, U'z')));
    EXPECT_FALSE(afterFull.hasMultipleWords());
    EXPECT_EQ(spelledBy(spell(afterFull, U"a")), U"z");
}

}  // namespace
}  // namespace wordengine
