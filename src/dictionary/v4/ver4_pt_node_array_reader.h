// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_array_reader.h"
#include "storage/buffer_with_extendable_buffer.h"

namespace wordengine {

/// The arrays of a trie that can change: each ends in a link to where it goes on. The buffer must outlive it.
class Ver4PtNodeArrayReader final : public PtNodeArrayReader {
public:
    explicit Ver4PtNodeArrayReader(const BufferWithExtendableBuffer* buffer) : buffer_(buffer) {}

    bool readPtNodeArrayInfoAndReturnIfValid(int ptNodeArrayPos, int* outPtNodeCount,
                                             int* outFirstPtNodePos) const override;
    bool readForwardLinkAndReturnIfValid(int forwardLinkPos, int* outNextPtNodeArrayPos) const override;

private:
    const BufferWithExtendableBuffer* buffer_;
};

}  // namespace wordengine
