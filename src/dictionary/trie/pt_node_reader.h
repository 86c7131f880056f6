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

protected:
    PtNodeReader() = default;
};

}  // namespace wordengine
