// SPDX-License-Identifier: Apache-2.0
#include "node/dic_node_priority_queue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <queue>
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

/// The queue in its simplest form: every newcomer gets a place first, and is judged then.
class SimpleQueue {
public:
    explicit SimpleQueue(int maxSize) { clearAndResize(maxSize); }

    void clearAndResize(int maxSize) {
        maxSize_ = static_cast<size_t>(maxSize);
        queue_ = {};
        storage_.assign(maxSize_ + 1, DicNode());
        free_.clear();
        for (DicNode& node : storage_) free_.push_back(&node);
    }

    void push(const DicNode& dicNode) {
        if (free_.empty()) return;
        DicNode* const instance = free_.back();
        free_.pop_back();
        *instance = dicNode;
        if (queue_.size() >= maxSize_) {
            if (queue_.empty() || !DicNodeComparator()(instance, queue_.top())) {
                free_.push_back(instance);
                return;
            }
            free_.push_back(queue_.top());
            queue_.pop();
        }
        queue_.push(instance);
    }

    int pop() {
        const int id = queue_.top()->getPtNodePos();
        free_.push_back(queue_.top());
        queue_.pop();
        return id;
    }

    int size() const { return static_cast<int>(queue_.size()); }

private:
    size_t maxSize_ = 0;
    std::vector<DicNode> storage_;
    std::deque<DicNode*> free_;
    std::priority_queue<DicNode*, std::vector<DicNode*>, DicNodeComparator> queue_;
};

class RandomNodes {
public:
    explicit RandomNodes(unsigned seed) : random_(seed) {}

    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    /// Few different costs and letters, some costs within the tolerance: most comparisons are close.
    DicNode closeNode(int id) {
        const float distance = static_cast<float>(pick(0, 3)) * 0.1f + static_cast<float>(pick(0, 3)) * 6e-7f;
        std::vector<int> word(static_cast<size_t>(pick(1, 3)));
        for (int& codePoint : word) codePoint = pick('a', 'b');
        return makeNode(
            id, distance, word,
            pick(0, 4) == 0 ? ErrorTypeUtils::MATCH_WITH_CASE_ERROR : ErrorTypeUtils::EDIT_CORRECTION);
    }

private:
    std::mt19937 random_;
};

TEST(DicNodePriorityQueueTest, GivesTheSameOrderAsTheSimplestQueue) {
    for (unsigned seed = 0; seed < 30; ++seed) {
        SCOPED_TRACE(seed);
        RandomNodes random(seed);
        const int firstSize = random.pick(0, 40);
        DicNodePriorityQueue queue(firstSize);
        SimpleQueue simple(firstSize);
        DicNode popped;
        for (int step = 0; step < 1500; ++step) {
            const int action = random.pick(0, 400);
            if (action == 0) {
                const int size = random.pick(0, 40);
                queue.clearAndResize(size);
                simple.clearAndResize(size);
            } else if (action < 100 && queue.getSize() > 0) {
                queue.copyPop(&popped);
                ASSERT_EQ(popped.getPtNodePos(), simple.pop()) << "step " << step;
            } else {
                const DicNode node = random.closeNode(step);
                queue.copyPush(&node);
                simple.push(node);
            }
            ASSERT_EQ(queue.getSize(), simple.size());
        }
        while (queue.getSize() > 0) {
            queue.copyPop(&popped);
            ASSERT_EQ(popped.getPtNodePos(), simple.pop());
        }
    }
}

TEST(DicNodePriorityQueueTest, KeepsTheBestOfAllAndGivesTheWorstFirst) {
    std::mt19937 random(5);
    for (const int maxSize : {1, 2, 17, 100}) {
        std::vector<int> distances(400);
        for (int i = 0; i < 400; ++i) distances[static_cast<size_t>(i)] = i;
        std::shuffle(distances.begin(), distances.end(), random);
        DicNodePriorityQueue queue(maxSize);
        for (const int distance : distances) {
            const DicNode node = makeNode(distance, static_cast<float>(distance) * 0.01f, {'a'});
            queue.copyPush(&node);
        }
        EXPECT_EQ(queue.getSize(), maxSize);
        for (int expected = maxSize - 1; expected >= 0; --expected) {
            DicNode popped;
            queue.copyPop(&popped);
            EXPECT_EQ(popped.getPtNodePos(), expected);
        }
        DicNode untouched = makeNode(-5, 0.0f, {'a'});
        queue.copyPop(&untouched);
        EXPECT_EQ(untouched.getPtNodePos(), -5);
    }
}

TEST(DicNodePriorityQueueTest, EveryPlaceIsFreeAgainAfterClear) {
    DicNodePriorityQueue queue(10);
    for (int round = 0; round < 50; ++round) {
        for (int i = 0; i < 10; ++i) {
            const DicNode node = makeNode(i, static_cast<float>(i), {'a'});
            ASSERT_TRUE(queue.copyPush(&node)) << "round " << round;
        }
        queue.clear();
    }
    // A limit raised without new room stays bounded by the room.
    queue.setMaxSize(100);
    int stored = 0;
    for (int i = 0; i < 100; ++i) {
        const DicNode node = makeNode(i, static_cast<float>(i), {'a'});
        stored += queue.copyPush(&node) ? 1 : 0;
    }
    EXPECT_EQ(stored, 11);
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
    const DicNodeComparator isBetter;
    for (const auto& c : cases) {
        EXPECT_TRUE(isBetter(&c.better, &c.worse));
        EXPECT_FALSE(isBetter(&c.worse, &c.better));
        EXPECT_FALSE(isBetter(&c.better, &c.better));
    }
    const DicNode twins[] = {makeNode(1, 0.1f, {'a'}), makeNode(2, 0.1f, {'a'})};
    EXPECT_TRUE(isBetter(&twins[1], &twins[0])) << "the higher address";
    EXPECT_FALSE(isBetter(&twins[0], &twins[1]));
}

TEST(DicNodeComparatorTest, LooksAtTheCurrentWordOnly) {
    const DicNode first = makeNode(1, 0.0f, {'z'});
    const DicNode other = makeNode(2, 0.0f, {'a'});
    const int b = 'b';
    const int c = 'c';
    DicNode root, afterZ, afterA;
    root.initAsRootWithPreviousWord(&first, 0);
    afterZ.initAsChild(&root, 3, 0, 0, true, true, false, 1, &b);
    root.initAsRootWithPreviousWord(&other, 0);
    afterA.initAsChild(&root, 4, 0, 0, true, true, false, 1, &c);
    EXPECT_TRUE(DicNodeComparator()(&afterZ, &afterA));
    EXPECT_FALSE(DicNodeComparator()(&afterA, &afterZ));
}

}  // namespace
}  // namespace wordengine
