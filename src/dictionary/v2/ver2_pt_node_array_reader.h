// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_array_reader.h"
#include "storage/byte_array_view.h"

namespace wordengine {

/// Decodes the heads of node arrays of the read-only format, which has no links between arrays. The body
/// must outlive it.
class Ver2PtNodeArrayReader final : public PtNodeArrayReader {
public:
    explicit Ver2PtNodeArrayReader(ReadOnlyByteArrayView body) : body_(body) {}

    bool readPtNodeArrayInfoAndReturnIfValid(int ptNodeArrayPos, int* outPtNodeCount,
                                             int* outFirstPtNodePos) const override;
    bool readForwardLinkAndReturnIfValid(int forwardLinkPos, int* outNextPtNodeArrayPos) const override;

private:
    ReadOnlyByteArrayView body_;
};

}  // namespace wordengine
