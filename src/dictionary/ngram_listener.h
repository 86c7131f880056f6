// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// Receives the entries of a word's n-gram list, in the order of the list.
class NgramListener {
public:
    virtual ~NgramListener() = default;

    /// `ngramProbability` is the list's own value, or NO_PROBABILITY; `targetPtNodePos` the position of
    /// the word that may follow, or NO_DICT_POS.
    virtual void onVisitEntry(int ngramProbability, int targetPtNodePos) = 0;

protected:
    NgramListener() = default;
    NgramListener(const NgramListener&) = default;
    NgramListener& operator=(const NgramListener&) = default;
};

}  // namespace wordengine
