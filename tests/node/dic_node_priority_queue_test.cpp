// SPDX-License-Identifier: Apache-2.0
#include "node/dic_node_priority_queue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace wordengine {
namespace {

/// A node whose position tells it from every other one.
DicNode makeNode(int id, float distance, const std::vector<int>& word,
                 ErrorTypeUtils::ErrorType errorTypes = ErrorTypeUtils::EDIT_CORRECTION) {
    DicNode root;
    root.initAsRoot(0, nullptr);
    DicNode node = root;
    for (const int codePoint : word) {
        DicNode child;
        child.initAsChild(&node, id, 0, 0, true, true, false, 1, &codePoint);
        node = child;
    }
    node.addCost(distance, 0.0f, false, 0, 0, errorTypes);
    return node;
}

bool isBetter(const DicNode& left, const DicNode& right) {
    return DicNodeComparator()(&left, &right);
}

/// The queue in its simplest form: all that is stored, sorted at every push.
class SimpleQueue {
public:
    void clearAndResize(int maxSize) {
        maxSize_ = static_cast<size_t>(maxSize);
        nodes_.clear();
    }

    void push(const DicNode& dicNode) {
        nodes_.push_back(dicNode);
        std::stable_sort(nodes_.begin(), nodes_.end(), isBetter);
        if (nodes_.size() > maxSize_) nodes_.pop_back();
    }

    int pop() {
        const int id = nodes_.back().getPtNodePos();
        nodes_.pop_back();
        return id;
    }

    int size() const { return static_cast<int>(nodes_.size()); }

private:
    size_t maxSize_ = 0;
    std::vector<DicNode> nodes_;
};

/// Few different costs and letters, so that most comparisons are close, and no word twice: which of two
/// equal nodes goes first is nobody's promise.
std::vector<DicNode> closeNodes(std::mt19937& random) {
    std::vector<std::vector<int>> words{{}};
    for (size_t i = 0; words.back().size() < 6; ++i) {
        for (const int letter : {'a', 'b'}) {
            words.push_back(words[i]);
            words.back().push_back(letter);
        }
    }
    words.erase(words.begin());
    std::shuffle(words.begin(), words.end(), random);
    const auto pick = [&](int high) { return std::uniform_int_distribution<int>(0, high)(random); };
    std::vector<DicNode> nodes;
    for (const std::vector<int>& word : words) {
        const float distance = static_cast<float>(pick(3)) * 0.1f + static_cast<float>(pick(3)) * 2e-7f;
        const ErrorTypeUtils::ErrorType error =
            pick(4) == 0 ? ErrorTypeUtils::MATCH_WITH_CASE_ERROR : ErrorTypeUtils::EDIT_CORRECTION;
        nodes.push_back(makeNode(static_cast<int>(nodes.size()), distance, word, error));
    }
    return nodes;
}

TEST(DicNodePriorityQueueTest, GivesTheSameOrderAsTheSimplestQueue) {
    std::mt19937 random(7);
    DicNodePriorityQueue queue(3);
    SimpleQueue simple;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        std::vector<DicNode> nodes = closeNodes(random);
        // The better ones first now and then, as they come from a queue in order.
        if (round % 3 == 0) {
            std::stable_sort(nodes.begin(), nodes.end(), isBetter);
        }
        const int maxSize = std::uniform_int_distribution<int>(0, 40)(random);
        queue.clearAndResize(maxSize);
        simple.clearAndResize(maxSize);
        DicNode popped;
        for (size_t i = 0; i < nodes.size(); ++i) {
            queue.copyPush(&nodes[i]);
            simple.push(nodes[i]);
            ASSERT_EQ(queue.getSize(), simple.size());
            if (i % 50 != 49 || simple.size() == 0) continue;
            queue.copyPop(&popped);
            ASSERT_EQ(popped.getPtNodePos(), simple.pop());
        }
        // What a clearing throws away must be free again.
        if (round % 2 == 0) continue;
        while (queue.getSize() > 0) {
            queue.copyPop(&popped);
            ASSERT_EQ(popped.getPtNodePos(), simple.pop());
        }
    }
}

TEST(DicNodePriorityQueueTest, ALoweredLimitHoldsForWhatIsStored) {
    for (const int limit : {0, 1, 4, 10}) {
        SCOPED_TRACE(limit);
        DicNodePriorityQueue queue(10);
        const auto push = [&](int from, int to) {
            for (int id = from; id != to; --id) {
                const DicNode node = makeNode(id, static_cast<float>(id), {'a'});
                queue.copyPush(&node);
            }
        };
        push(49, 39);
        queue.setMaxSize(limit);
        EXPECT_EQ(queue.getSize(), limit);
        push(39, -1);
        EXPECT_EQ(queue.getSize(), limit);
        for (int expected = limit - 1; expected >= 0; --expected) {
            DicNode worst;
            queue.copyPop(&worst);
            EXPECT_EQ(worst.getPtNodePos(), expected);
        }
    }
}

TEST(DicNodeComparatorTest, OrdersByExactnessDistanceDepthAndWord) {
    using E = ErrorTypeUtils;
    const struct {
        DicNode better, worse;
    } cases[] = {
        {makeNode(1, 5.0f, {'a'}, E::MATCH_WITH_ACCENT_ERROR), makeNode(2, 0.0f, {'a'}, E::COMPLETION)},
        {makeNode(1, 0.1f, {'b'}), makeNode(2, 0.10001f, {'a'})},
        {makeNode(1, 0.1000005f, {'a'}), makeNode(2, 0.1f, {'a', 'a'})},
        {makeNode(1, 0.1000005f, {'a', 'b'}), makeNode(2, 0.1f, {'a', 'c'})},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(isBetter(c.better, c.worse));
        EXPECT_FALSE(isBetter(c.worse, c.better));
        EXPECT_FALSE(isBetter(c.better, c.better));
    }
}

TEST(DicNodeComparatorTest, LooksAtTheCurrentWordOnly) {
    const auto wordAfter = [](const DicNode& previous, int letter) {
        DicNode root, child;
        root.initAsRootWithPreviousWord(&previous, 0);
        child.initAsChild(&root, 3, 0, 0, true, true, false, 1, &letter);
        return child;
    };
    const DicNode afterZ = wordAfter(makeNode(1, 0.0f, {'z'}), 'b');
    const DicNode afterA = wordAfter(makeNode(2, 0.0f, {'a'}), 'c');
    EXPECT_TRUE(isBetter(afterZ, afterA));
    EXPECT_FALSE(isBetter(afterA, afterZ));
}

}  // namespace
}  // namespace wordengine
