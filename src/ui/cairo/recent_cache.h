// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace vorpel::ui {

/// Keeps what was asked for lately. Two generations: once the young one is full it becomes the old one, and
/// what the old one still held is dropped; what is found in the old one is young again. So at least the
/// `generationSize` entries used last are there, and never more than twice as many.
template <typename Key, typename Value, typename Hash = std::hash<Key>>
class RecentCache {
public:
    explicit RecentCache(std::size_t generationSize) : generationSize_(generationSize) {}

    /// Null when it is not there. Stays valid until the next call.
    [[nodiscard]] Value* find(const Key& key) {
        if (const auto found = young_.find(key); found != young_.end()) return &found->second;
        auto node = old_.extract(key);
        if (node.empty()) return nullptr;
        makeRoom();
        return &young_.insert(std::move(node)).position->second;
    }

    /// The key must not be there yet.
    Value& add(Key key, Value value) {
        makeRoom();
        return young_.emplace(std::move(key), std::move(value)).first->second;
    }

    [[nodiscard]] std::size_t size() const { return young_.size() + old_.size(); }

private:
    void makeRoom() {
        if (young_.size() < generationSize_) return;
        old_.clear();
        std::swap(old_, young_);
    }

    std::size_t generationSize_;
    std::unordered_map<Key, Value, Hash> young_;
    std::unordered_map<Key, Value, Hash> old_;
};

}  // namespace vorpel::ui
