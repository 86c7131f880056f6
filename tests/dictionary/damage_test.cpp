// SPDX-License-Identifier: Apache-2.0
#include "dictionary/binary_dictionary_shortcut_iterator.h"
#include "dictionary/dic_node_utils.h"
#include "dictionary/multi_bigram_map.h"
#include "dictionary/prev_words_info.h"
#include "dictionary_fixture.h"
#include "node/dic_node.h"
#include "node/dic_node_vector.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace wordengine::test {
namespace {

// Damaged and hostile files. Most of these tests pass by not crashing, under sanitizers, and by ending.

/// Looks up the word of every entry, as predictions do.
struct PredictingListener final : NgramListener {
    explicit PredictingListener(const PatriciaTriePolicy* dictionary) : policy(dictionary) {}
    void onVisitEntry(int, int target) override {
        wordAt(*policy, target);
        ++count;
    }
    const PatriciaTriePolicy* policy;
    int count = 0;
};

class EveryRead {
public:
    explicit EveryRead(PatriciaTriePolicy* policy) : policy_(policy) {}

    void run(const std::vector<std::u32string>& words) {
        for (const std::u32string& word : words) readWord(word);
        for (const std::u32string& word : walkWords(policy_)) {
            EXPECT_LE(word.size(), static_cast<size_t>(WORD_LENGTH_LIMIT));
            if (++walkedCount_ < 100) readWord(word);
        }
        for (int position = -2; position < 400; ++position) readPosition(position);
        DicNode root;
        DicNodeUtils::initAsRoot(policy_, nullptr, &root);
        readChildren(root);
        int letters[4];
        policy_->getHeaderStructurePolicy()->readHeaderValueOrQuestionMark("locale", letters, 4);
    }

private:
    void readWord(const std::u32string& word) {
        readPosition(positionOf(*policy_, word, true));
        const std::vector<int> letters = codePointsOf(word);
        policy_->getWordProperty(letters.data(), static_cast<int>(letters.size()));
    }

    void readPosition(int position) {
        wordAt(*policy_, position);
        PredictingListener listener(policy_);
        policy_->iterateNgramEntries(&position, &listener);
        policy_->getProbabilityOfPtNode(&position, 3);
        map_.getBigramProbability(policy_, &position, 3, 100);
        BinaryDictionaryShortcutIterator shortcuts(policy_->getShortcutsStructurePolicy(),
                                                   policy_->getShortcutPositionOfPtNode(position));
        while (shortcuts.hasNext()) {
            int target[WORD_LENGTH_LIMIT];
            int length;
            shortcuts.next(target, &length, nullptr);
            ASSERT_LE(length, WORD_LENGTH_LIMIT);
        }
    }

    void readChildren(const DicNode& parent) {
        DicNodeVector children;
        DicNodeUtils::getAllChildDicNodes(&parent, policy_, &children);
        const int count = children.getSizeAndLock();
        for (int i = 0; i < count && expandedCount_ < 300; ++i) {
            ++expandedCount_;
            DicNodeUtils::getBigramNodeImprobability(policy_, children[i], &map_);
            readChildren(*children[i]);
        }
    }

