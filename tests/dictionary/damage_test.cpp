// SPDX-License-Identifier: Apache-2.0
#include "dictionary/dic_node_utils.h"
#include "dictionary_fixture.h"
#include "node/dic_node.h"
#include "node/dic_node_vector.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wordengine::test {
namespace {

// Damaged and hostile files; what a search makes of them is tested with the search.

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

TEST(DamageTest, ReadsTheChildrenThatAreThere) {
    const struct {
        Bytes body;
        int children;
        bool isCorrupted;
    } cases[] = {
        {{0x02, 0x10, 'a', 1}, 1, true},
        {{0x81, 0x00, 0x10, 'a', 1}, 1, true},
        {{0x01, 0x10, 'a'}, 0, true},
        {{0x81}, 0, true},
        {{}, 0, true},
        // Without a letter they are dropped quietly.
        {{3, 0x00, 0x1F, 0x30, 0x1F, 1, 0x10, 'a', 9}, 1, false},
    };
    for (const auto& c : cases) {
        const auto policy = openBody(c.body);
        DicNode root;
        DicNodeUtils::initAsRoot(policy.get(), nullptr, &root);
        DicNodeVector children;
        DicNodeUtils::getAllChildDicNodes(&root, policy.get(), &children);
        EXPECT_EQ(children.getSizeAndLock(), c.children);
        EXPECT_EQ(policy->isCorrupted(), c.isCorrupted);
    }
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
