// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/patricia_trie_policy.h"

#include "dictionary/binary_dictionary_shortcut_iterator.h"
#include "dictionary/dic_node_utils.h"
#include "dictionary/multi_bigram_map.h"
#include "dictionary_fixture.h"
#include "node/dic_node.h"
#include "node/dic_node_vector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace wordengine::test {
namespace {

const std::u32string MARK(1, char32_t{CODE_POINT_BEGINNING_OF_SENTENCE});

/// a, "A", in, into, inner (blacklisted), ion, teh (for "the"), the, so, and a mark that nobody types.
std::vector<TrieNode> smallTrie() {
    return {
        {U"a", 90, {}, {{U"in", 3}, {U"the", 15}}},
        {U"A", 40},
        {U"i",
         -1,
         {{U"n", 120, {{U"to", 110}, {U"ner", 60, {}, {}, {}, 1}}, {{U"the", 9}, {U"a", 0}}}, {U"on", 50}}},
        {U"t", -1, {{U"eh", 1, {}, {}, {{U"the", 15}, {U"tea", 14}}, 2}, {U"he", 200}}},
        {MARK, 0, {}, {{U"a", 5}}, {}, 2},
        {U"so", 255, {}, {{U"a", 1}}}};
}

class SmallTrieTest : public ::testing::Test {
protected:
    SmallTrieTest() : policy_(openBody(assembler_.assemble(smallTrie()))) {}
    ~SmallTrieTest() override { EXPECT_FALSE(policy_->isCorrupted()); }

    int at(const std::u32string& word) const { return assembler_.wordPositions.at(word); }

