// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"

#include <cstddef>
#include <vector>

namespace wordengine {

/// Lends out nodes of one block of storage. The block only grows: a smaller capacity lends out its first
/// nodes only. Nodes given back are lent again first, then fresh ones from the far end.
class DicNodePool {
public:
    explicit DicNodePool(int capacity) { reset(capacity); }

    // Pointers into the storage are handed out.
    DicNodePool(const DicNodePool&) = delete;
    DicNodePool& operator=(const DicNodePool&) = delete;

    /// Makes every node free again, whoever still points at it.
    void reset(int capacity) {
        const auto count = static_cast<size_t>(capacity > 0 ? capacity : 0);
        if (storage_.size() < count) {
            storage_.resize(count);
            returned_.reserve(count);
        }
        returned_.clear();
        freshCount_ = count;
    }

    /// Null when all are lent out.
    DicNode* getInstance() {
        if (!returned_.empty()) {
            DicNode* const instance = returned_.back();
            returned_.pop_back();
            return instance;
        }
        return freshCount_ > 0 ? &storage_[--freshCount_] : nullptr;
    }

    void placeBackInstance(DicNode* dicNode) { returned_.push_back(dicNode); }

private:
    std::vector<DicNode> storage_;
    std::vector<DicNode*> returned_;
    size_t freshCount_ = 0;
};

}  // namespace wordengine
