// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/trie_map.h"

#include <iterator>

namespace wordengine {

/// The entries of one level of a map, which must neither change nor end meanwhile.
///
/// Somebody who walks levels within levels hands one count to all the ranges: each entry that is read is
/// taken from it. So a damaged map, whose levels may hold each other, is left in time.
class TrieMap::TrieMapRange {
public:
    /// Without a count of the caller's, the walk may read as many entries as the map has.
    TrieMapRange(const TrieMap* trieMap, int bitmapEntryIndex, int* remainingEntryCount = nullptr)
        : trieMap_(trieMap), bitmapEntryIndex_(bitmapEntryIndex), remainingEntryCount_(remainingEntryCount) {}

    [[nodiscard]] TrieMapIterator begin() const;
    [[nodiscard]] std::default_sentinel_t end() const { return {}; }

private:
    const TrieMap* trieMap_;
    int bitmapEntryIndex_;
    int* remainingEntryCount_;
};

class TrieMap::TrieMapIterator {
public:
    class IterationResult {
    public:
        IterationResult(const TrieMap* trieMap, int key, const Result& result, int* remainingEntryCount)
            : trieMap_(trieMap), key_(key), result_(result), remainingEntryCount_(remainingEntryCount) {}

        [[nodiscard]] int key() const { return key_; }
        [[nodiscard]] uint64_t value() const { return result_.value; }
        [[nodiscard]] bool hasNextLevelMap() const {
            return result_.nextLevelBitmapEntryIndex != INVALID_INDEX;
        }
        /// Counts with the range that this result comes from, if that counts for a caller.
        [[nodiscard]] TrieMapRange getEntriesInNextLevel() const {
            return {trieMap_, result_.nextLevelBitmapEntryIndex, remainingEntryCount_};
        }

    private:
        const TrieMap* trieMap_;
        int key_;
        Result result_;
        int* remainingEntryCount_;
    };

    TrieMapIterator(const TrieMap* trieMap, int bitmapEntryIndex, int* remainingEntryCount)
        : trieMap_(trieMap),
          stack_(trieMap->beginIteration(bitmapEntryIndex)),
          ownEntryCount_(trieMap->getEntryCount()),
          remainingEntryCount_(remainingEntryCount) {
        ++*this;
    }

    [[nodiscard]] IterationResult operator*() const {
        return {trieMap_, key_, result_, remainingEntryCount_};
    }
    TrieMapIterator& operator++() {
        int* const count = remainingEntryCount_ ? remainingEntryCount_ : &ownEntryCount_;
        result_ = trieMap_->iterateNext(&stack_, count, &key_);
        return *this;
    }
    [[nodiscard]] bool operator==(std::default_sentinel_t) const { return !result_.isValid; }

private:
    const TrieMap* trieMap_;
    TableIterationStack stack_;
    int key_ = 0;
    Result result_;
    int ownEntryCount_;
    int* remainingEntryCount_;
};

inline TrieMap::TrieMapIterator TrieMap::TrieMapRange::begin() const {
    return {trieMap_, bitmapEntryIndex_, remainingEntryCount_};
}

}  // namespace wordengine