    TrieAssembler assembler_;
    std::unique_ptr<PatriciaTriePolicy> policy_;
};

struct Child {
    std::u32string letters;
    int probability;
    bool isTerminal;
    bool hasChildren;
    bool isBlacklistedOrNotAWord;
    bool operator==(const Child&) const = default;
};

std::vector<Child> childrenOf(const PatriciaTriePolicy& policy, const DicNode& parent, DicNodeVector* nodes) {
    DicNodeUtils::getAllChildDicNodes(&parent, &policy, nodes);
    std::vector<Child> children;
    const int start = parent.getTotalNodeCodePointCount();
    for (int i = 0, count = nodes->getSizeAndLock(); i < count; ++i) {
        const DicNode& node = *(*nodes)[i];
        const int* spelled = node.getOutputWordBuf();
        DicNode last = node;
        while (!last.isLeavingNode()) {
            DicNode next;
            next.initAsPassingChild(&last);
            last = next;
        }
        children.push_back({std::u32string(spelled + start, spelled + last.getTotalNodeCodePointCount()),
                            node.getProbability(), last.isTerminalDicNode(), last.hasChildren(),
                            node.isBlacklistedOrNotAWord()});
    }
    return children;
}

TEST_F(SmallTrieTest, HandsOutChildrenInOrder) {
    DicNode root;
    DicNodeUtils::initAsRoot(policy_.get(), nullptr, &root);
    DicNodeVector nodes;
    EXPECT_EQ(childrenOf(*policy_, root, &nodes), (std::vector<Child>{{U"a", 90, true, false, false},
                                                                      {U"A", 40, true, false, false},
                                                                      {U"i", -1, false, true, false},
                                                                      {U"t", -1, false, true, false},
                                                                      {U"so", 255, true, false, false}}));
    const DicNode letterI = *nodes[2];
    DicNodeVector below;
    EXPECT_EQ(childrenOf(*policy_, letterI, &below),
              (std::vector<Child>{{U"n", 120, true, true, false}, {U"on", 50, true, false, false}}));
    EXPECT_EQ(below[0]->getPtNodePos(), at(U"in"));
    DicNodeVector deepest;
    EXPECT_EQ(childrenOf(*policy_, *below[0], &deepest),
              (std::vector<Child>{{U"to", 110, true, false, false}, {U"ner", 60, true, false, true}}));
    DicNodeVector none;
    EXPECT_TRUE(childrenOf(*policy_, *nodes[0], &none).empty());
    // In the middle of a merged node the only step is the node's next letter.
    DicNodeVector passing;
    DicNodeUtils::getAllChildDicNodes(nodes[4], policy_.get(), &passing);
    ASSERT_EQ(passing.getSizeAndLock(), 1);
    EXPECT_EQ(passing[0]->getDicNodeCodePoint(), 'o');
}

TEST_F(SmallTrieTest, FindsWordsByLettersAndLettersByPosition) {
    for (const auto& [word, position] : assembler_.wordPositions) {
        EXPECT_EQ(positionOf(*policy_, word), position);
        EXPECT_EQ(wordAt(*policy_, position), word);
    }
    for (const char32_t* word : {U"", U"i", U"t", U"te", U"th", U"thee", U"int", U"innerr", U"b", U"AA"}) {
        EXPECT_EQ(positionOf(*policy_, word), NO_DICT_POS);
        EXPECT_EQ(positionOf(*policy_, word, true), NO_DICT_POS);
    }
    EXPECT_EQ(positionOf(*policy_, U"INTO", true), at(U"into"));
    EXPECT_EQ(positionOf(*policy_, U"A", true), at(U"a"));
    EXPECT_EQ(positionOf(*policy_, U"A", false), at(U"A"));
    EXPECT_EQ(positionOf(*policy_, std::u32string(49, U'a')), NO_DICT_POS);
}

TEST_F(SmallTrieTest, KeepsWordsWithinTheCallersBuffer) {
    EXPECT_EQ(wordAt(*policy_, at(U"into"), nullptr, 4), U"into");
    EXPECT_EQ(wordAt(*policy_, at(U"into"), nullptr, 3), U"int") << "the last node's letters are cut";
    EXPECT_EQ(wordAt(*policy_, at(U"into"), nullptr, 2), U"");
    EXPECT_EQ(wordAt(*policy_, at(U"into"), nullptr, 0), U"");
    int probability = 7;
    for (const int position : {NO_DICT_POS, -1, 100000, 2147483647}) {
        EXPECT_EQ(wordAt(*policy_, position, &probability), U"");
        EXPECT_EQ(probability, NO_PROBABILITY);
    }
}

TEST_F(SmallTrieTest, CombinesProbabilities) {
    struct Case {
        int unigram, bigram, expected;
    };
    for (const Case& each : std::vector<Case>{{100, 15, 250},
                                              {100, 0, 109},
                                              {-1, 3, -1},
                                              {100, -1, 100},
                                              {-1, -1, -1},
                                              {255, 15, 255},
                                              {0, 15, 247},
                                              {0, 0, 15},
                                              {90, 3, 130}}) {
        EXPECT_EQ(policy_->getProbability(each.unigram, each.bigram), each.expected)
            << each.unigram << " " << each.bigram;
    }
}

TEST_F(SmallTrieTest, ReadsPairs) {
    const int a = at(U"a");
    const int none = NO_DICT_POS;
    RecordingListener listener;
    policy_->iterateNgramEntries(&a, &listener);
    EXPECT_EQ(listener.entries, (std::vector<std::pair<int, int>>{{at(U"in"), 3}, {at(U"the"), 15}}));
    policy_->iterateNgramEntries(nullptr, &listener);
    policy_->iterateNgramEntries(&none, &listener);
    EXPECT_EQ(listener.entries.size(), 2u);

    EXPECT_EQ(policy_->getProbabilityOfPtNode(nullptr, at(U"in")), 120);
    EXPECT_EQ(policy_->getProbabilityOfPtNode(&a, at(U"in")), policy_->getProbability(120, 3));
    EXPECT_EQ(policy_->getProbabilityOfPtNode(&a, at(U"ion")), NO_PROBABILITY) << "no such pair";
    EXPECT_EQ(policy_->getProbabilityOfPtNode(&none, at(U"in")), NO_PROBABILITY);
    EXPECT_EQ(policy_->getProbabilityOfPtNode(nullptr, NO_DICT_POS), NO_PROBABILITY);
    EXPECT_EQ(policy_->getProbabilityOfPtNode(nullptr, at(U"inner")), NO_PROBABILITY) << "blacklisted";
    EXPECT_EQ(policy_->getProbabilityOfPtNode(nullptr, at(U"teh")), NO_PROBABILITY) << "not a word";
}

TEST_F(SmallTrieTest, WalksEachWordOnceChildrenFirst) {
    const std::vector<std::u32string> expected = {U"a",   U"A",   U"into", U"inner", U"in",
                                                  U"ion", U"teh", U"the",  MARK,     U"so"};
    EXPECT_EQ(walkWords(policy_.get()), expected);
    EXPECT_EQ(walkWords(policy_.get()), expected) << "and again";
    int buffer[WORD_LENGTH_LIMIT];
    int length = -7;
    EXPECT_EQ(policy_->getNextWordAndNextToken(-1, buffer, &length), 0);
    EXPECT_EQ(policy_->getNextWordAndNextToken(1000, buffer, &length), 0);
    EXPECT_EQ(length, -7);
}

TEST_F(SmallTrieTest, CollectsEverythingAboutAWord) {
    const auto propertyOf = [this](const std::u32string& word) {
        const std::vector<int> codePoints = codePointsOf(word);
        return policy_->getWordProperty(codePoints.data(), static_cast<int>(codePoints.size()));
    };
    const WordProperty in = propertyOf(U"in");
    EXPECT_EQ(in.getCodePoints(), codePointsOf(U"in"));
    EXPECT_EQ(in.getUnigramProperty().getProbability(), 120);
    ASSERT_EQ(in.getBigramProperties().size(), 2u);
    EXPECT_EQ(in.getBigramProperties()[0].getTargetCodePoints(), codePointsOf(U"the"));
    EXPECT_EQ(in.getBigramProperties()[0].getProbability(), 9);
    const UnigramProperty teh = propertyOf(U"teh").getUnigramProperty();
    EXPECT_TRUE(teh.isNotAWord());
    EXPECT_FALSE(teh.isBlacklisted());
    ASSERT_EQ(teh.getShortcuts().size(), 2u);
    EXPECT_EQ(teh.getShortcuts()[1].getTargetCodePoints(), codePointsOf(U"tea"));
    EXPECT_EQ(teh.getShortcuts()[1].getProbability(), 14);
    EXPECT_TRUE(propertyOf(U"inner").getUnigramProperty().isBlacklisted());
    EXPECT_TRUE(propertyOf(MARK).getUnigramProperty().representsBeginningOfSentence());
    EXPECT_TRUE(propertyOf(U"nothing").getCodePoints().empty());

    EXPECT_EQ(policy_->getShortcutPositionOfPtNode(at(U"the")), NO_DICT_POS);
    EXPECT_EQ(policy_->getShortcutPositionOfPtNode(NO_DICT_POS), NO_DICT_POS);
    EXPECT_TRUE(BinaryDictionaryShortcutIterator(policy_->getShortcutsStructurePolicy(),
                                                 policy_->getShortcutPositionOfPtNode(at(U"teh")))
                    .hasNext());
}

TEST_F(SmallTrieTest, WeighsANodeByWhatPrecedesIt) {
    MultiBigramMap map;
    for (const int previous : {NO_DICT_POS, at(U"a")}) {
        DicNode root;
        DicNodeUtils::initAsRoot(policy_.get(), &previous, &root);
        DicNodeVector nodes;
        DicNodeUtils::getAllChildDicNodes(&root, policy_.get(), &nodes);
        const DicNode& so = *nodes[nodes.getSizeAndLock() - 1];
        const DicNode& letterA = *nodes[0];
        EXPECT_EQ(DicNodeUtils::getBigramNodeImprobability(policy_.get(), &so, &map), 0.0f);
        EXPECT_EQ(DicNodeUtils::getBigramNodeImprobability(policy_.get(), &letterA, &map), 165.0f / 255.0f);
        EXPECT_EQ(DicNodeUtils::getBigramNodeImprobability(policy_.get(), &letterA, nullptr),
                  165.0f / 255.0f);
    }
    const int in = at(U"in");
    DicNode root;
    DicNodeUtils::initAsRoot(policy_.get(), &in, &root);
    DicNodeVector nodes;
    DicNodeUtils::getAllChildDicNodes(&root, policy_.get(), &nodes);
    ASSERT_EQ(nodes.getSizeAndLock(), 5);
    EXPECT_EQ(DicNodeUtils::getBigramNodeProbability(policy_.get(), nodes[0], &map),
              policy_->getProbability(90, 0));
    // "a" after "a": two words of one letter in a row are not offered.
    DicNode next;
    DicNodeUtils::initAsRootWithPreviousWord(policy_.get(), nodes[0], &next);
    DicNodeVector second;
    DicNodeUtils::getAllChildDicNodes(&next, policy_.get(), &second);
    ASSERT_EQ(second.getSizeAndLock(), 5);
    EXPECT_EQ(DicNodeUtils::getBigramNodeImprobability(policy_.get(), second[0], &map), WEIGHT_CEILING_FLOAT);
    EXPECT_EQ(DicNodeUtils::getBigramNodeProbability(policy_.get(), second[4], &map), 255);
}

TEST_F(SmallTrieTest, RefusesChanges) {
    EXPECT_FALSE(policy_->addUnigramEntry(nullptr, 0, nullptr) || policy_->removeUnigramEntry(nullptr, 0) ||
                 policy_->addNgramEntry(nullptr, nullptr) || policy_->removeNgramEntry(nullptr, nullptr, 0) ||
                 policy_->flush("x") || policy_->flushWithGC("x") || policy_->needsToRunGC(true));
    char answer[4] = "abc";
    policy_->getProperty("UNIGRAM_COUNT", 13, answer, 0);
    EXPECT_STREQ(answer, "abc");
    policy_->getProperty("UNIGRAM_COUNT", 13, answer, 4);
    EXPECT_STREQ(answer, "");
}

TEST(EmptyDictionaryTest, HasNoWords) {
    const auto policy = openBody({0});
    EXPECT_TRUE(walkWords(policy.get()).empty());
    EXPECT_EQ(positionOf(*policy, U"a"), NO_DICT_POS);
    EXPECT_FALSE(policy->isCorrupted());
}

TEST(RandomTrieTest, AgreesWithAPlainMap) {
    std::mt19937 random(20240501);
    const std::u32string letters = U"abAé\u0627\U0001F600";
    for (int round = 0; round < 60; ++round) {
        std::map<std::u32string, int> words;
        const int wordCount = 1 + static_cast<int>(random() % 150);
        for (int i = 0; i < wordCount; ++i) {
            std::u32string word;
            const size_t length = i == 0 ? WORD_LENGTH_LIMIT : 1 + random() % 7;
            while (word.size() < length) word += letters[random() % letters.size()];
            words[word] = static_cast<int>(random() % 256);
        }
        TrieAssembler assembler(2 + round % 2, 2, round % 3 == 0);
        const auto policy = openBody(assembler.assemble(trieOf(words)));
        std::vector<std::u32string> walked = walkWords(policy.get());
        std::sort(walked.begin(), walked.end());
        ASSERT_EQ(walked.size(), words.size());
        ASSERT_TRUE(std::equal(walked.begin(), walked.end(), words.begin(),
                               [](const auto& word, const auto& entry) { return word == entry.first; }));
        for (const auto& [word, probability] : words) {
            const int position = positionOf(*policy, word);
            ASSERT_EQ(position, assembler.wordPositions.at(word));
            int readProbability;
            ASSERT_EQ(wordAt(*policy, position, &readProbability), word);
            ASSERT_EQ(readProbability, probability);
            ASSERT_EQ(policy->getProbabilityOfPtNode(nullptr, position), probability);
            std::u32string other = word;
            other[random() % other.size()] = letters[random() % letters.size()];
            ASSERT_EQ(positionOf(*policy, other) != NO_DICT_POS, words.count(other) > 0);
            ASSERT_EQ(positionOf(*policy, word.substr(0, word.size() - 1)) != NO_DICT_POS,
                      words.count(word.substr(0, word.size() - 1)) > 0);
        }
        ASSERT_FALSE(policy->isCorrupted());
    }
}

}  // namespace
}  // namespace wordengine::test
