// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/patricia_trie_policy.h"

#include "dictionary_fixture.h"

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

TEST_F(SmallTrieTest, FindsCapitalsBySmallLetters) {
    EXPECT_EQ(positionOf(*policy_, U"INTO", true), at(U"into"));
    EXPECT_EQ(positionOf(*policy_, U"A", true), at(U"a"));
    EXPECT_EQ(positionOf(*policy_, U"A", false), at(U"A"));
    for (const char32_t* word : {U"", U"i", U"th", U"int", U"AA"}) {
        EXPECT_EQ(positionOf(*policy_, word, true), NO_DICT_POS);
    }
    EXPECT_EQ(positionOf(*policy_, std::u32string(49, U'a')), NO_DICT_POS);
}

TEST_F(SmallTrieTest, KeepsWordsWithinTheCallersBuffer) {
    // The last node's letters are cut, those of the nodes above it are not.
    const std::u32string fitting[] = {U"", U"", U"", U"int", U"into"};
    for (int room = 0; room <= 4; ++room) {
        EXPECT_EQ(wordAt(*policy_, at(U"into"), nullptr, room), fitting[room]) << room;
    }
    int probability = 7;
    for (const int position : {NO_DICT_POS, -1, 100000, 2147483647}) {
        EXPECT_EQ(wordAt(*policy_, position, &probability), U"");
        EXPECT_EQ(probability, NO_PROBABILITY);
    }
}

TEST_F(SmallTrieTest, ReadsPairs) {
    const int a = at(U"a");
    const int none = NO_DICT_POS;
    RecordingListener listener;
    policy_->iterateNgramEntries(&a, &listener);
    EXPECT_EQ(listener.entries, (std::vector<std::pair<int, int>>{{at(U"in"), 3}, {at(U"the"), 15}}));
    EXPECT_EQ(policy_->getProbabilityOfPtNode(&a, at(U"in")), 152);
    EXPECT_EQ(policy_->getProbabilityOfPtNode(&a, at(U"ion")), NO_PROBABILITY) << "no such pair";
    EXPECT_EQ(policy_->getProbabilityOfPtNode(&none, at(U"in")), NO_PROBABILITY);
    EXPECT_EQ(policy_->getProbabilityOfPtNode(nullptr, at(U"inner")), NO_PROBABILITY) << "blacklisted";
    EXPECT_EQ(policy_->getProbabilityOfPtNode(nullptr, at(U"teh")), NO_PROBABILITY) << "not a word";
}

TEST_F(SmallTrieTest, WalksEachWordOnceChildrenFirst) {
    const std::vector<std::u32string> expected = {U"a",   U"A",   U"into", U"inner", U"in",
                                                  U"ion", U"teh", U"the",  MARK,     U"so"};
    EXPECT_EQ(walkWords(policy_.get()), expected);
    EXPECT_EQ(walkWords(policy_.get()), expected) << "and again";
    for (const int token : {-1, 1000})
        EXPECT_EQ(policy_->getNextWordAndNextToken(token, nullptr, nullptr), 0);
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