    PatriciaTriePolicy* policy_;
    MultiBigramMap map_;
    int walkedCount_ = 0;
    int expandedCount_ = 0;
};

const std::vector<std::u32string> WORDS = {U"a", U"into", U"teh", U"zoo", std::u32string(48, U'x')};

std::vector<TrieNode> sampleTrie() {
    std::vector<TrieNode> nodes = trieOf({{U"a", 90},
                                          {U"in", 120},
                                          {U"into", 110},
                                          {U"inner", 60},
                                          {U"é", 3},
                                          {U"teh", 1},
                                          {U"the", 255},
                                          {U"zo\u0153", 5},
                                          {WORDS.back(), 9}});
    nodes[0].bigrams = {{U"in", 3}, {U"the", 15}};
    nodes.back().bigrams = {{U"a", 7}};
    nodes.back().shortcuts = {{U"eh", 15}, {U"e\u0301", 2}};
    return nodes;
}

Bytes sampleFile() {
    TrieAssembler assembler;
    return TrieAssembler::fileOf(assembler.assemble(sampleTrie()), {{"locale", "en"}, {"date", "1"}});
}

void readEverything(const Bytes& file) {
    const auto policy = openFile(file);
    EveryRead(policy.get()).run(WORDS);
}

TEST(DamageTest, SoundFileIsNotCorrupted) {
    const auto policy = openFile(sampleFile());
    EXPECT_EQ(walkWords(policy.get()).size(), 9u);
    DicNode root;
    DicNodeUtils::initAsRoot(policy.get(), nullptr, &root);
    for (const std::u32string& word : WORDS) positionOf(*policy, word, true);
    EXPECT_FALSE(policy->isCorrupted());
}

TEST(DamageTest, ReadsEveryTruncation) {
    const Bytes file = sampleFile();
    for (size_t length = 1; length < file.size(); ++length) {
        readEverything(Bytes(file.begin(), file.begin() + static_cast<long>(length)));
        const auto policy = openFile(Bytes(file.begin(), file.begin() + static_cast<long>(length)));
        walkWords(policy.get());
        EXPECT_TRUE(policy->isCorrupted()) << "cut to " << length;
    }
}

TEST(DamageTest, ReadsEveryChangedByte) {
    const Bytes sound = sampleFile();
    for (size_t position = 0; position < sound.size(); ++position) {
        for (const int change : {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80, 0xFF}) {
            Bytes file = sound;
            file[position] = static_cast<uint8_t>(file[position] ^ change);
            readEverything(file);
        }
        for (const int value : {0x00, 0x1F, 0x7F, 0xFF}) {
            Bytes file = sound;
            file[position] = static_cast<uint8_t>(value);
            readEverything(file);
        }
    }
}

TEST(DamageTest, ReadsNoise) {
    std::mt19937 random(5);
    for (int round = 0; round < 300; ++round) {
        Bytes body(random() % 600);
        for (uint8_t& byte : body) byte = static_cast<uint8_t>(random() % (round % 2 == 0 ? 256 : 0x60));
        readEverything(TrieAssembler::fileOf(body));
    }
}

TEST(DamageTest, DistrustsTheHeaderSize) {
    for (const uint32_t size : {0u, 11u, 100u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        Bytes file = TrieAssembler::fileOf({0});
        for (int i = 0; i < 4; ++i)
            file[8 + static_cast<size_t>(i)] = static_cast<uint8_t>(size >> (24 - 8 * i));
        const auto policy = openFile(file);
        EXPECT_TRUE(walkWords(policy.get()).empty());
        EXPECT_TRUE(policy->isCorrupted()) << size;
    }
}

TEST(DamageTest, MarksACountThatRunsOffTheBody) {
    for (const Bytes& body : std::vector<Bytes>{
             {0x02, 0x10, 'a', 1}, {0x81, 0x00, 0x10, 'a', 1}, {0x01, 0x10, 'a'}, {0x81}, {}}) {
        const auto policy = openBody(body);
        DicNode root;
        DicNodeUtils::initAsRoot(policy.get(), nullptr, &root);
        DicNodeVector children;
        DicNodeUtils::getAllChildDicNodes(&root, policy.get(), &children);
        EXPECT_EQ(children.getSizeAndLock(), body.size() > 3 ? 1 : 0);
        EXPECT_TRUE(policy->isCorrupted());
        EXPECT_EQ(positionOf(*openBody(body), U"a"),
                  body.size() > 3 ? static_cast<int>(body.size()) - 3 : NO_DICT_POS);
    }
}

TEST(DamageTest, ChildrenWithoutALetterAreDroppedQuietly) {
    const auto policy = openBody({3, 0x00, 0x1F, 0x30, 0x1F, 1, 0x10, 'a', 9});
    DicNode root;
    DicNodeUtils::initAsRoot(policy.get(), nullptr, &root);
    DicNodeVector children;
    DicNodeUtils::getAllChildDicNodes(&root, policy.get(), &children);
    ASSERT_EQ(children.getSizeAndLock(), 1);
    EXPECT_EQ(children[0]->getNodeCodePoint(), 'a');
    EXPECT_FALSE(policy->isCorrupted());
}

TEST(HostileTest, SharedSubtreesEndTheWalk) {
    // Each array's two nodes lead to the same next array, 45 levels deep.
    Bytes body;
    for (int level = 0; level < 45; ++level) {
        body.insert(body.end(), {2, 0x50, 'a', 1, 5, 0x50, 'b', 1, 1});
    }
    body.insert(body.end(), {1, 0x10, 'c', 1});
    const auto policy = openBody(body);
    EXPECT_LT(walkWords(policy.get()).size(), body.size());
    EXPECT_TRUE(policy->isCorrupted());
    EXPECT_EQ(positionOf(*policy, U"abbb"), 3 * 9 + 5);
}

TEST(HostileTest, ShortcutsEndWithTheirList) {
    // A list of one entry that claims to go on, and bytes behind it that would do for more.
    Bytes body{1, 0x18, 'a', 9, 0, 5, 0x8F, 'b', 0x1F};
    for (int i = 0; i < 1000; ++i) body.insert(body.end(), {0x8F, 'c', 0x1F});
    const int word[] = {'a'};
    EXPECT_EQ(openBody(body)->getWordProperty(word, 1).getUnigramProperty().getShortcuts().size(), 1u);
}

TEST(HostileTest, LongListsOfLongSearchesEnd) {
    // A list of 20,000 pairs, each of whose words is looked for through 6 MB.
    constexpr int WIDE_NODE_COUNT = 100;
    Bytes body{WIDE_NODE_COUNT + 1, 0x14, 'b', 1};
    for (int i = 0; i < 20000; ++i) body.insert(body.end(), {0x9F, 0x02});
    body.insert(body.end(), {0x1F, 0x02});
    for (int i = 0; i < WIDE_NODE_COUNT; ++i) {
        body.insert(body.end(), {0x18, 'c', 1, 0xFF, 0xFF});
        body.insert(body.end(), 0xFFFF - 2, 0);
    }
    const auto policy = openBody(body);
    const int position = positionOf(*policy, U"b");
    PredictingListener listener(policy.get());
    policy->iterateNgramEntries(&position, &listener);
    EXPECT_GT(listener.count, 1);
    EXPECT_LT(listener.count, 1000);
    // Who only wants the entries gets all of them.
    RecordingListener entries;
    policy->iterateNgramEntries(&position, &entries);
    EXPECT_EQ(entries.entries.size(), 20001u);
}

}  // namespace
}  // namespace wordengine::test
