// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_params.h"

namespace wordengine {

/// Decodes single nodes of one format.
class PtNodeReader {
public:
    virtual ~PtNodeReader() = default;
    PtNodeReader(const PtNodeReader&) = delete;
    PtNodeReader& operator=(const PtNodeReader&) = delete;

    /// An invalid node for a position that holds none.
    virtual PtNodeParams fetchPtNodeParamsInBufferFromPtNodePos(int ptNodePos) const = 0;

    /// The same, perhaps without the probability: for walks that pass by many nodes.
    virtual PtNodeParams fetchPtNodeWithoutProbability(int ptNodePos) const {
        return fetchPtNodeParamsInBufferFromPtNodePos(ptNodePos);
    }

protected:
    PtNodeReader() = default;
};

}  // namespace wordengine
