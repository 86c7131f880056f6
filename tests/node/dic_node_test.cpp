// SPDX-License-Identifier: Apache-2.0
#include "node/dic_node.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace wordengine {
namespace {

constexpr int ROOT_POS = 7;
constexpr int PREV_WORD_POS = 4711;

DicNode makeRoot() {
    const int prevWordsPos[] = {PREV_WORD_POS};
    DicNode root;
    root.initAsRoot(ROOT_POS, prevWordsPos);
    return root;
}

DicNode makeChild(const DicNode& parent, const std::u32string& merged, bool isTerminal = true,
                  bool hasChildren = true, bool isBlacklisted = false) {
    const std::vector<int> codePoints(merged.begin(), merged.end());
    DicNode child;
    child.initAsChild(&parent, 100, 200, 77, isTerminal, hasChildren, isBlacklisted,
                      static_cast<int>(codePoints.size()), codePoints.data());
    return child;
}

DicNode passThrough(DicNode node) {
    while (!node.isLeavingNode()) {
        DicNode next;
        next.initAsPassingChild(&node);
        node = next;
    }
    return node;
}

DicNode spell(const std::u32string& word) {
    return passThrough(makeChild(makeRoot(), word));
}

DicNode nextWord(const DicNode& node) {
    DicNode root;
    root.initAsRootWithPreviousWord(&node, ROOT_POS);
    return root;
}

std::u32string spelledBy(const DicNode& node) {
    int buffer[WORD_LENGTH_LIMIT];
    node.outputResult(buffer);
    return std::u32string(buffer, buffer + node.getTotalNodeCodePointCount());
}

TEST(DicNodeTest, WalksThroughAMergedNodeLetterByLetter) {
    const DicNode root = makeRoot();
    EXPECT_TRUE(root.isLeavingNode());
    EXPECT_TRUE(root.hasChildren());
    EXPECT_FALSE(root.isTerminalDicNode());
    EXPECT_EQ(root.getPtNodePos(), NO_DICT_POS);

    DicNode node = makeChild(root, U"then", true, false);
    const std::u32string word = U"then";
    for (size_t depth = 1; depth <= word.size(); ++depth) {
        SCOPED_TRACE(depth);
        const bool isEnd = depth == word.size();
        EXPECT_EQ(node.getNodeCodePoint(), static_cast<int>(word[depth - 1]));
        EXPECT_EQ(node.getNodeCodePointCount(), static_cast<int>(depth));
        EXPECT_EQ(node.isLeavingNode(), isEnd);
        EXPECT_EQ(node.isTerminalDicNode(), isEnd);
        EXPECT_EQ(node.hasChildren(), !isEnd) << "a leaf has children until its last letter";
        EXPECT_EQ(spelledBy(node), word.substr(0, depth));
        EXPECT_EQ(node.getPrevWordsTerminalPtNodePos()[0], PREV_WORD_POS);
        if (isEnd) break;
        DicNode next;
        next.initAsPassingChild(&node);
        node = next;
    }
}

TEST(DicNodeTest, NextWordKeepsCostsAndStartsAfresh) {
    DicNode first = spell(U"good");
    first.forwardInputIndex(0, 4);
    first.setPrevCodePoint(0, 'd');
    first.addCost(0.25f, 0.5f, false, 8, 4, ErrorTypeUtils::EDIT_CORRECTION);
    first.setCached();
    const DicNode second = nextWord(first);
    EXPECT_EQ(second.getNodeCodePointCount(), 0);
    EXPECT_EQ(second.getTotalNodeCodePointCount(), 5);
    EXPECT_EQ(second.getPtNodePos(), NO_DICT_POS);
    EXPECT_EQ(second.getPrevWordsTerminalPtNodePos()[0], first.getPtNodePos());
    EXPECT_EQ(second.getInputIndex(0), 4);
    EXPECT_EQ(second.getPrevCodePoint(0), NO_CODE_POINT);
    EXPECT_FLOAT_EQ(second.getCompoundDistance(), 0.75f);
    EXPECT_EQ(second.getEditCorrectionCount(), 1);
    EXPECT_EQ(second.getContainedErrorTypes(), ErrorTypeUtils::EDIT_CORRECTION);

    const DicNode day = passThrough(makeChild(second, U"Day"));
    EXPECT_EQ(spelledBy(day), U"good Day");
    EXPECT_EQ(std::u32string(day.getCurrentWord(), day.getCurrentWord() + 3), U"Day");
    EXPECT_TRUE(day.isFirstCharUppercase());
    EXPECT_EQ(day.getTotalNodeSpaceCount(), 1);
}

TEST(DicNodeTest, WordCountStopsAtItsLimit) {
    DicNode node = spell(U"a");
    for (int words = 1; words <= 23; ++words) {
        node = nextWord(node);
        EXPECT_EQ(node.getPrevWordCount(), std::min(words, 18));
        node = makeChild(node, U"b");
    }
}

TEST(DicNodeTest, BufferIsNeverOverrun) {
    DicNode node = spell(std::u32string(45, U'x'));
    EXPECT_FALSE(node.isTotalInputSizeExceedingLimit());
    // Too many letters for the buffer: what does not fit is lost, not written.
    const DicNode long1 = makeChild(node, std::u32string(40, U'y'));
    EXPECT_TRUE(long1.isTotalInputSizeExceedingLimit());
    const DicNode end = passThrough(long1);
    int buffer[WORD_LENGTH_LIMIT];
    end.outputResult(buffer);
    EXPECT_EQ(buffer[44], 'x');
    EXPECT_EQ(buffer[47], 'y');
    EXPECT_EQ(end.getNodeCodePoint(), NO_CODE_POINT);

    // No room for a space: the words stay as they are.
    const DicNode afterFull = nextWord(spell(std::u32string(48, U'z')));
    EXPECT_FALSE(afterFull.hasMultipleWords());
    EXPECT_EQ(spelledBy(makeChild(afterFull, U"abc")), U"z");
}

TEST(DicNodeTest, SingleLettersInARowAreRefused) {
    struct Case {
        const char32_t* first;
        const char32_t* second;
        bool isBlacklisted, isValid, isFiltered;
    };
    const Case cases[] = {{U"a", U"b", false, false, true},   {U"a", U"bc", false, true, false},
                          {U"ab", U"c", false, true, false},  {U"ab", U"cd", false, true, false},
                          {U"ab", U"cd", true, false, false}, {U"a", U"b", true, false, true}};
    for (const Case& c : cases) {
        const DicNode node =
            passThrough(makeChild(nextWord(spell(c.first)), c.second, true, true, c.isBlacklisted));
        EXPECT_EQ(node.isValidMultipleWordSuggestion(), c.isValid);
        EXPECT_EQ(node.shouldBeFilteredBySafetyNetForBigram(), c.isFiltered);
    }
    EXPECT_TRUE(makeRoot().shouldBeFilteredBySafetyNetForBigram());
    EXPECT_FALSE(spell(U"a").shouldBeFilteredBySafetyNetForBigram());
}

TEST(DicNodeTest, CostsAndErrorsAddUp) {
    DicNode node = spell(U"word");
    EXPECT_FLOAT_EQ(node.getNormalizedCompoundDistance(), 0.0f);
    EXPECT_EQ(node.getNormalizedCompoundDistanceAfterFirstWord(), WEIGHT_CEILING_FLOAT);
    node.addCost(0.5f, 0.25f, false, 4, 4, ErrorTypeUtils::PROXIMITY_CORRECTION);
    node.saveNormalizedCompoundDistanceAfterFirstWordIfNoneYet();
    node.addCost(0.5f, 0.0f, true, 4, 5, ErrorTypeUtils::COMPLETION | ErrorTypeUtils::EDIT_CORRECTION);
    node.saveNormalizedCompoundDistanceAfterFirstWordIfNoneYet();
    EXPECT_FLOAT_EQ(node.getNormalizedCompoundDistance(), 1.25f / 5);
    EXPECT_FLOAT_EQ(node.getNormalizedCompoundDistanceAfterFirstWord(), 0.75f);
    EXPECT_FLOAT_EQ(node.getCompoundDistance(2.0f), 1.5f);
    EXPECT_FLOAT_EQ(node.getNormalizedSpatialDistance(), 1.0f);
    EXPECT_EQ(node.getProximityCorrectionCount(), 1);
    EXPECT_EQ(node.getEditCorrectionCount(), 1);
    EXPECT_TRUE(node.hasMatchedOrProximityCodePoints());
    node.addCost(0, 0, false, 4, 0, ErrorTypeUtils::EDIT_CORRECTION);
    node.addCost(0, 0, false, 4, 0, ErrorTypeUtils::EDIT_CORRECTION);
    EXPECT_FALSE(node.hasMatchedOrProximityCodePoints()) << "four letters, none of them typed";
}

}  // namespace
}  // namespace wordengine
