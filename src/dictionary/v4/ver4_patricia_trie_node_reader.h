// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_reader.h"
#include "dictionary/v4/probability_content.h"
#include "storage/buffer_with_extendable_buffer.h"

#include <optional>

namespace wordengine {

class HeaderPolicy;

/// The nodes of a trie that can change, with the probabilities that are kept beside it. A node that has moved
/// reads as the one that it became, but for the place of its next sibling. All must outlive the reader.
class Ver4PatriciaTrieNodeReader final : public PtNodeReader {
public:
    Ver4PatriciaTrieNodeReader(const BufferWithExtendableBuffer* buffer,
                               const ProbabilityContent* probabilityContent, const HeaderPolicy* headerPolicy)
        : buffer_(buffer), probabilityContent_(probabilityContent), headerPolicy_(headerPolicy) {}

    PtNodeParams fetchPtNodeParamsInBufferFromPtNodePos(int ptNodePos) const override {
        return fetchFollowingMoves(ptNodePos, Probability::READ);
    }
    PtNodeParams fetchPtNodeWithoutProbability(int ptNodePos) const override {
        return fetchFollowingMoves(ptNodePos, Probability::PASSED_OVER);
    }

private:
    /// A node is moved when its word comes back or is split, so a long row of moves is a circle.
    static constexpr int MAX_MOVES = 2048;

    enum class Probability { READ, PASSED_OVER };

    [[nodiscard]] PtNodeParams fetchFollowingMoves(int ptNodePos, Probability probability) const;
    [[nodiscard]] PtNodeParams fetchPtNodeInfo(int ptNodePos, int siblingNodePos,
                                               Probability probability) const;
    [[nodiscard]] int readProbability(int terminalId) const;

    const BufferWithExtendableBuffer* buffer_;
    const ProbabilityContent* probabilityContent_;
    const HeaderPolicy* headerPolicy_;
};

}  // namespace wordengine
